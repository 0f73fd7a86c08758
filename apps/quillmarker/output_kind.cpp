#include "output_kind.h"

#include "files.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace quillmarker::tool
{
namespace
{

struct KindName
{
    const char* name;  // as a format, and behind the point of a file's name
    OutputKind kind;
};

constexpr KindName kKinds[] = {
    {"rtf", OutputKind::Rtf},
    {"txt", OutputKind::Text},
    {"pdf", OutputKind::Pdf},
    {"png", OutputKind::Png},
};

std::string LowerCase(std::string text)
{
    std::ranges::transform(text, text.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    return text;
}

/// ".rtf, .txt, .pdf or .png"
std::string Extensions()
{
    std::string all;
    for (const KindName& row : kKinds)
    {
        const bool isLast = &row == std::end(kKinds) - 1;
        all += (all.empty() ? "." : isLast ? " or ." : ", .") + std::string(row.name);
    }
    return all;
}

}  // namespace

Result<OutputKind> OutputKindOf(const std::string& name, const std::string& format)
{
    if (format.empty() && name == kStandardStream)
        return OutputKind::Rtf;
    const std::string extension = LowerCase(std::filesystem::path(name).extension().string());
    const std::string wanted = format.empty() ? extension.substr(std::min<std::size_t>(1, extension.size())) : format;
    const auto* const found = std::ranges::find(kKinds, wanted, &KindName::name);
    if (found == std::end(kKinds))
        return Failure{"the output \"" + name + "\" should end in " + Extensions() + "; otherwise say --format"};
    return found->kind;
}

std::vector<std::string> FormatNames()
{
    std::vector<std::string> names;
    for (const KindName& row : kKinds)
        names.emplace_back(row.name);
    return names;
}

}  // namespace quillmarker::tool
