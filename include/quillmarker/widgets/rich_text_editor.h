#pragma once

#include <quillmarker/widgets/export.h>
#include <quillmarker/widgets/late_binding.h>
#include <quillmarker/widgets/picture.h>
#include <quillmarker/widgets/platform_services.h>
#include <quillmarker/widgets/property_bag.h>
#include <quillmarker/widgets/type_information.h>

#include <QString>
#include <QVariant>
#include <QWidget>

#include <memory>

namespace quillmarker
{

/// What a host can ask of the control. The functions stand in the order of the interface's function table, which is a
/// contract. None of them throws: a step that fails is skipped and the next one runs.
class IRichTextEditor
{
public:
    virtual ~IRichTextEditor() = default;

    /// Tells the user that printing needs a printer.
    virtual void NoPrinterMsg() = 0;
    /// Whether the document was changed since this was last set to false; only the host does that, after saving.
    virtual bool Changed() const = 0;
    virtual void SetChanged(bool changed) = 0;
    /// Empties the document; Undo brings it back.
    virtual void Clear() = 0;
    virtual void CursorEnd() = 0;
    virtual void CursorStart() = 0;
    /// The control's own window.
    virtual int hWnd() const = 0;
    /// The unit of rulers and margins: inches, or else centimetres.
    virtual bool MeasureInches() const = 0;
    virtual void SetMeasureInches(bool inches) = 0;
    /// 0, or the positive number of the error.
    virtual int OpenFileText(const QString& FileName) = 0;
    /// The text between the last `Prefix` before the caret and the first `Suffix` behind that; empty when there is none.
    virtual QString PreviousField(const QString& Prefix, const QString& Suffix, bool RTFcode) = 0;
    /// Repaints the control.
    virtual void Refresh() = 0;
    /// The whole document as RTF. The text gets the keyboard focus.
    virtual QString RTFString() const = 0;
    /// Selects from `start` to `finish`, -1 being the end. What lies beyond the text is written back as its length.
    virtual void SelectText(int& start, int& finish) = 0;
    virtual void SetFont(const QString& FontName, float FontSize) = 0;
    virtual void SetIndents(float Left, float Right, float hanging) = 0;
    virtual void ShowParagraphDialog() = 0;
    /// False locks the painting of the text and takes a snapshot for Undo; hosts put it around many insertions.
    virtual bool Redraw() const = 0;
    virtual void Copy() = 0;
    virtual void Cut() = 0;
    virtual void Delete() = 0;
    virtual void SetRedraw(bool redraw) = 0;
    virtual int InsertPictureFile(const QString& FileName, const QString& FindText) = 0;
    /// As InsertStringRTF with what a file holds; minus an error number when it cannot be read.
    virtual int InsertFileRTF(const QString& FileName, const QString& FindText) = 0;
    /// 0, or the positive number of the error.
    virtual int OpenFileRTF(const QString& FileName) = 0;
    virtual void Paste() = 0;
    virtual int InsertPictureObject(const HostPicture& Picture, const QString& FindText) = 0;
    /// Puts hidden text at the caret, coloured like the background, and `LF` behind it as ordinary text.
    virtual int InsertStringHidden(const QString& txth, const QString& LF) = 0;
    /// As InsertStringRTF with plain text.
    virtual int InsertStringText(const QString& txt, const QString& FindText) = 0;
    /// Puts RTF at the caret or, when `FindText` is not empty, in place of the first such text behind the caret. Returns
    /// the caret behind it, or -1: not found.
    virtual int InsertStringRTF(const QString& richtext, const QString& FindText) = 0;
    /// 0, or the positive number of the error.
    virtual int SaveFileRTF(const QString& FileName) = 0;
    virtual void ShowFontDialog() = 0;
    virtual void ShowPrintPreview() = 0;
    virtual void ShowPrintDialog() = 0;
    virtual void ShowPageDialog() = 0;
    virtual void ShowPrintSetupDialog() = 0;
    virtual void ShowSearchDialog() = 0;
    /// The whole document as plain text. The text gets the keyboard focus.
    virtual QString TextString() const = 0;
    virtual void SetToolbar(bool shown) = 0;
    virtual bool Toolbar() const = 0;
    virtual void SetRuler(bool shown) = 0;
    virtual bool Ruler() const = 0;
    virtual void SetStatusbar(bool shown) = 0;
    virtual bool Statusbar() const = 0;
    /// Restores the snapshot, or undoes the last step when there is none.
    virtual void Undo() = 0;
    /// Page margins, in the unit of MeasureInches at the time of the call.
    virtual float LeftMargin() const = 0;
    virtual float RightMargin() const = 0;
    virtual float TopMargin() const = 0;
    virtual float BottomMargin() const = 0;
    virtual void SetLeftMargin(float margin) = 0;
    virtual void SetRightMargin(float margin) = 0;
    virtual void SetTopMargin(float margin) = 0;
    virtual void SetBottomMargin(float margin) = 0;
    /// The text itself (RichTextView), whose members are Qt properties and functions.
    virtual QObject* RTFObj() const = 0;
};

/// The report editor that a host places on its window: toolbar, ruler, text and status bar.
///
/// Its members can be reached as C++ functions, as Qt properties and invokable functions of the same names, and by
/// Invoke with the numbers of the type library. A handler of its signals may call it, change the document, or delete it.
class QUILLMARKER_WIDGETS_EXPORT RichTextEditor : public QWidget, public IRichTextEditor
{
    Q_OBJECT

