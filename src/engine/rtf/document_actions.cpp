#include "engine/rtf/keyword_actions.h"

namespace quillmarker
{

void BeginRow(Reader& reader, const Keyword&, const Parameter&)
{
    reader.Table().Reset();
    reader.BorderTarget() = {};
}

void AddCell(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Table().EndCell(Length(parameter.value));
}

void SetCellShade(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Table().cell.shading.hundredths = std::clamp(parameter.value, 0, 10'000);
}

void KeepInCell(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    KeepWord(reader.Table().cell.kept, keyword.name, parameter, kMaxKeptRepeated);
}

void KeepInRow(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    KeepWord(reader.Table().row.kept, keyword.name, parameter, kMaxKeptRepeated);
}

void ResetSection(Reader& reader, const Keyword&, const Parameter&)
{
    Section fresh;
    fresh.headers = reader.SectionNow().headers;
    reader.SectionNow() = fresh;
}

void SectionEnd(Reader& reader, const Keyword&, const Parameter&) { reader.EndSection(); }

void SetLandscape(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Properties().page.landscape = parameter.Or(1) != 0;
}

void SetSectionLandscape(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.SectionNow().page.landscape = parameter.Or(1) != 0;
}

void SetFacingPages(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Properties().facingPages = parameter.Or(1) != 0;
}

void SetDefaultTab(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (parameter.value > 0)
        reader.Properties().defaultTab = Length(parameter.value);
}

void SetColumns(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.SectionNow().columns = std::clamp(parameter.Or(1), 1, 64);
}

void SetTitlePage(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.SectionNow().titlePage = parameter.Or(1) != 0;
}

void SetFirstPage(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.SectionNow().firstPage = std::max(parameter.value, 0);
}

void KeepInSection(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    KeepWord(reader.SectionNow().kept, keyword.name, parameter, kMaxKeptRepeated);
}

void KeepInDocument(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    KeepWord(reader.Properties().kept, keyword.name, parameter, kMaxKeptOnce);
}

void InfoEntry(Reader& reader, const Keyword& keyword, const Parameter&)
{
    constexpr std::size_t kMaxEntries = 64;
    if (!reader.IsIn(Destination::Info) || reader.Properties().info.size() >= kMaxEntries)
        return reader.SkipGroup();
    reader.SetInfoKey(keyword.name);
    reader.Enter(Destination::InfoText);
}

/// Inside of itself it would cut what is kept of a date.
void EnterInfo(Reader& reader, const Keyword&, const Parameter&)
{
    if (!reader.OpenTime().empty())
        return reader.SkipGroup();
    reader.Enter(Destination::Info);
}

void InfoTime(Reader& reader, const Keyword& keyword, const Parameter&)
{
    if (!reader.IsIn(Destination::Info) || reader.Properties().infoKept.size() >= kMaxKeptOnce)
        return reader.SkipGroup();
    // It is kept when it ends: a word that makes another destination of its group leaves no half of it.
    if (reader.Enter(Destination::InfoTime))
        reader.OpenTime() = "{\\" + std::string(keyword.name);
}

void InfoTimePart(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    if (reader.IsIn(Destination::InfoTime))
        KeepWord(reader.OpenTime(), keyword.name, parameter, kMaxKeptOnce);
}

void InfoNumber(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Info))
        KeepWord(reader.Properties().infoKept, keyword.name, parameter, kMaxKeptOnce);
}

}  // namespace quillmarker
