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

/// What the functions of a report answer: the caret behind what they inserted, or minus the number of an error. Here
/// they put it in place of the selection.
using Answer = Result<int>;

Answer InsertText(Report& report, const std::string& value) { return report.InsertStringText(ToUtf16(value), {}); }

Answer InsertRtf(Report& report, const std::string& value)
{
    if (!IsRtf(value))
        return Failure{"the value of \"rtf\" is no RTF; it should begin with {\\rtf1"};
    return report.InsertStringRTF(ToUtf16(value), {});
}

Answer InsertHidden(Report& report, const std::string& value)
{
    TextBox& box = report.Box();
    const int start = box.SelStart();
    box.SetSelText(ToUtf16(value));
    const int end = box.SelStart();
    box.SetSelStart(start);
    box.SetSelLength(end - start);
    PartialCharFormat format;
    format.hidden = true;
    box.SetSelCharFormat(format);
    box.SetSelStart(end);
    return end;
}

bool BeginsAsRtf(const fs::path& path)
{
    std::array<char, 256> head{};
    std::ifstream file(path, std::ios::binary);
    file.read(head.data(), head.size());
    return IsRtf({head.data(), static_cast<std::size_t>(file.gcount())});
}

/// A text file's last line has an end too; it is not the beginning of a further paragraph.
Answer InsertTextFile(Report& report, const fs::path& path)
{
    TextBox box;
    if (const FileError error = box.LoadFile(path, FileKind::Text); error != FileError::None)
        return -static_cast<int>(error);
    std::u16string text = box.Text();
    if (text.ends_with(u"\r\n"))
        text.resize(text.size() - 2);
    return report.InsertStringText(text, {});
}

Answer InsertFile(Report& report, const fs::path& path)
{
    std::error_code ignored;
    const bool isText = path.extension() == ".txt";
    if (!isText && fs::is_regular_file(path, ignored) && std::ifstream(path) && !BeginsAsRtf(path))
        return Failure{path.string() + " is no RTF; text should be in a file that ends in .txt"};
    const Answer answer = isText ? InsertTextFile(report, path) : report.InsertFileRTF(path, {});
    return *answer >= 0 ? answer : Failure{path.string() + ": " + Describe(static_cast<FileError>(-*answer))};
}

Answer Insert(Report& report, const Item& item, const fs::path& folder)
{
    switch (item.kind)
    {
    case ItemKind::Text:
        return InsertText(report, item.value);
    case ItemKind::Rtf:
        return InsertRtf(report, item.value);
    case ItemKind::Hidden:
        return InsertHidden(report, item.value);
    case ItemKind::File:
        break;
    }
    return InsertFile(report, folder / item.value);
}

/// The format of the selection's first character, which text put in its place takes.
PartialCharFormat FirstFormat(TextBox& box)
{
    const int length = box.SelLength();
    box.SetSelLength(1);
    PartialCharFormat format = box.SelCharFormat();
    box.SetSelLength(length);
    return format;
}

/// Puts the items in place of the selected marker. Text takes the marker's format, whatever stands in front of it.
Answer ReplaceMarker(Report& report, const std::vector<Item>& items, const fs::path& folder)
{
    const PartialCharFormat format = FirstFormat(report.Box());
    Answer answer = items.empty() ? InsertText(report, {}) : Insert(report, items.front(), folder);
    for (std::size_t i = 1; i < items.size() && answer; ++i)
    {
        report.Box().SetSelCharFormat(format);
        answer = Insert(report, items[i], folder);
    }
    // What was not inserted leaves its place selected; searched again, it would be found for ever.
    if (answer && report.Box().SelLength() > 0)
        return Failure{"there is no room for the value"};
    return answer;
}

/// How often the marker was found.
Result<int> FillMarker(Report& report, const Marker& marker, const fs::path& folder)
{
    const std::u16string name = ToUtf16(marker.name);
    int count = 0;
    for (report.CursorStart(); report.Box().Find(name) >= 0; ++count)
        if (const Answer answer = ReplaceMarker(report, marker.items, folder); !answer)
            return Failure{"marker \"" + marker.name + "\": " + answer.Message()};
    return count;
}

}  // namespace

Filling Fill(Report& report, const ReportData& data, const fs::path& folder)
{
    Filling result;
    report.SetRedraw(false);
    for (const Marker& marker : data)
    {
        const auto count = FillMarker(report, marker, folder);
        if (!count)
        {
            result.error = count.Message();
            break;
        }
        if (*count == 0)
            result.missing.push_back(marker.name);
    }
    report.SetRedraw(true);
    return result;
}

}  // namespace quillmarker::tool
