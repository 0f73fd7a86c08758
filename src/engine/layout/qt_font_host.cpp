#include "qt_font_host.h"

#include "font_substitutes.h"
#include "symbol_face.h"

#include "engine/document/font_family.h"

#include <QFontDatabase>

namespace quillmarker
{
namespace
{

constexpr int kNormalWeight = 400;
constexpr int kBoldWeight = 700;
constexpr std::uint8_t kSymbolCharset = 2;
constexpr char32_t kBulletSign = U'\uF0B7';

int WeightOf(const FontRequest& request) { return request.bold ? kBoldWeight : kNormalWeight; }

QString ToQString(std::u16string_view text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

/// Families of one name from several makers carry the maker's name in brackets.
QString WithoutMaker(const QString& family)
{
    const qsizetype bracket = family.indexOf(u" [");
    return bracket < 0 ? family : family.first(bracket);
}

}  // namespace

std::unique_ptr<FontHost> SystemFonts() { return std::make_unique<QtFontHost>(); }

QtFontHost::QtFontHost()
    : m_fallbacks([this](const FaceIdentity& identity, char32_t character) { return FaceOf(identity).Has(character); })
{
    for (const QString& family : QFontDatabase::families())
    {
        if (!m_families.contains(WithoutMaker(family).toCaseFolded()))
            m_families.insert(WithoutMaker(family).toCaseFolded(), family);
    }
}

QtFontHost::~QtFontHost() = default;

const FontFace& QtFontHost::Face(const FontRequest& request)
{
    const RequestKey key{request.name, request.family, request.charset == kSymbolCharset, request.bold, request.italic};
    const FontFace*& face = m_requests[key];
    if (!face)
        face = &Find(request);
    return *face;
}

const FontFace& QtFontHost::Face(const FaceIdentity& identity)
{
    const QString family = Installed(identity.family);
    return FaceOf(
        {family.isEmpty() ? FamilyFor(identity.family, FontFamily::Nil) : family, identity.weight, identity.italic});
}

const FontFace& QtFontHost::Find(const FontRequest& request)
{
    const std::optional<SymbolSet> signs = SymbolSetOf(request.name);
    if (signs || request.charset == kSymbolCharset)
        return SymbolsOf(request, signs.value_or(SymbolSet::Latin));
    return FaceOf({FamilyFor(ToQString(request.name), request.family), WeightOf(request), request.italic});
}

/// The font itself if it is installed and has its signs where documents look for them; else what they look like.
const FontFace& QtFontHost::SymbolsOf(const FontRequest& request, SymbolSet set)
{
    QString family = Installed(ToQString(request.name));
    if (!family.isEmpty())
    {
        const QtFace& own = FaceOf({family, WeightOf(request), request.italic});
        if (own.Has(kBulletSign))
            return own;
    }
    else
    {
        const bool looksLikeText = set == SymbolSet::Greek || set == SymbolSet::Latin;
        family = looksLikeText ? FamilyFor({}, FontFamily::Roman) : FamilyFor(QStringLiteral("Webdings"), {});
    }
    const QtFace& shown = FaceOf({family, WeightOf(request), request.italic});
    return *m_symbolFaces.emplace_back(std::make_unique<SymbolFace>(shown, set));
}

const QtFace& QtFontHost::FaceOf(const FaceIdentity& identity)
{
    std::unique_ptr<QtFace>& face = m_faces[{identity.family, identity.weight, identity.italic}];
    if (!face)
    {
        FaceFinder& finder = *this;
        face = std::make_unique<QtFace>(identity, finder);
    }
    return *face;
}

const QtFace* QtFontHost::FallbackFor(const QtFace& face, char32_t character)
{
    const std::optional<FaceIdentity>& fallback = m_fallbacks.FaceFor(face.Identity(), character);
    return fallback ? &FaceOf(*fallback) : nullptr;
}

QString QtFontHost::Installed(const QString& family) const { return m_families.value(family.toCaseFolded()); }

QString QtFontHost::FamilyFor(const QString& name, FontFamily family) const
{
    const QString plain = PlainFontName(name);
    for (const QString& own : {name, plain})
    {
        if (QString installed = Installed(own); !installed.isEmpty())
            return installed;
    }
    const FontFamily known = FamilyOf(plain.toStdU16String());
    for (const auto& candidates :
         {FontsLike(plain), FontsOf(family == FontFamily::Nil ? known : family), FontsOf(FontFamily::Swiss)})
    {
        if (QString installed = FirstInstalled(candidates); !installed.isEmpty())
            return installed;
    }
    return m_families.isEmpty() ? QString() : QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
}

QString QtFontHost::FirstInstalled(std::span<const std::u16string_view> names) const
{
    for (const std::u16string_view name : names)
    {
        if (QString installed = Installed(ToQString(name)); !installed.isEmpty())
            return installed;
    }
    return {};
}

}  // namespace quillmarker
