#pragma once

#include <quillmarker/widgets/rich_text_editor.h>

#include <QObject>

#include <string>

namespace quillmarker
{

/// An editor that only notes what is called, as `Name(argument, argument)`, and returns a value that tells the member.
class RecordingEditor : public IRichTextEditor
{
public:
    mutable std::string called;
    bool isThrowing = false;
    QObject text;

    void NoPrinterMsg() override { Note("NoPrinterMsg"); }
    bool Changed() const override { return Noted("Changed", true); }
    void SetChanged(bool changed) override { Note("SetChanged", changed); }
    void Clear() override { Note("Clear"); }
    void CursorEnd() override { Note("CursorEnd"); }
    void CursorStart() override { Note("CursorStart"); }
    int hWnd() const override { return Noted("hWnd", 7); }
    bool MeasureInches() const override { return Noted("MeasureInches", true); }
    void SetMeasureInches(bool inches) override { Note("SetMeasureInches", inches); }
    int OpenFileText(const QString& FileName) override { return Noted("OpenFileText", 10, FileName); }
    QString PreviousField(const QString& Prefix, const QString& Suffix, bool RTFcode) override
    {
        return Noted("PreviousField", QStringLiteral("field"), Prefix, Suffix, RTFcode);
    }
    void Refresh() override { Note("Refresh"); }
    QString RTFString() const override { return Noted("RTFString", QStringLiteral("rtf")); }
    void SelectText(int& start, int& finish) override
    {
        Note("SelectText", start, finish);
        start = 101;
        finish = 202;
    }
    void SetFont(const QString& FontName, float FontSize) override { Note("SetFont", FontName, FontSize); }
    void SetIndents(float Left, float Right, float hanging) override { Note("SetIndents", Left, Right, hanging); }
    void ShowParagraphDialog() override { Note("ShowParagraphDialog"); }
    bool Redraw() const override { return Noted("Redraw", true); }
    void Copy() override { Note("Copy"); }
    void Cut() override { Note("Cut"); }
    void Delete() override { Note("Delete"); }
    void SetRedraw(bool redraw) override { Note("SetRedraw", redraw); }
    int InsertPictureFile(const QString& FileName, const QString& FindText) override
    {
        return Noted("InsertPictureFile", 23, FileName, FindText);
    }
    int InsertFileRTF(const QString& FileName, const QString& FindText) override
    {
        return Noted("InsertFileRTF", 24, FileName, FindText);
    }
    int OpenFileRTF(const QString& FileName) override { return Noted("OpenFileRTF", 25, FileName); }
    void Paste() override { Note("Paste"); }
    int InsertPictureObject(const Picture& Picture, const QString& FindText) override
    {
        return Noted("InsertPictureObject", 27, Picture, FindText);
    }
    int InsertStringHidden(const QString& txth, const QString& LF) override
    {
        return Noted("InsertStringHidden", 28, txth, LF);
    }
    int InsertStringText(const QString& txt, const QString& FindText) override
    {
        return Noted("InsertStringText", 29, txt, FindText);
    }
    int InsertStringRTF(const QString& richtext, const QString& FindText) override
    {
        return Noted("InsertStringRTF", 30, richtext, FindText);
    }
    int SaveFileRTF(const QString& FileName) override { return Noted("SaveFileRTF", 31, FileName); }
    void ShowFontDialog() override { Note("ShowFontDialog"); }
    void ShowPrintPreview() override { Note("ShowPrintPreview"); }
    void ShowPrintDialog() override { Note("ShowPrintDialog"); }
    void ShowPageDialog() override { Note("ShowPageDialog"); }
    void ShowPrintSetupDialog() override { Note("ShowPrintSetupDialog"); }
    void ShowSearchDialog() override { Note("ShowSearchDialog"); }
    QString TextString() const override { return Noted("TextString", QStringLiteral("text")); }
    void SetToolbar(bool shown) override { Note("SetToolbar", shown); }
    bool Toolbar() const override { return Noted("Toolbar", true); }
    void SetRuler(bool shown) override { Note("SetRuler", shown); }
    bool Ruler() const override { return Noted("Ruler", true); }
    void SetStatusbar(bool shown) override { Note("SetStatusbar", shown); }
    bool Statusbar() const override { return Noted("Statusbar", true); }
    void Undo() override { Note("Undo"); }
    float LeftMargin() const override { return Noted("LeftMargin", 0.25F); }
    float RightMargin() const override { return Noted("RightMargin", 0.5F); }
    float TopMargin() const override { return Noted("TopMargin", 0.75F); }
    float BottomMargin() const override { return Noted("BottomMargin", 1.25F); }
    void SetLeftMargin(float margin) override { Note("SetLeftMargin", margin); }
    void SetRightMargin(float margin) override { Note("SetRightMargin", margin); }
    void SetTopMargin(float margin) override { Note("SetTopMargin", margin); }
    void SetBottomMargin(float margin) override { Note("SetBottomMargin", margin); }
    QObject* RTFObj() const override { return Noted("RTFObj", const_cast<QObject*>(&text)); }

private:
    static std::string Shown(bool value) { return value ? "true" : "false"; }
    static std::string Shown(int value) { return std::to_string(value); }
    static std::string Shown(float value) { return QString::number(double{value}).toStdString() + "f"; }
    static std::string Shown(const QString& value) { return "'" + value.toStdString() + "'"; }
    static std::string Shown(const Picture& value)
    {
        const QSize size = value.Image().size();
        return std::to_string(size.width()) + "x" + std::to_string(size.height());
    }

    template <class... Arguments>
    void Note(const char* name, const Arguments&... arguments) const
    {
        std::string list;
        ((list += (list.empty() ? "" : ", ") + Shown(arguments)), ...);
        called += std::string(called.empty() ? "" : " ") + name + "(" + list + ")";
        if (isThrowing)
            throw 1;
    }

    template <class Result, class... Arguments>
    Result Noted(const char* name, Result result, const Arguments&... arguments) const
    {
        Note(name, arguments...);
        return result;
    }
};

}  // namespace quillmarker