    Q_PROPERTY(bool Changed READ Changed WRITE SetChanged DESIGNABLE false)
    Q_PROPERTY(int hWnd READ hWnd)
    Q_PROPERTY(bool MeasureInches READ MeasureInches WRITE SetMeasureInches)
    Q_PROPERTY(QString RTFString READ RTFString)
    Q_PROPERTY(bool Redraw READ Redraw WRITE SetRedraw DESIGNABLE false)
    Q_PROPERTY(QString TextString READ TextString)
    Q_PROPERTY(bool Toolbar READ Toolbar WRITE SetToolbar)
    Q_PROPERTY(bool Ruler READ Ruler WRITE SetRuler)
    Q_PROPERTY(bool Statusbar READ Statusbar WRITE SetStatusbar)
    Q_PROPERTY(float LeftMargin READ LeftMargin WRITE SetLeftMargin)
    Q_PROPERTY(float RightMargin READ RightMargin WRITE SetRightMargin)
    Q_PROPERTY(float TopMargin READ TopMargin WRITE SetTopMargin)
    Q_PROPERTY(float BottomMargin READ BottomMargin WRITE SetBottomMargin)
    Q_PROPERTY(QObject* RTFObj READ RTFObj)

public:
    explicit RichTextEditor(QWidget* parent = nullptr);
    /// A service that is null is Qt's.
    explicit RichTextEditor(PlatformServices services, QWidget* parent = nullptr);
    ~RichTextEditor() override;

    // IRichTextEditor
    Q_INVOKABLE void NoPrinterMsg() override;
    bool Changed() const override;
    void SetChanged(bool changed) override;
    Q_INVOKABLE void Clear() override;
    Q_INVOKABLE void CursorEnd() override;
    Q_INVOKABLE void CursorStart() override;
    int hWnd() const override;
    bool MeasureInches() const override;
    void SetMeasureInches(bool inches) override;
    Q_INVOKABLE int OpenFileText(const QString& FileName) override;
    Q_INVOKABLE QString PreviousField(const QString& Prefix, const QString& Suffix, bool RTFcode) override;
    Q_INVOKABLE void Refresh() override;
    QString RTFString() const override;
    Q_INVOKABLE void SelectText(int& start, int& finish) override;
    Q_INVOKABLE void SetFont(const QString& FontName, float FontSize) override;
    Q_INVOKABLE void SetIndents(float Left, float Right, float hanging) override;
    Q_INVOKABLE void ShowParagraphDialog() override;
    bool Redraw() const override;
    Q_INVOKABLE void Copy() override;
    Q_INVOKABLE void Cut() override;
    Q_INVOKABLE void Delete() override;
    void SetRedraw(bool redraw) override;
    Q_INVOKABLE int InsertPictureFile(const QString& FileName, const QString& FindText) override;
    Q_INVOKABLE int InsertFileRTF(const QString& FileName, const QString& FindText) override;
    Q_INVOKABLE int OpenFileRTF(const QString& FileName) override;
    Q_INVOKABLE void Paste() override;
    Q_INVOKABLE int InsertPictureObject(const quillmarker::HostPicture& Picture, const QString& FindText) override;
    Q_INVOKABLE int InsertStringHidden(const QString& txth, const QString& LF) override;
    Q_INVOKABLE int InsertStringText(const QString& txt, const QString& FindText) override;
    Q_INVOKABLE int InsertStringRTF(const QString& richtext, const QString& FindText) override;
    Q_INVOKABLE int SaveFileRTF(const QString& FileName) override;
    Q_INVOKABLE void ShowFontDialog() override;
    Q_INVOKABLE void ShowPrintPreview() override;
    Q_INVOKABLE void ShowPrintDialog() override;
    Q_INVOKABLE void ShowPageDialog() override;
    Q_INVOKABLE void ShowPrintSetupDialog() override;
    Q_INVOKABLE void ShowSearchDialog() override;
    QString TextString() const override;
    void SetToolbar(bool shown) override;
    bool Toolbar() const override;
    void SetRuler(bool shown) override;
    bool Ruler() const override;
    void SetStatusbar(bool shown) override;
    bool Statusbar() const override;
    Q_INVOKABLE void Undo() override;
    float LeftMargin() const override;
    float RightMargin() const override;
    float TopMargin() const override;
    float BottomMargin() const override;
    void SetLeftMargin(float margin) override;
    void SetRightMargin(float margin) override;
    void SetTopMargin(float margin) override;
    void SetBottomMargin(float margin) override;
    QObject* RTFObj() const override;

    /// Late binding: the dispatch id of a member (case ignored), or kUnknownDispatchId.
    Q_INVOKABLE static int GetIDsOfNames(const QString& name);
    /// Calls a member by its dispatch id. Arguments that it takes by reference are written back.
    DispatchResult Invoke(int dispatchId, MemberKind kind, QVariantList& arguments);

    // What the container does with the persisted properties.

    /// Nothing to read: the defaults stand.
    void InitProperties() {}
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The document changed. `Changed` still reads as it was before.
    void Change();
    void Click();
    void DblClick();
    /// The right mouse button was pressed in the text.
    void RClick();
    /// A button of the toolbar was clicked, after the control's own action for it.
    void ToolbarClick(const QString& KeyName);
    /// For the container: the property with this persisted key, or "Redraw", changed.
    void PropertyChanged(const QString& key);

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend class EditorState;
    std::shared_ptr<class EditorState> m_state;
};

}  // namespace quillmarker
