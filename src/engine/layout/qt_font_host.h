#pragma once

#include "fallback_fonts.h"
#include "font_host.h"
#include "qt_face.h"

#include <QHash>
#include <QString>

#include <map>
#include <memory>
#include <tuple>

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
    const QtFace& FaceOf(const FaceIdentity& identity);
    const QtFace* FallbackFor(const QtFace& face, char32_t character) override;

    /// The name under which Qt knows a family; empty when it is not installed.
    QString Installed(const QString& family) const;
    QString FamilyFor(const QString& name, FontFamily family) const;

    using RequestKey = std::tuple<std::u16string, FontFamily, bool, bool, bool>;
    using FaceKey = std::tuple<QString, int, bool>;

    QHash<QString, QString> m_families;  // case folded name -> name
    FallbackFonts m_fallbacks;
    std::map<FaceKey, std::unique_ptr<QtFace>> m_faces;
    std::map<RequestKey, const FontFace*> m_requests;
};

}  // namespace quillmarker
