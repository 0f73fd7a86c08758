#include "pdf_properties.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string_view>

namespace quillmarker
{
namespace
{

struct PropertyName
{
    std::string_view rtf;
    std::string_view pdf;
};

constexpr std::array<PropertyName, 4> kProperties{{
    {"title", "Title"},
    {"author", "Author"},
    {"subject", "Subject"},
    {"keywords", "Keywords"},
}};

/// The number behind the last `key` of a text.
std::optional<std::int64_t> LastNumberBehind(std::string_view text, std::string_view key)
{
    std::size_t at = text.rfind(key);
    if (at == std::string_view::npos)
        return {};
    at = text.find_first_not_of(" \r\n", at + key.size());
    if (at == std::string_view::npos)
        return {};
    std::int64_t number = 0;
    const auto result = std::from_chars(text.data() + at, text.data() + text.size(), number);
    return result.ec == std::errc() && number >= 0 ? std::optional(number) : std::nullopt;
}

/// A text string in UTF-16 with its byte order mark, in hexadecimal digits.
std::string TextString(std::u16string_view text)
{
    std::string string = "<FEFF";
    for (const char16_t unit : text)
    {
        std::array<char, 5> digits{};
        std::snprintf(digits.data(), digits.size(), "%04X", static_cast<unsigned>(unit));
        string += digits.data();
    }
    return string + ">";
}

std::string Entries(const std::vector<std::pair<std::string, std::u16string>>& info)
{
    std::string entries;
    for (const PropertyName& name : kProperties)
        for (const auto& [keyword, text] : info)
            if (keyword == name.rtf && !text.empty())
                entries += "/" + std::string(name.pdf) + " " + TextString(text) + "\n";
    return entries;
}

/// What the writer itself says of the file, but for what is stated anew.
std::string KeptEntries(std::string_view dictionary)
{
    std::string kept;
    for (const std::string_view key : {"/Creator", "/Producer", "/CreationDate"})
    {
        const std::size_t at = dictionary.find(key);
        if (at == std::string_view::npos)
            continue;
        const std::size_t end = dictionary.find('\n', at);
        kept += std::string(dictionary.substr(at, end - at)) + "\n";
    }
    return kept;
}

std::string XrefEntry(std::size_t offset)
{
    std::array<char, 24> entry{};
    std::snprintf(entry.data(), entry.size(), "%010zu 00000 n \n", offset);
    return entry.data();
}

}  // namespace

std::string WithPdfProperties(std::string pdf, const std::vector<std::pair<std::string, std::u16string>>& info)
{
    const std::string entries = Entries(info);
    const std::string_view whole = pdf;
    const std::size_t trailer = whole.rfind("trailer");
    if (entries.empty() || trailer == std::string_view::npos)
        return pdf;
    const std::string_view tail = whole.substr(trailer);
    const auto size = LastNumberBehind(tail, "/Size");
    const auto information = LastNumberBehind(tail, "/Info");
    const auto root = LastNumberBehind(tail, "/Root");
    const auto previous = LastNumberBehind(tail, "startxref");
    if (!size || !information || !root || !previous)
        return pdf;
    const std::string number = std::to_string(*information);
    const std::size_t old = whole.rfind("\n" + number + " 0 obj");
    const std::string_view dictionary =
        old == std::string_view::npos ? std::string_view() : whole.substr(old, whole.find("endobj", old) - old);

    std::string update = number + " 0 obj\n<<\n" + KeptEntries(dictionary) + entries + ">>\nendobj\n";
    const std::size_t xref = pdf.size() + update.size();
    update += "xref\n" + number + " 1\n" + XrefEntry(pdf.size());
    update += "trailer\n<<\n/Size " + std::to_string(*size) + "\n/Info " + number + " 0 R\n/Root " +
              std::to_string(*root) + " 0 R\n/Prev " + std::to_string(*previous) + "\n>>\nstartxref\n" +
              std::to_string(xref) + "\n%%EOF\n";
    return pdf + update;
}

}  // namespace quillmarker
