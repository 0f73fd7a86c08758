#include "qt_face.h"

#include "qt_shaper.h"
#include "simple_characters.h"
#include "text_assembly.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <QFontDatabase>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <string>

namespace quillmarker
{
namespace
{

constexpr std::size_t kLongestPiece = 1000;  // of what is shaped at once, in units
constexpr std::size_t kMostSizes = 64;
constexpr std::int32_t kUnknownUnitsPerEm = 1000;
constexpr int kBoldWeight = 600;
constexpr std::int32_t kEmsToThickening = 24;

std::int32_t Rounded(qreal value) { return static_cast<std::int32_t>(std::lround(value)); }

/// A mark, a joiner or half a pair: what does not begin a cluster.
bool ContinuesCluster(char16_t unit)
{
    return U16_IS_TRAIL(unit) || (U_MASK(u_charType(unit)) & (U_GC_M_MASK | U_GC_CF_MASK)) ||
           u_getIntPropertyValue(unit, UCHAR_GRAPHEME_CLUSTER_BREAK) == U_GCB_EXTEND;
}

/// Whether shaping the two sides of a place apart gives what shaping them together gives.
bool MayCut(char16_t before, char16_t after, bool simpleApart)
{
    if (after == u' ')
        return true;
    if (before == u' ')
        return !ContinuesCluster(after);
    return simpleApart && IsSimpleCharacter(before) && IsSimpleCharacter(after);
}

std::size_t PieceEnd(std::u16string_view text, std::size_t begin, bool simpleApart)
{
    std::size_t end = begin + 1;
    while (end < text.size() && !MayCut(text[end - 1], text[end], simpleApart))
    {
        if (++end - begin >= kLongestPiece && end < text.size() && !ContinuesCluster(text[end]))
            break;
        if (end - begin >= 2 * kLongestPiece)
            break;
    }
    return end;
}

/// The strikeout's middle in the table that states it (OS/2), else halfway up the small letters.
std::int32_t StrikeoutPosition(const QRawFont& raw)
{
    constexpr qsizetype kSizeAt = 26;
    constexpr qsizetype kPositionAt = 28;
    const QByteArray table = raw.fontTable("OS/2");
    if (table.size() < kPositionAt + 2)
        return Rounded(raw.xHeight() / 2);
    const auto size = qFromBigEndian<qint16>(table.constData() + kSizeAt);
    const auto position = qFromBigEndian<qint16>(table.constData() + kPositionAt);
    return position - size / 2;
}

/// The middle of the underline. The table that states it (post) gives its top; where there is none, Qt its middle.
std::int32_t UnderlinePosition(const QRawFont& raw)
{
    constexpr qsizetype kPositionAt = 8;
    constexpr qsizetype kThicknessAt = 10;
    const QByteArray table = raw.fontTable("post");
    if (table.size() < kThicknessAt + 2)
        return Rounded(raw.underlinePosition());
    const auto position = qFromBigEndian<qint16>(table.constData() + kPositionAt);
    const auto thickness = qFromBigEndian<qint16>(table.constData() + kThicknessAt);
    return thickness / 2 - position;
}

FaceMetrics MetricsOf(const QRawFont& raw, std::int32_t unitsPerEm)
{
    return {.unitsPerEm = unitsPerEm,
            .ascent = Rounded(raw.ascent()),
            .descent = Rounded(raw.descent()),
            .lineGap = std::max(0, Rounded(raw.leading())),
            .underlinePosition = UnderlinePosition(raw),
            .underlineThickness = std::max(1, Rounded(raw.lineThickness())),
            .strikeoutPosition = StrikeoutPosition(raw)};
}

bool HasBold(const QString& family)
{
    return std::ranges::any_of(QFontDatabase::styles(family), [&](const QString& style) {
        return QFontDatabase::weight(family, style) >= kBoldWeight;
    });
}

std::u16string Shown(std::u16string_view text)
{
    std::u16string shown(text);
    std::erase_if(shown, IsSilentCharacter);
    return shown;
}

/// Gives the silent characters of `text`, which were left out, their advance of nothing.
void InsertSilent(std::u16string_view text, std::vector<std::int32_t>& advances)
{
    std::vector<std::int32_t> all(text.size(), 0);
    auto next = advances.begin();
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (!IsSilentCharacter(text[i]))
            all[i] = *next++;
    }
    advances = std::move(all);
}

}  // namespace

