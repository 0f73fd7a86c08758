#include "emf_records.h"
#include "play.h"
#include "target_frame.h"

#include <array>

namespace quillmarker::metafile
{
namespace
{

constexpr std::uint32_t kEnd = 14;
constexpr std::uint32_t kComment = 70;
constexpr std::size_t kRecordHead = 8;
constexpr std::uint32_t kLaterFormat = 0x2B464D45;  // "EMF+"

const EmfRow* RowOf(std::uint32_t number)
{
    for (const auto& find :
         {EmfStateRow, EmfObjectRow, EmfPathRow, EmfShapeRow, EmfPolyRow, EmfBitmapRow, EmfRegionRow, EmfTextRow})
    {
        if (const EmfRow* const row = find(number))
            return row;
    }
    return nullptr;
}

bool IsOfLaterFormat(std::string_view record)
{
    ByteReader reader(record);
    reader.Skip(kRecordHead + 4);
    return reader.U32() == kLaterFormat;
}

QTransform DeviceToTarget(const EmfHeader& header, const QRectF& target)
{
    const qreal across = target.width() / header.frame.width();
    const qreal down = target.height() / header.frame.height();
    return {across, 0, 0, down, target.x() - header.frame.x() * across, target.y() - header.frame.y() * down};
}

void PlayRecord(Player& player, std::uint32_t number, std::string_view record)
{
    const EmfRow* const row = RowOf(number);
    if (!row || record.size() < kRecordHead + row->leastSize)
        return;
    ByteReader reader(record);
    reader.MoveTo(kRecordHead);
    row->play(player, reader);
}

}  // namespace

EmfOutcome PlayEmf(Canvas& canvas, std::string_view bytes, const EmfHeader& header)
{
    const QTransform toTarget = DeviceToTarget(header, canvas.Target());
    Player player(canvas, toTarget, header.pixelsInMillimetre, ScaleOf(toTarget));
    bool hasLaterFormat = false;
    for (std::size_t place = header.size; bytes.size() - place >= kRecordHead;)
    {
        ByteReader head(bytes.substr(place, kRecordHead));
        const std::uint32_t number = head.U32();
        const std::size_t size = head.U32();
        if (number == kEnd || size < kRecordHead || size > bytes.size() - place ||
            !canvas.Budget().Spend(WorkBudget::kRecord))
            break;
        const std::string_view record = bytes.substr(place, size);
        hasLaterFormat = hasLaterFormat || (number == kComment && IsOfLaterFormat(record));
        PlayRecord(player, number, record);
        place += size;
    }
    canvas.Flush();
    return hasLaterFormat && !canvas.HasPainted() ? EmfOutcome::OnlyUnknownComments : EmfOutcome::Played;
}

}  // namespace quillmarker::metafile
