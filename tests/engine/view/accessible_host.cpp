#include <quillmarker/widgets/rich_text_view.h>

#include <QApplication>

// A window with a view in it, for a screen reader to look at.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("accessible_host"));
    quillmarker::RichTextView view;
    view.setAccessibleName(QStringLiteral("Report"));
    view.SetTextRTF(QStringLiteral("{\\rtf1{\\fonttbl{\\f0 Liberation Sans;}}\\f0\\fs24 First line here\\par "
                                   "second {\\b bold} words\\par\\qc third\\par}"));
    view.resize(600, 200);
    view.show();
    view.activateWindow();
    view.setFocus();
    return QApplication::exec();
}
