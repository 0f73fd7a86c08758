#include "html_bounds.h"

#include <QHash>
#include <QString>

#include <algorithm>
#include <array>
#include <vector>

namespace quillmarker
{
namespace
{

/// What is never left open: nothing stands in it, or the next of its kind ends it.
constexpr std::array kFlatTags = {"br",  "img", "hr", "meta", "link", "input", "col", "base", "area",
                                  "wbr", "p",   "li", "tr",   "td",   "th",    "dt",  "dd",   "option"};

/// What holds text only, whatever it looks like.
constexpr std::array kRawTags = {"script", "style", "title", "textarea"};

template <std::size_t kSize>
bool IsOneOf(const std::array<const char*, kSize>& names, const QString& name)
{
    return std::ranges::any_of(names, [&](const char* known) { return name == QLatin1String(known); });
}

class BoundsCheck
{
public:
    explicit BoundsCheck(QStringView html) : m_html(html) {}

    bool Passes()
    {
        while (m_isWithin && (m_at = m_html.indexOf(u'<', m_at)) >= 0)
        {
            if (!m_isDoubtful && m_html.mid(m_at, 4) == u"<!--")
                SkipBehind(u"-->");
            else
                TakeTag();
        }
        if (m_isDoubtful && m_html.contains(u"colspan", Qt::CaseInsensitive))
            return false;
        // Rules are counted by their braces, wherever these stand.
        return m_isWithin && m_html.count(u'{') * m_tags <= kMaxStyleMatches;
    }

private:
    struct Table
    {
        qint64 rows = 1;
        qint64 columns = 0;
        qint64 inRow = 0;
    };

    void TakeTag();
    void SkipTag();
    void SkipBehind(QStringView what);
    void Open(const QString& name, QStringView tag);
    void Close(const QString& name);
    void OpenTablePart(const QString& name, QStringView tag);

    QStringView m_html;
    qsizetype m_at = 0;
    qint64 m_tags = 0;
    QHash<QString, int> m_open;
    int m_depth = 0;
    std::vector<Table> m_tables;
    bool m_isWithin = true;
    /// Quotes or brackets stand where they are read in more than one way: what closes may be none, and does not count.
    bool m_isDoubtful = false;
};

void BoundsCheck::SkipBehind(QStringView what)
{
    const qsizetype end = m_html.indexOf(what, m_at, Qt::CaseInsensitive);
    m_at = end < 0 ? m_html.size() : end + what.size();
}

/// To the tag's end; only a quote behind a '=' begins a value in quotes.
void BoundsCheck::SkipTag()
{
    QChar quote;
    QChar before;
    for (++m_at; m_at < m_html.size(); ++m_at)
    {
        const QChar unit = m_html[m_at];
        const bool isQuote = unit == u'"' || unit == u'\'';
        m_isDoubtful = m_isDoubtful || unit == u'<' || (quote.isNull() && isQuote && before != u'=');
        if (!quote.isNull())
            quote = unit == quote ? QChar() : quote;
        else if (isQuote)
            quote = unit;
        else if (unit == u'>')
            return;
        if (!unit.isSpace())
            before = unit;
    }
}

void BoundsCheck::TakeTag()
{
    const qsizetype begin = m_at;
    const bool closes = m_html.mid(begin, 2) == u"</";
    qsizetype end = begin + (closes ? 2 : 1);
    const qsizetype first = end;
    while (end < m_html.size() && m_html[end].isLetterOrNumber())
        ++end;
    constexpr qsizetype kLongestName = 32;
    const QString name = m_html.mid(first, std::min(end - first, kLongestName)).toString().toLower();
    if (name.isEmpty())
    {
        ++m_at;
        return;
    }
    if (!m_isDoubtful)
        SkipTag();
    if (m_isDoubtful)
        m_at = end;  // tags that look like part of this one count too
    m_isWithin = ++m_tags <= kMaxHtmlTags;
    if (closes)
        return Close(name);
    Open(name, m_html.mid(begin, m_at - begin));
    if (!m_isDoubtful && IsOneOf(kRawTags, name))
        SkipBehind(QString(QLatin1String("</") + name));
}

void BoundsCheck::Open(const QString& name, QStringView tag)
{
    OpenTablePart(name, tag);
    if (IsOneOf(kFlatTags, name) || IsOneOf(kRawTags, name))
        return;
    ++m_open[name];
    m_isWithin = m_isWithin && ++m_depth <= kMaxHtmlDepth;
}

void BoundsCheck::Close(const QString& name)
{
    if (m_isDoubtful)
        return;
    if (name == QLatin1String("table") && !m_tables.empty())
        m_tables.pop_back();
    const auto open = m_open.find(name);
    if (open == m_open.end() || *open == 0)
        return;
    --*open;
    --m_depth;
}

void BoundsCheck::OpenTablePart(const QString& name, QStringView tag)
{
    if (name == QLatin1String("table"))
        m_tables.emplace_back();
    if (m_tables.empty())
        return;
    Table& table = m_tables.back();
    if (name == QLatin1String("tr"))
    {
        ++table.rows;
        table.inRow = 0;
    }
    else if (name == QLatin1String("td") || name == QLatin1String("th"))
    {
        ++table.inRow;
        // Whatever stands behind the word is taken for its number.
        if (const qsizetype span = tag.indexOf(u"colspan", 0, Qt::CaseInsensitive); span >= 0)
        {
            qint64 columns = 0;
            for (const QChar unit : tag.mid(span))
                columns = unit.isDigit() ? std::min<qint64>(columns * 10 + unit.digitValue(), kMaxTableGrid) : columns;
            table.inRow += columns;
        }
    }
    table.columns = std::max(table.columns, table.inRow);
    m_isWithin = m_isWithin && table.rows * table.columns <= kMaxTableGrid;
}

}  // namespace

bool IsWithinBounds(QStringView html) { return BoundsCheck(html).Passes(); }

}  // namespace quillmarker