QtFace::QtFace(FaceIdentity identity, FaceFinder& finder)
    : m_identity(std::move(identity)), m_drawn(m_identity), m_finder(finder)
{
    // Qt thickens small glyphs only, and forgets it when a font gets another size.
    const bool isThickened = m_identity.weight >= kBoldWeight && !HasBold(m_identity.family);
    if (isThickened)
        m_drawn.weight = QFont::Normal;
    const auto unitsPerEm = Rounded(QRawFont::fromFont(MeasuringFont(m_drawn, kUnknownUnitsPerEm)).unitsPerEm());
    const std::int32_t pixelSize = unitsPerEm > 0 ? unitsPerEm : kUnknownUnitsPerEm;
    m_raw = QRawFont::fromFont(MeasuringFont(m_drawn, pixelSize));
    FaceMetrics metrics = MetricsOf(m_raw, pixelSize);
    metrics.thickening = isThickened ? pixelSize / kEmsToThickening : 0;
    SetMetrics(metrics);
}

QRawFont QtFace::RawFont(qreal pixelSize) const
{
    if (const auto found = m_sizes.find(pixelSize); found != m_sizes.end())
        return found->second;
    if (m_sizes.size() >= kMostSizes)
        m_sizes.clear();
    QRawFont raw = m_raw;
    raw.setPixelSize(pixelSize);
    return m_sizes.emplace(pixelSize, raw).first->second;
}

bool QtFace::Has(char32_t character) const
{
    return u_hasBinaryProperty(static_cast<UChar32>(character), UCHAR_DEFAULT_IGNORABLE_CODE_POINT) ||
           m_raw.supportsCharacter(character);
}

void QtFace::FillPage(char16_t first, GlyphPage& page) const
{
    QList<quint32> glyphs;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < page.size(); ++i)
    {
        const auto unit = static_cast<char16_t>(first + i);
        if (!IsSimpleCharacter(unit) || !m_raw.supportsCharacter(QChar(unit)))
            continue;
        const QList<quint32> glyph = m_raw.glyphIndexesForString(QString(QChar(unit)));
        if (glyph.size() != 1 || glyph[0] == 0)
            continue;
        glyphs.push_back(glyph[0]);
        places.push_back(i);
    }
    const QList<QPointF> advances = m_raw.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics);
    for (qsizetype i = 0; i < advances.size(); ++i)
        page[places[static_cast<std::size_t>(i)]] = {glyphs[i], Rounded(advances[i].x() * kAdvancesPerUnit), true};
}

ShapedText QtFace::Shape(std::u16string_view text, TextDirection direction, Kerning kerning) const
{
    if (std::ranges::none_of(text, IsSilentCharacter))
        return ShapeShown(text, direction, kerning);
    ShapedText shaped = ShapeShown(Shown(text), direction, kerning);
    InsertSilent(text, shaped.advances);
    return shaped;
}

ShapedText QtFace::ShapeShown(std::u16string_view text, TextDirection direction, Kerning kerning) const
{
    const bool simpleApart = direction == TextDirection::LeftToRight && kerning == Kerning::Off;
    TextAssembly assembly(text.size(), direction);
    for (std::size_t begin = 0; begin < text.size();)
    {
        const std::size_t end = PieceEnd(text, begin, simpleApart);
        const std::u16string_view piece = text.substr(begin, end - begin);
        begin = end;
        if (const SimpleGlyph simple = Simple(piece[0]); simpleApart && piece.size() == 1 && simple.isSimple)
        {
            assembly.AddSimple(*this, simple);
            continue;
        }
        if (piece.size() > ShapedWords::kLongestWord)
        {
            assembly.Add(ShapeWord(piece, direction, kerning));
            continue;
        }
        const std::u16string key = ShapedWords::KeyOf(piece, direction, kerning);
        const ShapedText* kept = m_words.Find(key);
        assembly.Add(kept ? *kept : m_words.Keep(key, ShapeWord(piece, direction, kerning)));
    }
    return std::move(assembly).Finish();
}

