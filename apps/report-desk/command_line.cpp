#include "command_line.h"

#include <QCommandLineParser>

#include <optional>

namespace quillmarker::desk
{
namespace
{

/// "1280x900"; nothing when it is no size of a window.
std::optional<QSize> SizeOf(const QString& text)
{
    constexpr int kLargest = 16'384;
    const QStringList sides = text.split(QLatin1Char('x'));
    if (sides.size() != 2)
        return std::nullopt;
    const QSize size(sides[0].toInt(), sides[1].toInt());
    const bool isPossible =
        size.width() > 0 && size.height() > 0 && size.width() <= kLargest && size.height() <= kLargest;
    return isPossible ? std::optional(size) : std::nullopt;
}

}  // namespace

CommandLine ParseCommandLine(const QStringList& arguments)
{
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption version(QStringList{QStringLiteral("v"), QStringLiteral("version")});
    const QCommandLineOption screenshot(QStringLiteral("screenshot"), {}, QStringLiteral("FILE"));
    const QCommandLineOption size(QStringLiteral("size"), {}, QStringLiteral("WxH"));
    QCommandLineParser parser;
    parser.addOptions({help, version, screenshot, size});

    CommandLine result;
    if (!parser.parse(arguments))
    {
        result.error = parser.errorText();
        return result;
    }
    result.wantsHelp = parser.isSet(help);
    result.wantsVersion = parser.isSet(version);
    result.screenshot = parser.value(screenshot);
    if (parser.isSet(screenshot) && result.screenshot.isEmpty())
        result.error = QStringLiteral("--screenshot needs the name of a file.");
    if (const auto wanted = SizeOf(parser.value(size)))
        result.size = *wanted;
    else if (parser.isSet(size))
        result.error = QStringLiteral("--size needs a width and a height, as in 1280x900.");
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1)
        result.error = QStringLiteral("Only one file can be opened.");
    result.file = files.value(0);
    return result;
}

QString HelpText()
{
    return QStringLiteral(R"(Usage: report-desk [OPTION...] [FILE]
Edits a rich-text or text file; without one, a sample report.

  --screenshot FILE  write what the window looks like to FILE, a PNG image,
                     without a display, and end
  --size WxH         size of that window, 1280x900 unless given
  -h, --help         print this
  -v, --version      print the version
)");
}

}  // namespace quillmarker::desk
