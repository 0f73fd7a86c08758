#include "fill.h"

#include "utf.h"

#include <quillmarker/rtf.h>

#include <array>
#include <fstream>
#include <string_view>

namespace quillmarker::tool
{
namespace
{

namespace fs = std::filesystem;

constexpr int kNotFound = -1;

/// What the functions of a report answer: the caret behind what was inserted, kNotFound, or minus a FileError.
struct Insertion
{
    int answer = 0;
    std::string error;
};

Insertion Refused(std::string error) { return {kNotFound, std::move(error)}; }

/// In place of the marker, or at the caret when it is empty: so do all that follow here.
Insertion InsertText(Report& report, const std::string& value, std::u16string_view marker)
{
    return {report.InsertStringText(ToUtf16(value), marker), {}};
}

Insertion InsertRtf(Report& report, const std::string& value, std::u16string_view marker)
{
    if (!IsRtf(value))
        return Refused("the value of \"rtf\" is no RTF; it should begin with {\\rtf1");
    return {report.InsertStringRTF(ToUtf16(value), marker), {}};
}

/// Hidden text takes the marker's format; what is inserted behind it is not hidden unless the marker was.
Insertion InsertHidden(Report& report, const std::string& value, std::u16string_view marker)
{
    TextBox& box = report.Box();
    if (!marker.empty() && box.Find(marker) < 0)
        return {kNotFound, {}};
    const bool wasHidden = box.SelCharFormat().hidden.value_or(false);
    const int start = box.SelStart();
    box.SetSelText(ToUtf16(value));
    const int end = box.SelStart();
    box.SetSelStart(start);
    box.SetSelLength(end - start);
    PartialCharFormat format;
    format.hidden = true;
    box.SetSelCharFormat(format);
    box.SetSelStart(end);
    format.hidden = wasHidden;
    box.SetSelCharFormat(format);
    return {end, {}};
}

bool BeginsAsRtf(const fs::path& path)
{
    std::array<char, 256> head{};
    std::ifstream file(path, std::ios::binary);
    file.read(head.data(), head.size());
    return IsRtf({head.data(), static_cast<std::size_t>(file.gcount())});
}

/// A text file's last line has an end too; it is not the beginning of a further paragraph.
Insertion InsertTextFile(Report& report, const fs::path& path, std::u16string_view marker)
{
    TextBox box;
    if (const FileError error = box.LoadFile(path, FileKind::Text); error != FileError::None)
        return {-static_cast<int>(error), {}};
    std::u16string text = box.Text();
    if (text.ends_with(u"\r\n"))
        text.resize(text.size() - 2);
    return {report.InsertStringText(text, marker), {}};
}

Insertion InsertFile(Report& report, const fs::path& path, std::u16string_view marker)
{
    if (path.extension() == ".txt")
        return InsertTextFile(report, path, marker);
    std::error_code ignored;
    if (fs::is_regular_file(path, ignored) && std::ifstream(path) && !BeginsAsRtf(path))
        return Refused(path.string() + " is no RTF; text should be in a file that ends in .txt");
    return {report.InsertFileRTF(path, marker), {}};
}

Insertion Insert(Report& report, const Item& item, std::u16string_view marker, const fs::path& folder)
{
    switch (item.kind)
    {
    case ItemKind::Text:
        return InsertText(report, item.value, marker);
    case ItemKind::Rtf:
        return InsertRtf(report, item.value, marker);
    case ItemKind::Hidden:
        return InsertHidden(report, item.value, marker);
    case ItemKind::File:
        break;
    }
    const fs::path path = folder / item.value;
    Insertion result = InsertFile(report, path, marker);
    if (result.answer < kNotFound)
        result.error = path.string() + ": " + Describe(static_cast<FileError>(-result.answer));
    return result;
}

/// Puts the items in place of the next place behind the caret where the marker stands.
Insertion FillNext(Report& report, const Marker& marker, const fs::path& folder)
{
    const std::u16string name = ToUtf16(marker.name);
    if (marker.items.empty())
        return InsertText(report, {}, name);
    Insertion result = Insert(report, marker.items.front(), name, folder);
    for (std::size_t i = 1; i < marker.items.size() && result.answer >= 0; ++i)
        result = Insert(report, marker.items[i], {}, folder);
    // What was not inserted leaves its place selected; searched again, it would be found for ever.
    if (result.answer >= 0 && report.Box().SelLength() > 0)
        return Refused("there is no room for the value");
    return result;
}

}  // namespace

Filling Fill(Report& report, const ReportData& data, const fs::path& folder)
{
    Filling result;
    report.SetRedraw(false);
    for (const Marker& marker : data)
    {
        report.CursorStart();
        int count = 0;
        Insertion insertion = FillNext(report, marker, folder);
        for (; insertion.answer >= 0; insertion = FillNext(report, marker, folder))
            ++count;
        if (!insertion.error.empty())
        {
            result.error = "marker \"" + marker.name + "\": " + insertion.error;
            break;
        }
        if (count == 0)
            result.missing.push_back(marker.name);
    }
    report.SetRedraw(true);
    return result;
}

}  // namespace quillmarker::tool
