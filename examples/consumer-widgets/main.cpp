#include <quillmarker/widgets/rich_text_view.h>

#include <QApplication>
#include <QPixmap>

// Shows an editor and fills it, as a program with a window does. It shows it to nobody: an example has no user.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    quillmarker::RichTextView view;
    view.resize(400, 300);
    view.SetTextRTF(QStringLiteral(R"({\rtf1\ansi Dear {\b Ada},\par})"));
    view.show();
    QApplication::processEvents();
    const bool isShown = !view.grab().isNull();
    return view.Text() == QStringLiteral("Dear Ada,") && isShown ? 0 : 1;
}
