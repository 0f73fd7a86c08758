#include <quillmarker/pages/paged_document.h>
#include <quillmarker/rtf.h>

#include <QGuiApplication>

// Puts a document on pages and writes them as PDF, as a server does.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    quillmarker::PagedDocument pages(quillmarker::ReadRtf(R"({\rtf1\ansi Dear {\b Ada},\page Yours\par})"));
    const quillmarker::FileError error = quillmarker::WritePdf(pages, "letter.pdf");
    return error == quillmarker::FileError::None && pages.PageCount() == 2 ? 0 : 1;
}
