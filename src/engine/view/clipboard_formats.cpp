#include "clipboard_formats.h"

#include "html_reader.h"
#include "html_writer.h"
#include "picture_exchange.h"

#include "engine/document/edit.h"
#include "engine/platform/clipboard_format.h"

#include <quillmarker/rtf.h>

#include <QImage>
#include <QVariant>

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

constexpr auto kHtmlType = "text/html";
constexpr auto kTextType = "text/plain";
constexpr auto kImageType = "application/x-qt-image";

/// Files of pictures, whose bytes are taken as they are.
constexpr std::array kPictureTypes = {"image/png", "image/jpeg"};

QString Type(const char* name) { return QString::fromLatin1(name); }

TextRange All(const Document& document) { return {{0}, {document.Size()}}; }

/// The picture that the range is, if it is nothing else.
const InlinePicture* OnlyPicture(const Document& document, TextRange range)
{
    if (range.Length() != 1)
        return nullptr;
    const Location at = document.Locate(range.begin);
    const InlineObject* object = document.ParagraphAt(at.paragraph).ObjectAt(static_cast<std::uint32_t>(at.offset));
    return object ? std::get_if<InlinePicture>(object) : nullptr;
}

/// What a reader sees, for programs that know no formats: hidden text is left out, lines end as Qt's text does.
QString PlainTextOf(const Document& document)
{
    QString text;
    std::int32_t left = document.ParagraphCount();
    document.Visit(0, [&](const Paragraph& paragraph) {
        const auto isHidden = [&](CharFormatId id) { return document.FormatOf(id).hidden; };
        const std::u16string_view units = paragraph.Text();
        std::uint32_t begin = 0;
        for (const Run& run : paragraph.Runs())
        {
            if (!isHidden(run.format))
                text.append(reinterpret_cast<const QChar*>(units.data()) + begin, run.end - begin);
            begin = run.end;
        }
        const ParagraphMark& mark = paragraph.Ending();
        if (--left > 0 && !isHidden(mark.charFormat))
            text.append(QLatin1Char(mark.kind == Mark::Cell ? '\t' : '\n'));
        return true;
    });
    text.replace(QChar(kLineBreak), QLatin1Char('\n'));
    text.replace(QChar(kObjectCharacter), QLatin1Char(' '));
    return text;
}

Document Filtered(const Document& document, const CopyFilter& filter)
{
    const std::string rtf = WriteRtf(document, RtfScope::Fragment);
    RtfReading reading;
    reading.scope = RtfScope::Fragment;
    return ReadRtf(filter(std::u16string(rtf.begin(), rtf.end())), reading);
}

bool InsertRichText(TextBox& box, const QByteArray& rtf)
{
    return box.PasteRTFBytes({rtf.constData(), static_cast<std::size_t>(rtf.size())});
}

std::optional<InlinePicture> PictureFrom(const QMimeData& data)
{
    for (const char* type : kPictureTypes)
    {
        if (!data.hasFormat(Type(type)))
            continue;
        if (std::optional<InlinePicture> picture = PictureOfBytes(data.data(Type(type))))
            return picture;
    }
    return data.hasImage() ? PictureOf(qvariant_cast<QImage>(data.imageData())) : std::nullopt;
}

}  // namespace

DocumentMimeData::DocumentMimeData(Document document, TextRange range, CopyFilter filter)
    : m_document(std::move(document)), m_range(Snapped(m_document, range)), m_filter(std::move(filter))
{
}

const Document& DocumentMimeData::Fragment() const
{
    if (!m_fragment)
    {
        Document fragment = Slice(m_document, m_range);
        m_fragment = m_filter ? Filtered(fragment, m_filter) : std::move(fragment);
    }
    return *m_fragment;
}

QStringList DocumentMimeData::formats() const
{
    QStringList names;
    for (const char* name : RichTextTypes())
        names.append(Type(name));
    names.append(Type(kHtmlType));
    // A picture alone is no text: who knows no pictures would get a blank.
    names.append(Type(OnlyPicture(m_document, m_range) ? kImageType : kTextType));
    return names;
}

bool DocumentMimeData::hasFormat(const QString& mimeType) const { return formats().contains(mimeType); }

QVariant DocumentMimeData::retrieveData(const QString& mimeType, QMetaType) const
{
    if (!hasFormat(mimeType))
        return {};
    if (mimeType == Type(kTextType))
        return PlainTextOf(Fragment());
    if (mimeType == Type(kHtmlType))
    {
        // Without a filter the lists are numbered as they are in the whole.
        const std::string html = m_filter ? WriteHtml(Fragment(), All(Fragment())) : WriteHtml(m_document, m_range);
        return QString::fromStdString(html);
    }
    if (mimeType == Type(kImageType))
    {
        const InlinePicture* picture = OnlyPicture(Fragment(), All(Fragment()));
        return picture ? QVariant(ImageOf(*picture)) : QVariant();
    }
    return QByteArray::fromStdString(WriteRtf(Fragment(), RtfScope::Fragment));
}

std::unique_ptr<QMimeData> MimeDataOfSelection(const TextBox& box, const CopyFilter& filter)
{
    if (box.SelLength() == 0)
        return nullptr;
    const Position begin{box.SelStart()};
    return std::make_unique<DocumentMimeData>(box.Value(), TextRange{begin, begin + box.SelLength()}, filter);
}

bool CanInsertMimeData(const QMimeData& data)
{
    return Offers(data, kClipboardRichText) || Offers(data, kClipboardBitmap) || data.hasFormat(Type(kHtmlType)) ||
           Offers(data, kClipboardText);
}

bool InsertMimeData(TextBox& box, const QMimeData& data)
{
    if (const QByteArray rtf = RichTextOf(data); IsRtf({rtf.constData(), static_cast<std::size_t>(rtf.size())}))
        return InsertRichText(box, rtf);
    if (std::optional<InlinePicture> picture = PictureFrom(data))
        return box.PasteObject(std::move(*picture));
    if (data.hasFormat(Type(kHtmlType)))
    {
        if (const std::optional<Document> fragment = ReadHtml(data.html(), box.ReadingHere()))
            return box.PasteFragment(*fragment);
    }
    if (!data.hasFormat(Type(kTextType)))
        return false;
    const QString text = data.text();
    return !text.isEmpty() &&
           box.PasteText({reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())});
}

}  // namespace quillmarker
