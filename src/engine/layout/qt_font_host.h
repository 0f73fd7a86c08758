#pragma once

#include "fallback_fonts.h"
#include "font_host.h"
#include "qt_face.h"
#include "symbol_characters.h"

#include <QHash>
#include <QString>

#include <map>
#include <memory>
#include <span>
#include <string_view>
#include <tuple>
#include <vector>

namespace quillmarker
{

/// The fonts of the system, as Qt knows them.
class QtFontHost final : public FontHost, private FaceFinder
{
public:
    QtFontHost();
    ~QtFontHost() override;

    const FontFace& Face(const FontRequest& request) override;
    const FontFace& Face(const FaceIdentity& identity) override;

private:
    const FontFace& Find(const FontRequest& request);
    const FontFace& SymbolsOf(const FontRequest& request, SymbolSet set);
    const QtFace& FaceOf(const FaceIdentity& identity);
    const QtFace* FallbackFor(const QtFace& face, char32_t character) override;

    /// The name under which Qt knows a family; empty when it is not installed.
    QString Installed(const QString& family) const;
    QString FirstInstalled(std::span<const std::u16string_view> names) const;
    QString FamilyFor(const QString& name, FontFamily family) const;

    using RequestKey = std::tuple<std::u16string, FontFamily, bool, bool, bool>;
    using FaceKey = std::tuple<QString, int, bool>;

    QHash<QString, QString> m_families;  // case folded name -> name
    FallbackFonts m_fallbacks;
    std::map<FaceKey, std::unique_ptr<QtFace>> m_faces;
    std::vector<std::unique_ptr<FontFace>> m_symbolFaces;
    std::map<RequestKey, const FontFace*> m_requests;
};

}  // namespace quillmarker
