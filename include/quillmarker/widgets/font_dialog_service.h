#pragma once

#include <quillmarker/widgets/export.h>
#include <quillmarker/widgets/log_font.h>

#include <memory>

class QWidget;

namespace quillmarker
{

/// What a font chooser is asked, and what it answers.
struct FontDialogRequest
{
    static constexpr std::uint32_t kScreenFonts = 0x1;
    static constexpr std::uint32_t kStartFromLogFont = 0x40;  // else with nothing chosen
    static constexpr std::uint32_t kEffects = 0x100;          // underline, strike-out, colour
    static constexpr std::uint32_t kScalableOnly = 0x20000;
    static constexpr std::uint32_t kUsualFlags = kScreenFonts | kStartFromLogFont | kEffects | kScalableOnly;

    LogFontImage logFont{};
    std::uint32_t flags = kUsualFlags;
    std::uint32_t rgbColors = 0;  // 0x00BBGGRR
    /// The face name of `logFont` in Unicode, as the image has question marks for what code page 1252 does not. It
    /// counts where the image's name is its own or the one that was asked; else a chooser has written the image alone,
    /// and the image counts.
    QString faceName;
    int pointSizeTenths = 0;  // an answer only: tenths of a point, 0 when no size was chosen
};

class QUILLMARKER_WIDGETS_EXPORT FontDialogService
{
public:
    FontDialogService() = default;
    virtual ~FontDialogService() = default;
    FontDialogService(const FontDialogService&) = delete;
    FontDialogService& operator=(const FontDialogService&) = delete;

    /// Returns when the user has closed the chooser. True for OK: `request` holds what was chosen. False otherwise, and
    /// `request` is as it was. The owner may be deleted meanwhile, which is no choice.
    virtual bool Choose(FontDialogRequest& request, QWidget* owner) = 0;
};

/// Offers the names of MakeQtFontFamilies(). A height of 0 opens it with no size chosen, an empty face name with no
/// family, and what the user does not choose comes back as it was asked: also a name that is not installed.
QUILLMARKER_WIDGETS_EXPORT std::unique_ptr<FontDialogService> MakeQtFontDialog();

}  // namespace quillmarker
