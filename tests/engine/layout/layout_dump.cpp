#include "layout_dump.h"

#include <cstdio>
#include <iterator>
#include <type_traits>

namespace quillmarker
{
namespace
{

std::string Number(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", value);
    return text;
}

std::string Number(Fine value) { return Number(InTwips(value)); }

const char* NameOf(LineEnd ending)
{
    constexpr const char* kNames[] = {"wrapped", "break", "page", "column", "mark"};
    return kNames[static_cast<std::size_t>(ending)];
}

std::string Ascii(std::u16string_view text)
{
    std::string out;
    for (const char16_t unit : text)
    {
        if (unit >= u' ' && unit < 0x7F)
        {
            out += static_cast<char>(unit);
            continue;
        }
        char code[8];
        std::snprintf(code, sizeof code, "<%04X>", static_cast<unsigned>(unit));
        out += code;
    }
    return out;
}

std::string At(QPointF point) { return Number(point.x()) + "," + Number(point.y()); }

std::string At(const QRectF& rectangle)
{
    return At(rectangle.topLeft()) + " " + Number(rectangle.width()) + "x" + Number(rectangle.height());
}

std::string ColourName(Colour colour)
{
    if (colour.IsAutomatic())
        return "auto";
    char text[16];
    std::snprintf(text, sizeof text, "#%06X", colour.rgb);
    return text;
}

struct ItemDump
{
    const DisplayList& list;

    std::string operator()(const GlyphRun& run) const
    {
        std::string text = "glyphs " + At(run.origin) + " size " + Number(double{run.size}) + " " +
                           list.faces[run.face]->Identity().family.toStdString() + " " + ColourName(run.colour);
        if (run.rightToLeft)
            text += " rtl";
        text += " [" + Ascii(run.text) + "]";
        for (const GlyphPlace& glyph : run.glyphs)
            text += " " + Ascii(std::u16string(1, static_cast<char16_t>(glyph.glyph))) + "@" + Number(double{glyph.x});
        return text;
    }
    std::string operator()(const FilledRectangle& fill) const
    {
        return "fill " + At(fill.rectangle) + " " + ColourName(fill.colour) + " " + std::to_string(fill.mixed);
    }
    std::string operator()(const TextLine& line) const
    {
        return "line " + At(line.from) + " length " + Number(double{line.length}) + " thickness " +
               Number(double{line.thickness}) + " kind " + std::to_string(static_cast<int>(line.kind)) + " " +
               ColourName(line.colour);
    }
    std::string operator()(const BorderLine& line) const
    {
        return "border " + At(line.from) + " to " + At(line.to) + " style " +
               std::to_string(static_cast<int>(line.border.style)) + " width " +
               std::to_string(line.border.width.value);
    }
    std::string operator()(const PlacedPicture& picture) const { return "picture " + At(picture.rectangle); }
    std::string operator()(const BeginClip& clip) const { return "clip " + At(clip.rectangle); }
    std::string operator()(const EndClip&) const { return "end clip"; }
    std::string operator()(const LinkArea& link) const
    {
        return "link " + At(link.rectangle) + " " + Ascii(link.target);
    }
};

}  // namespace

std::string Dump(const ParagraphLayout& layout)
{
    const std::u16string_view text = layout.Source().Text();
    std::string out;
    for (const Line& line : layout.Lines())
        out += std::string(NameOf(line.ending)) + " top " + Number(line.top) + " height " + Number(line.height) +
               " baseline " + Number(line.baseline) + " left " + Number(line.left) + " width " + Number(line.width) +
               " [" + Ascii(text.substr(line.begin, line.end - line.begin)) + "]\n";
    return out + "height " + Number(layout.Height()) + "\n";
}

std::string Dump(const DisplayList& list)
{
    std::string out;
    for (const DisplayItem& item : list.items)
        out += std::visit(ItemDump{list}, item) + "\n";
    return out;
}

std::string DumpDrawing(const ParagraphLayout& layout)
{
    DisplayList list;
    const auto lines = static_cast<std::uint32_t>(layout.Lines().size());
    layout.DrawBackground(list, {}, 0, lines);
    layout.DrawText(list, {}, 0, lines);
    return Dump(list);
}

}  // namespace quillmarker
