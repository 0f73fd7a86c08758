#include "html_alignment.h"

#include <QStringView>

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

constexpr QStringView kProperty = u"text-align";

/// The end of the tag that begins at `begin`: behind its '>', which may also stand in quotes and then is not it.
qsizetype EndOfTag(QStringView html, qsizetype begin)
{
    QChar quote;
    for (qsizetype at = begin; at < html.size(); ++at)
    {
        const QChar unit = html[at];
        if (!quote.isNull())
            quote = unit == quote ? QChar() : quote;
        else if (unit == u'"' || unit == u'\'')
            quote = unit;
        else if (unit == u'>')
            return at + 1;
    }
    return html.size();
}

/// What a tag's style says of the alignment; empty when it says nothing that is known.
QLatin1String AlignmentIn(QStringView tag)
{
    constexpr std::array kNames = {"left", "right", "center", "justify"};
    const qsizetype property = tag.indexOf(kProperty, 0, Qt::CaseInsensitive);
    if (property < 0)
        return {};
    QStringView value = tag.mid(property + kProperty.size()).trimmed();
    if (!value.startsWith(u':'))
        return {};
    value = value.mid(1).trimmed();
    const auto* found = std::ranges::find_if(
        kNames, [&](const char* name) { return value.startsWith(QLatin1String(name), Qt::CaseInsensitive); });
    return found == kNames.end() ? QLatin1String() : QLatin1String(*found);
}

}  // namespace

QString WithAlignAttributes(const QString& html)
{
    if (!html.contains(kProperty, Qt::CaseInsensitive))
        return html;
    QString result;
    result.reserve(html.size());
    const QStringView text(html);
    for (qsizetype at = 0; at < text.size();)
    {
        const qsizetype begin = text.indexOf(u'<', at);
        if (begin < 0 || begin + 1 == text.size())
            return result.append(text.mid(at));
        if (!text[begin + 1].isLetter())
        {
            result.append(text.mid(at, begin + 1 - at));
            at = begin + 1;
            continue;
        }
        const qsizetype end = EndOfTag(text, begin);
        const QStringView tag = text.mid(begin, end - begin);
        const QLatin1String alignment = AlignmentIn(tag);
        qsizetype name = 1;
        while (name < tag.size() && tag[name].isLetterOrNumber())
            ++name;
        result.append(text.mid(at, begin + name - at));
        if (!alignment.isEmpty())
            result.append(QLatin1String(" align=\"") + alignment + QLatin1Char('"'));
        result.append(tag.mid(name));
        at = end;
    }
    return result;
}

}  // namespace quillmarker
