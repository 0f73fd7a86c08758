// Plays anything as a metafile. It must end, in bounds, with a painter that is as it was.

#include "engine/layout/metafile/metafile.h"
#include "require.h"

#include <QGuiApplication>
#include <QImage>

#include <array>
#include <cstdint>
#include <cstdlib>

using namespace quillmarker;

namespace
{

/// Text needs fonts, and fonts an application, but no display.
void StartApplication()
{
    static int count = 1;
    static std::array<char, 5> name = {'f', 'u', 'z', 'z', '\0'};
    static std::array<char*, 2> arguments = {name.data(), nullptr};
    static const bool isOffscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never ended: there is no place for that in a fuzzer.
    static const auto* const application = new QGuiApplication(count, arguments.data());
    Require(isOffscreen && application != nullptr, "an application is there");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    StartApplication();
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const MetafileSize natural = SizeOfMetafile(bytes);
    Require(!natural.isKnown || (natural.twips.width() > 0 && natural.twips.height() > 0), "a size is a size");

    QImage image(48, 48, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 0, 40, 48));
    const QTransform before = painter.transform();
    PlayMetafile(painter, QRectF(4, 4, 40, 40), bytes, {.mapping = 8, .width = 1000, .height = 1000});
    Require(painter.transform() == before && painter.clipBoundingRect() == QRectF(0, 0, 40, 48),
            "the painter is as it was");
    painter.end();
    for (int i = 0; i < 48; ++i)
    {
        Require(image.pixelColor(i, 2) == QColor(Qt::white) && image.pixelColor(42, i) == QColor(Qt::white),
                "nothing is painted outside of the target and the clip");
    }
    return 0;
}
