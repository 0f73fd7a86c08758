#include <quillmarker/report.h>

// Fills a marker and reads the report back, as a host without a window does.
int main()
{
    quillmarker::Report report;
    report.Box().SetTextRTF(uR"({\rtf1\ansi{\fonttbl{\f0 Arial;}}\f0\fs20 Dear \b [name]\b0 ,\par})");
    const int caret = report.InsertStringText(u"Ada", u"[NAME]");
    const bool isFilled = report.TextString() == u"Dear Ada,";
    return caret == 8 && isFilled && report.Changed() ? 0 : 1;
}