ShapedText QtFace::ShapeWord(std::u16string_view word, TextDirection direction, Kerning kerning) const
{
    TextAssembly assembly(word.size(), direction);
    for (const Stretch& stretch : StretchesOf(word))
        assembly.Add(
            ShapeStretch(word.substr(stretch.begin, stretch.end - stretch.begin), *stretch.face, direction, kerning));
    return std::move(assembly).Finish();
}

ShapedText QtFace::ShapeStretch(std::u16string_view text, const QtFace& face, TextDirection direction,
                                Kerning kerning) const
{
    ShapedPiece piece = ShapeWithQt(FontOf(face), text, direction, kerning);
    ShapedText shaped;
    shaped.advances = std::move(piece.advances);
    for (const std::int32_t advance : shaped.advances)
        shaped.width += advance;
    for (const PlacedGlyph& glyph : piece.glyphs)
        shaped.glyphs.push_back({&face, glyph.glyph, glyph.x, glyph.y});
    if (&face != this)
    {
        const FaceMetrics& metrics = face.Metrics();
        const qreal scale = qreal(Metrics().unitsPerEm) / metrics.unitsPerEm;
        shaped.fallbackAscent = Rounded(metrics.ascent * scale);
        shaped.fallbackDescent = Rounded(metrics.descent * scale);
    }
    return shaped;
}

/// The word cut where its faces change. A word in a script with rules of its own stays in one face if there is one that
/// has all of it, since its letters may join.
std::vector<QtFace::Stretch> QtFace::StretchesOf(std::u16string_view word) const
{
    if (!IsPlainText(word))
    {
        if (const QtFace* face = FaceForAll(word))
            return {{face, 0, word.size()}};
    }
    std::vector<Stretch> stretches;
    for (std::size_t begin = 0; begin < word.size();)
    {
        std::size_t end = begin + 1;
        while (end < word.size() && ContinuesCluster(word[end]))
            ++end;
        const std::u16string_view cluster = word.substr(begin, end - begin);
        const QtFace& face = FaceOr(FaceForAll(cluster));
        if (!stretches.empty() && stretches.back().face == &face)
            stretches.back().end = end;
        else
            stretches.push_back({&face, begin, end});
        begin = end;
    }
    return stretches;
}

/// This face, or the fallback that has all of `text`; null when there is none.
const QtFace* QtFace::FaceForAll(std::u16string_view text) const
{
    const auto hasAll = [&](const QtFace& face) {
        for (std::size_t at = 0; at < text.size();)
        {
            UChar32 character = 0;
            U16_NEXT(text.data(), at, text.size(), character);
            if (!face.Has(static_cast<char32_t>(character)))
                return false;
        }
        return true;
    };
    if (hasAll(*this))
        return this;
    for (std::size_t at = 0; at < text.size();)
    {
        UChar32 character = 0;
        U16_NEXT(text.data(), at, text.size(), character);
        if (Has(static_cast<char32_t>(character)))
            continue;
        const QtFace* fallback = m_finder.FallbackFor(*this, static_cast<char32_t>(character));
        if (fallback && hasAll(*fallback))
            return fallback;
    }
    return nullptr;
}

const QFont& QtFace::FontOf(const QtFace& face) const
{
    const auto found = m_fonts.find(&face);
    return found != m_fonts.end()
               ? found->second
               : m_fonts.emplace(&face, MeasuringFont(face.m_drawn, Metrics().unitsPerEm)).first->second;
}

}  // namespace quillmarker
