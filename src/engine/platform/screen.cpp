#include <quillmarker/widgets/platform_services.h>

#include <QWidget>

namespace quillmarker
{
namespace
{

constexpr double kTwipsPerInch = 1440;

/// In the pixels that widgets count, which a high-DPI screen has several dots for.
class QtScreen : public ScreenService
{
public:
    QSizeF TwipsPerPixel(const QWidget& widget) const override
    {
        return {kTwipsPerInch / widget.logicalDpiX(), kTwipsPerInch / widget.logicalDpiY()};
    }
};

}  // namespace

std::unique_ptr<ScreenService> MakeQtScreen() { return std::make_unique<QtScreen>(); }

}  // namespace quillmarker
