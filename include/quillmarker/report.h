#pragma once

#include <quillmarker/export.h>
#include <quillmarker/file_error.h>
#include <quillmarker/text_box.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillmarker
{

/// What a window does when a report is worked on. Without a window nothing is done.
class QUILLMARKER_CORE_EXPORT ReportHooks
{
public:
    virtual ~ReportHooks() = default;

    /// Gives the keyboard focus to the text.
    virtual void FocusText() {}
    /// Suppresses painting of the text, or lets it go on.
    virtual void LockPainting(bool) {}
    /// Brings what shows the selection's state up to date.
    virtual void RefreshUIState() {}
    /// Tells the container that a property changed.
    virtual void PropertyChanged(std::u16string_view) {}
};

/// A report being filled and edited: a text box, and the operations that hosts build reports with. Nothing thrown
/// leaves it: each step of a member is tried on its own, a failing one is skipped and the next one runs. A handler or a
/// hook may delete the report: what is left of the member does nothing.
class QUILLMARKER_CORE_EXPORT Report
{
public:
    Report();
    /// Over a box that somebody else owns, for longer than this lives, and whose Change he takes himself: BoxChanged is to
    /// be called on it.
    explicit Report(TextBox& box);
    ~Report();
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    TextBox& Box();
    const TextBox& Box() const;

    /// `hooks` must outlive the report; none restores those that do nothing.
    void SetHooks(ReportHooks* hooks);

    /// Puts RTF at the caret (in place of the selection), or, when `FindText` is not empty, in place of the first place
    /// behind the caret where that text stands, case ignored. Returns the caret behind it, or -1: not found.
    int InsertStringRTF(std::u16string_view richtext, std::u16string_view FindText);
    /// The same with plain text, in the format that is in force there.
    int InsertStringText(std::u16string_view txt, std::u16string_view FindText);
    /// Puts hidden text at the caret, coloured like the background, and `LF` behind it as ordinary text.
    int InsertStringHidden(std::u16string_view txth, std::u16string_view LF);
    /// As InsertStringRTF with what a file holds; minus an error number when it cannot be read.
    int InsertFileRTF(const std::filesystem::path& FileName, std::u16string_view FindText);
    /// The text between the last `Prefix` before the caret and the first `Suffix` behind that; empty when there is none.
    std::u16string PreviousField(std::u16string_view Prefix, std::u16string_view Suffix, bool RTFcode);

    std::u16string TextString();
    std::u16string RTFString();

    /// 0, or the positive number of the error.
    int OpenFileRTF(const std::filesystem::path& FileName);
    int OpenFileText(const std::filesystem::path& FileName);
    int SaveFileRTF(const std::filesystem::path& FileName);

    void SelectText(int& start, int& finish);
    void CursorStart();
    void CursorEnd();
    void Clear();
    /// Restores the snapshot, or undoes the box's last step when there is none.
    void Undo();

    /// False locks painting and takes a snapshot for Undo; what follows until it is true again is one step of history.
    bool Redraw() const;
    void SetRedraw(bool enabled);
    bool Changed() const;
    void SetChanged(bool changed);

    // The snapshot that Undo restores; its RTF is made when it is asked for.
    std::u16string UndoRTF() const;
    int UndoSelStart() const;  // -1: there is none
    int UndoSelLength() const;
    void SaveUndoSnapshot();
    void DropUndoSnapshot();

    int DefaultCharset() const;
    void SetDefaultCharset(int charset);

    /// See Report(TextBox&).
    void BoxChanged();

    /// Raised when the document changed, before Changed becomes true.
    std::function<void()> Change;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

}  // namespace quillmarker
