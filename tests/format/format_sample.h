#pragma once

#include "format/format_bar.h"
#include "format/format_commands.h"
#include "support/sample.h"

#include <map>
#include <string>
#include <vector>

namespace quillmarker
{

/// The control around a box, as a test wants it: what it is asked for is noted.
class SampleHost : public FormatHost
{
public:
    explicit SampleHost(std::string_view sample) : box(sample) {}

    TextBox* Box() override { return isGone ? nullptr : &box; }
    void FocusText() override { Note("focus"); }
    void SetRedraw(bool redraw) override { Note(redraw ? "redraw" : "no redraw"); }
    int DefaultCharset() const override { return charset; }
    bool MayFormat() const override { return mayFormat; }
    void Undo() override { Note("undo"); }
    void Cut() override { Note("cut"); }
    void Copy() override { Note("copy"); }
    void Paste() override { Note("paste"); }
    void Delete() override { Note("delete"); }
    void ShowSearchDialog() override { Note("search"); }
    void ToolbarClick(std::string_view key) override { Note("click " + std::string(key)); }
    void RefreshUIState() override { Note("refresh"); }
    void UpdateScriptButtons() override { Note("script buttons"); }

    SampleBox box;
    int charset = 0;
    bool mayFormat = true;
    bool isGone = false;
    std::vector<std::string> log;

private:
    void Note(std::string what) { log.push_back(std::move(what)); }
};

/// What shows the formats, without a window. Buttons begin released and decided.
class SampleBar : public FormatBar
{
public:
    struct Button
    {
        int value = 0;
        bool isMixed = false;

        bool operator==(const Button&) const = default;
    };

    void SetMixedState(std::string_view key, bool mixed) override
    {
        buttons[std::string(key)].isMixed = mixed;
        log.push_back(std::string(key) + (mixed ? " mixed" : " decided"));
    }
    void SetValue(std::string_view key, int value) override
    {
        buttons[std::string(key)].value = value;
        log.push_back(std::string(key) + " " + std::to_string(value));
    }
    bool ShowsFontNames() const override { return showsCombos; }
    void SelectFontName(const std::optional<std::u16string>& name) override { fontName = name.value_or(u"(blank)"); }
    bool ShowsFontSizes() const override { return showsCombos; }
    void ShowFontSize(std::optional<float> points) override { fontSize = points.value_or(-1); }

    std::map<std::string, Button> buttons;
    bool showsCombos = true;
    std::u16string fontName = u"(untouched)";
    float fontSize = 0;
    std::vector<std::string> log;
};

}  // namespace quillmarker
