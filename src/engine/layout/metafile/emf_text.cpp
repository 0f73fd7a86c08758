#include "emf_dib.h"
#include "emf_records.h"
#include "text.h"

#include <algorithm>
#include <array>

namespace quillmarker::metafile
{
namespace
{

enum class Coding : std::uint8_t { Bytes, Units };

QString UnitsOf(std::string_view bytes)
{
    QString text;
    ByteReader reader(bytes);
    while (reader.Left() >= 2)
        text += QChar(reader.U16());
    return text;
}

void SetText(const Player& player, TextRecord& text, std::string_view bytes, Coding coding, std::vector<qreal> steps)
{
    if (coding == Coding::Units)
    {
        text.text = UnitsOf(bytes);
        text.steps = std::move(steps);
        return;
    }
    DecodedText decoded = Decoded(player, bytes, steps);
    text.text = std::move(decoded.text);
    text.steps = std::move(decoded.steps);
}

std::vector<qreal> ReadSteps(const ByteReader& record, std::uint32_t place, std::size_t count, std::uint32_t options)
{
    const std::size_t size = (options & TextHasDownSteps) != 0 ? 8 : 4;
    std::vector<qreal> steps;
    ByteReader reader(record.All());
    reader.MoveTo(place);
    if (place == 0 || reader.HasFailed() || reader.Left() / size < count)
        return steps;
    steps.resize(count);
    std::generate(steps.begin(), steps.end(), [&] {
        const qreal step = reader.I32();
        reader.Skip(size - 4);
        return step;
    });
    return steps;
}

/// What all text records say of one string; places count from the record's start.
void DrawString(Player& player, ByteReader& record, Coding coding)
{
    TextRecord text;
    text.place = ReadPoint(record);
    const std::uint32_t count = record.U32();
    const std::uint32_t place = record.U32();
    text.options = record.U32();
    text.rectangle = ReadBox(record);
    const std::uint32_t stepPlace = record.U32();
    if (record.HasFailed() || count > record.All().size())
        return;
    const std::string_view bytes = PartOf(record, place, coding == Coding::Units ? count * 2 : count);
    if (!bytes.empty())
        SetText(player, text, bytes, coding, ReadSteps(record, stepPlace, count, text.options));
    Draw(player, text);
}

constexpr std::size_t kModeAndScales = 12;

template <Coding coding>
void ExtTextOut(Player& player, ByteReader& record)
{
    record.Skip(kBounds + kModeAndScales);
    DrawString(player, record, coding);
}

template <Coding coding>
void PolyTextOut(Player& player, ByteReader& record)
{
    constexpr std::size_t kStringSize = 40;
    record.Skip(kBounds + kModeAndScales);
    const std::uint32_t count = record.U32();
    for (std::uint32_t i = 0; i < count && record.Left() >= kStringSize; ++i)
    {
        if (!player.Surface().Budget().Spend(WorkBudget::kRecord))
            return;
        DrawString(player, record, coding);
    }
}

void SmallTextOut(Player& player, ByteReader& record)
{
    TextRecord text;
    text.place = ReadPoint(record);
    const std::size_t count = record.U32();
    text.options = record.U32();
    record.Skip(kModeAndScales);
    if ((text.options & TextHasNoRectangle) == 0)
        text.rectangle = ReadBox(record);
    const Coding coding = (text.options & TextIsBytes) != 0 ? Coding::Bytes : Coding::Units;
    const std::size_t size = coding == Coding::Units ? 2 : 1;
    if (record.HasFailed() || count > record.Left() / size)
        return;
    SetText(player, text, record.Bytes(count * size), coding, {});
    Draw(player, text);
}

constexpr std::array kRows = {
    EmfRow{83, 68, ExtTextOut<Coding::Bytes>},
    EmfRow{84, 68, ExtTextOut<Coding::Units>},
    EmfRow{96, 32, PolyTextOut<Coding::Bytes>},
    EmfRow{97, 32, PolyTextOut<Coding::Units>},
    EmfRow{108, 28, SmallTextOut},
};
static_assert(AreSorted(kRows));

}  // namespace

const EmfRow* EmfTextRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
