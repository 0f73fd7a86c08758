#include "metafile.h"

#include "canvas.h"
#include "embedded_emf.h"
#include "header.h"
#include "play.h"
#include "target_frame.h"

#include <cmath>

namespace quillmarker
{
namespace
{

using metafile::EmfHeader;
using metafile::EmfOutcome;
using metafile::WmfHeader;

MetafileSize Known(QSizeF size, qreal unitsInInch)
{
    const QSizeF twips = QSizeF(std::abs(size.width()), std::abs(size.height())) * metafile::kTwipsInInch / unitsInInch;
    if (twips.isEmpty())
        return {};
    return {.twips = twips, .isKnown = true};
}

bool IsBearable(const QRectF& target)
{
    return metafile::Bearable(target.topLeft()) == target.topLeft() &&
           metafile::Bearable(target.bottomRight()) == target.bottomRight();
}

}  // namespace

MetafileSize SizeOfMetafile(std::string_view bytes)
{
    if (const std::optional<EmfHeader> header = metafile::ReadEmfHeader(bytes))
        return Known(header->hundredths, metafile::kHundredthsInInch);
    if (const std::optional<WmfHeader> header = metafile::ReadWmfHeader(bytes); header && header->IsPlaceable())
        return Known(header->box.size(), header->inch);
    return {};
}

bool PlayMetafile(QPainter& painter, const QRectF& target, std::string_view bytes, const MetafileHint& hint)
{
    const std::optional<EmfHeader> emf = metafile::ReadEmfHeader(bytes);
    const std::optional<WmfHeader> wmf = emf ? std::nullopt : metafile::ReadWmfHeader(bytes);
    if (!emf && !wmf)
        return false;
    // Into nothing nothing is painted.
    if (!IsBearable(target) || target.isEmpty())
        return true;
    metafile::Canvas canvas(painter, target);
    if (emf)
        return metafile::PlayEmf(canvas, bytes, *emf) == EmfOutcome::Played;
    const std::optional<std::string> source = metafile::EmbeddedEmf(bytes, *wmf);
    const std::optional<EmfHeader> sourceHeader = source ? metafile::ReadEmfHeader(*source) : std::nullopt;
    if (!sourceHeader || metafile::PlayEmf(canvas, *source, *sourceHeader) == EmfOutcome::OnlyUnknownComments)
        metafile::PlayWmf(canvas, bytes, *wmf, hint);
    return true;
}

}  // namespace quillmarker
