#pragma once

#include <quillmarker/text_box.h>

#include <string_view>

namespace quillmarker
{

/// What formatting asks of the control around the text. Handlers of the host application run in the middle of most of
/// it and may delete the control: then there is no box any more.
class FormatHost
{
public:
    FormatHost() = default;
    virtual ~FormatHost() = default;
    FormatHost(const FormatHost&) = delete;
    FormatHost& operator=(const FormatHost&) = delete;

    /// Null once the control is gone.
    virtual TextBox* Box() = 0;
    virtual void FocusText() = 0;
    /// The editor's property of that name.
    virtual void SetRedraw(bool redraw) = 0;
    virtual int DefaultCharset() const = 0;
    /// Whether a user may format the selection: what he may not write he may not format either.
    virtual bool MayFormat() const = 0;

    // The editor's commands.
    virtual void Undo() = 0;
    virtual void Cut() = 0;
    virtual void Copy() = 0;
    virtual void Paste() = 0;
    virtual void Delete() = 0;
    virtual void ShowSearchDialog() = 0;

    /// Raises the editor's event of that name.
    virtual void ToolbarClick(std::string_view key) = 0;
    virtual void RefreshUIState() = 0;
    /// Of that, what shows whether the selection is raised or lowered.
    virtual void UpdateScriptButtons() = 0;
};

}  // namespace quillmarker
