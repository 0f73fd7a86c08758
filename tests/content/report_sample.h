#pragma once

#include "engine/document/utf.h"

#include <quillmarker/report.h>

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillmarker
{

/// Fills a box with a text whose selection goes from ^ to |; a lone | is the caret.
inline void Fill(TextBox& box, std::u16string_view sample)
{
    std::u16string text(sample);
    std::size_t begin = text.find(u'^');
    if (begin != text.npos)
        text.erase(begin, 1);
    const std::size_t end = text.find(u'|');
    if (end != text.npos)
        text.erase(end, 1);
    begin = std::min(begin, end);
    box.SetText(text);
    if (end != text.npos)
    {
        box.SetSelStart(static_cast<int>(begin));
        box.SetSelLength(static_cast<int>(end - begin));
    }
}

inline CharFormat FormatAt(const TextBox& box, int position)
{
    const Location at = box.Value().Locate({position});
    const Paragraph& paragraph = box.Value().ParagraphAt(at.paragraph);
    return box.Value().FormatOf(paragraph.FormatAt(static_cast<std::uint32_t>(at.offset)));
}

/// The text, with * before each bold character, ~ before each hidden one, and the selection as in Fill.
inline std::string Shown(const TextBox& box)
{
    const std::u16string text = box.Text();
    const int end = box.SelStart() + box.SelLength();
    std::u16string shown;
    for (int at = 0; at <= static_cast<int>(text.size()); ++at)
    {
        if (at == box.SelStart() && box.SelLength() > 0)
            shown += u'^';
        if (at == end)
            shown += u'|';
        if (at == static_cast<int>(text.size()))
            break;
        const char16_t unit = text[static_cast<std::size_t>(at)];
        const bool isText = unit != u'\r' && unit != u'\n';
        if (isText && FormatAt(box, at).bold)
            shown += u'*';
        if (isText && FormatAt(box, at).hidden)
            shown += u'~';
        shown += unit;
    }
    return ToUtf8(shown);
}

inline std::string Shown(const Report& report) { return Shown(report.Box()); }

/// Writes down what a window is told, in order.
struct RecordedHooks : ReportHooks
{
    std::vector<std::string> calls;
    std::function<void(std::string_view)> also;

    void Note(const std::string& call)
    {
        calls.push_back(call);
        if (also)
            also(call);
    }
    void FocusText() override { Note("focus"); }
    void LockPainting(bool locked) override { Note(locked ? "lock" : "unlock"); }
    void RefreshUIState() override { Note("refresh"); }
    void PropertyChanged(std::u16string_view name) override { Note("changed " + ToUtf8(name)); }

    std::vector<std::string> Taken()
    {
        std::vector<std::string> taken;
        taken.swap(calls);
        return taken;
    }
};

/// A window in which everything fails.
struct FailingHooks : ReportHooks
{
    void FocusText() override { throw std::runtime_error("focus"); }
    void LockPainting(bool) override { throw std::runtime_error("lock"); }
    void RefreshUIState() override { throw std::runtime_error("refresh"); }
    void PropertyChanged(std::u16string_view) override { throw std::runtime_error("property"); }
};

}  // namespace quillmarker
