#include <quillmarker/widgets/platform_services.h>

#include "help_topics.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>

namespace quillmarker
{
namespace
{

QString ToQString(std::u16string_view text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

QString Translated(const char* text) { return QCoreApplication::translate("Help", text); }

QString TitleOf(const HelpTopic* topic) { return topic ? ToQString(topic->title) : Translated("No help"); }

/// The paragraphs as paragraphs, so that they stand apart from each other.
QString TextOf(const HelpTopic* topic)
{
    const QString text = topic ? ToQString(topic->text) : Translated("There is no help on this topic.");
    QString html;
    for (const QString& paragraph : text.split(u'\n'))
        html += QStringLiteral("<p>%1</p>").arg(paragraph.toHtmlEscaped());
    return html;
}

QLabel* Heading(const QString& title, QWidget* parent)
{
    constexpr qreal kEnlargement = 1.3;
    auto* heading = new QLabel(title, parent);
    heading->setTextFormat(Qt::PlainText);
    QFont font = heading->font();
    font.setBold(true);
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * kEnlargement);
    heading->setFont(font);
    return heading;
}

/// As wide as a line of a book, and as high as the text in it, within reason.
void SizeToText(QTextBrowser& text)
{
    constexpr int kCharactersPerLine = 68;
    constexpr int kMostLines = 30;
    const QFontMetrics metrics = text.fontMetrics();
    const int width = metrics.averageCharWidth() * kCharactersPerLine;
    // Not the browser's own document, which has the width of a browser that nobody has seen yet.
    QTextDocument measured;
    measured.setDefaultFont(text.font());
    measured.setHtml(text.toHtml());
    measured.setTextWidth(width);
    const int height = std::min(static_cast<int>(measured.size().height()), metrics.lineSpacing() * kMostLines);
    const int frame = 2 * text.frameWidth();
    text.setMinimumSize(width + frame, height + frame);
}

QDialog* HelpBox(const HelpTopic* topic, QWidget* owner)
{
    auto* box = new QDialog(owner ? owner->window() : nullptr);
    box->setAttribute(Qt::WA_WindowPropagation);
    box->setObjectName(QStringLiteral("HelpBox"));
    box->setWindowTitle(Translated("Help"));

    auto* text = new QTextBrowser(box);
    text->setHtml(TextOf(topic));
    text->setAccessibleName(TitleOf(topic));
    SizeToText(*text);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, box);
    QObject::connect(buttons, &QDialogButtonBox::rejected, box, &QDialog::reject);

    auto* layout = new QVBoxLayout(box);
    layout->addWidget(Heading(TitleOf(topic), box));
    layout->addWidget(text);
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    return box;
}

class QtHelp : public HelpService
{
public:
    void ShowTopic(int context, QWidget* owner) override
    {
        // The owner may be deleted while the help is open, and the help with it.
        const QPointer<QDialog> box = HelpBox(TopicOf(context), owner);
        box->exec();
        delete box;
    }
};

}  // namespace

std::unique_ptr<HelpService> MakeQtHelp() { return std::make_unique<QtHelp>(); }

}  // namespace quillmarker
