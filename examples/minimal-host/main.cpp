#include <quillmarker/rich_text_editor.h>

#include <QApplication>
#include <QMainWindow>

#include <cstdio>

// A window with the control, and a report filled at its markers while nothing is painted. A host with a user would go on
// with QApplication::exec(); an example has none, so it prints what it filled and ends.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    auto* editor = new quillmarker::RichTextEditor(&window);
    window.setCentralWidget(editor);
    window.resize(800, 600);
    window.show();

    editor->SetRedraw(false);
    editor->InsertStringRTF(QStringLiteral(R"({\rtf1\ansi Dear {\b [NAME]}, your result is [RESULT].\par})"), {});
    editor->CursorStart();
    editor->InsertStringText(QStringLiteral("Ada"), QStringLiteral("[NAME]"));
    const int caret = editor->InsertStringText(QStringLiteral("negative"), QStringLiteral("[RESULT]"));
    editor->SetRedraw(true);
    editor->SetChanged(false);
    QApplication::processEvents();

    std::puts(qPrintable(editor->TextString().trimmed()));
    return caret >= 0 ? 0 : 1;
}
