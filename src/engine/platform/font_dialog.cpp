#include <quillmarker/widgets/font_dialog_service.h>

#include "font_form_widget.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

constexpr int kPointsPerInch = 72;
constexpr int kTenths = 10;
constexpr qreal kUsualDots = 96;

qreal DotsOf(const QWidget* owner)
{
    if (owner)
        return owner->logicalDpiY();
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchY() : kUsualDots;
}

int PixelsOf(int tenths, qreal dots)
{
    return static_cast<int>(std::lround(tenths * dots / (kPointsPerInch * kTenths)));
}

/// Pixels are coarser than points: a height that whole points come to means these.
int TenthsOf(int pixels, qreal dots)
{
    const qreal points = pixels * kPointsPerInch / dots;
    const int whole = static_cast<int>(std::lround(points)) * kTenths;
    return PixelsOf(whole, dots) == pixels ? whole : static_cast<int>(std::lround(points * kTenths));
}

/// On the way in it may be a bold flag: 0 or -1.
int WeightOf(int asked)
{
    constexpr int kHeaviest = 1000;
    if (asked > 0)
        return std::min(asked, kHeaviest);
    return asked == -1 ? QFont::Bold : QFont::Normal;
}

QRgb FromBlueGreenRed(std::uint32_t color) { return qRgb(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF); }

std::uint32_t ToBlueGreenRed(QRgb color)
{
    return static_cast<std::uint32_t>(qRed(color) | qGreen(color) << 8 | qBlue(color) << 16);
}

FontPick Asked(const FontDialogRequest& request, qreal dots)
{
    const LogFontImage& image = request.logFont;
    if ((request.flags & FontDialogRequest::kStartFromLogFont) == 0)
        return {.color = FromBlueGreenRed(request.rgbColors)};
    // Farther than any screen is high, it is no height.
    constexpr int kHighest = 1 << 20;
    const int height = std::clamp(LogFontNumber(image, LogFontField::Height), -kHighest, kHighest);
    return {
        .family = request.faceName,
        .weight = WeightOf(LogFontNumber(image, LogFontField::Weight)),
        .isItalic = LogFontNumber(image, LogFontField::Italic) != 0,
        .isUnderlined = LogFontNumber(image, LogFontField::Underline) != 0,
        .isStruckOut = LogFontNumber(image, LogFontField::StrikeOut) != 0,
        .sizeTenths = TenthsOf(std::abs(height), dots),
        .color = FromBlueGreenRed(request.rgbColors),
        .charset = LogFontNumber(image, LogFontField::CharSet),
    };
}

void Write(FontDialogRequest& request, const FontPick& picked, qreal dots)
{
    LogFontImage& image = request.logFont;
    SetLogFontNumber(image, LogFontField::Height, -PixelsOf(picked.sizeTenths, dots));
    SetLogFontNumber(image, LogFontField::Weight, picked.weight);
    SetLogFontNumber(image, LogFontField::Italic, picked.isItalic ? 1 : 0);
    SetLogFontNumber(image, LogFontField::Underline, picked.isUnderlined ? 1 : 0);
    SetLogFontNumber(image, LogFontField::StrikeOut, picked.isStruckOut ? 1 : 0);
    SetLogFontNumber(image, LogFontField::CharSet, picked.charset);
    SetLogFontFaceName(image, picked.family);
    request.faceName = picked.family;
    request.rgbColors = ToBlueGreenRed(picked.color);
    request.pointSizeTenths = picked.sizeTenths;
}

class QtFontDialog : public FontDialogService
{
public:
    bool Choose(FontDialogRequest& request, QWidget* owner) override
    {
        const qreal dots = DotsOf(owner);
        const bool isScalableOnly = (request.flags & FontDialogRequest::kScalableOnly) != 0;
        // The owner may be deleted while the dialog is open, and the dialog with it.
        const QPointer<FontForm> form =
            new FontForm(Asked(request, dots), isScalableOnly ? FontKind::Scalable : FontKind::Every,
                         owner ? owner->window() : nullptr);
        if ((request.flags & FontDialogRequest::kEffects) == 0)
            form->HideEffects();
        const bool isChosen = form->exec() == QDialog::Accepted && form;
        if (isChosen)
            Write(request, form->Picked(), dots);
        delete form;
        return isChosen;
    }
};

}  // namespace

std::unique_ptr<FontDialogService> MakeQtFontDialog() { return std::make_unique<QtFontDialog>(); }

}  // namespace quillmarker
