#include "engine/document/dump_values.h"

#include "engine/document/utf.h"

#include <array>
#include <cstdio>
#include <tuple>
#include <type_traits>

namespace quillmarker
{
namespace
{

std::string Number(long long value) { return std::to_string(value); }

template <class T>
requires(std::is_arithmetic_v<T> || std::is_enum_v<T>) std::string Value(T value)
{
    return Number(static_cast<long long>(value));
}

std::string Value(Twips value) { return Number(value.value); }
std::string Value(const Name& name) { return Quoted(name.Text()); }
std::string Value(const std::string& text) { return text; }

std::string Value(Colour colour)
{
    if (colour.IsAutomatic())
        return "auto";
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "#%06x", static_cast<unsigned>(colour.rgb));
    return text.data();
}

std::string Value(const LineSpacing& spacing)
{
    constexpr std::array kRules = {"single", "at-least ", "exactly ", "multiple "};
    const std::string rule = kRules[static_cast<std::size_t>(spacing.rule)];
    return spacing.rule == LineRule::Single ? rule : rule + Number(spacing.amount);
}

std::string Value(const Field& field)
{
    std::string text = Quoted(field.instruction) + field.switches;
    return field.outer ? text + " in " + Value(*field.outer) : text;
}

std::string Value(const std::vector<TabStop>& tabs)
{
    constexpr std::array kKinds = {"", " right", " centre", " decimal", " bar"};
    constexpr std::array kLeaders = {"", " dots", " middle-dots", " hyphens", " underline", " thick", " equals"};
    std::string text = "[";
    for (const TabStop& tab : tabs)
        text += (text.size() > 1 ? ", " : "") + Value(tab.position) + kKinds[static_cast<std::size_t>(tab.kind)] +
                kLeaders[static_cast<std::size_t>(tab.leader)];
    return text + "]";
}

std::string Value(const Numbering& n)
{
    constexpr std::array kKinds = {"none",        "bullet",      "decimal", "lower-letter",  "upper-letter",
                                   "lower-roman", "upper-roman", "ordinal", "cardinal-text", "ordinal-text"};
    std::string text = std::string("{") + kKinds[static_cast<std::size_t>(n.kind)] + " " + Quoted(n.text);
    text += " start=" + Number(n.start) + " level=" + Number(n.level) + " list=" + Number(n.list);
    text += " indent=" + Value(n.indent);
    if (!n.font.IsEmpty())
        text += " font=" + Value(n.font) + "/" + Number(n.fontCharset);
    if (n.hanging)
        text += " hanging";
    if (n.align != 0 || n.follow != 0)
        text += " align=" + Number(n.align) + " follow=" + Number(n.follow);
    return text + "}";
}

std::string Value(const Border& border)
{
    return Number(static_cast<int>(border.style)) + "/" + Value(border.width) + "/" + Value(border.space) + "/" +
           Value(border.colour);
}

std::string Value(const Borders& borders)
{
    constexpr std::array kSides = {"top", "left", "bottom", "right", "between", "bar"};
    std::string text = "{";
    for (std::size_t side = 0; side < kSides.size(); ++side)
    {
        if (!(borders.sides[side] == Border()))
            text += (text.size() > 1 ? " " : "") + std::string(kSides[side]) + "=" + Value(borders.sides[side]);
    }
    return text + "}";
}

std::string Value(const Shading& shading)
{
    return Value(shading.fill) + "/" + Value(shading.foreground) + "/" + Number(shading.hundredths);
}

template <class T>
std::string Value(const Shared<T>& shared)
{
    return shared ? Value(*shared) : "none";
}

template <class T>
void Put(std::string& out, const char* name, const T& value, const T& usual)
{
    if (value == usual)
        return;
    out += std::string(" ") + name;
    if constexpr (!std::is_same_v<T, bool>)
        out += "=" + Value(value);
    else if (!value)
        out += "=off";
}

template <class Format, class Fields>
std::string DumpFields(const Format& format, const Fields& fields)
{
    const Format usual{};
    std::string out;
    std::apply([&](const auto&... field) { (Put(out, field.name, format.*field.full, usual.*field.full), ...); },
               fields);
    return out;
}

void PutPage(std::string& out, const PageFormat& page)
{
    const PageFormat usual{};
    Put(out, "page-width", page.width, usual.width);
    Put(out, "page-height", page.height, usual.height);
    Put(out, "margin-left", page.left, usual.left);
    Put(out, "margin-right", page.right, usual.right);
    Put(out, "margin-top", page.top, usual.top);
    Put(out, "margin-bottom", page.bottom, usual.bottom);
    Put(out, "gutter", page.gutter, usual.gutter);
    Put(out, "landscape", page.landscape, usual.landscape);
}

}  // namespace

std::string Quoted(std::u16string_view text)
{
    std::string out = "\"";
    for (const char16_t unit : text)
    {
        const bool isControl = unit < 0x20 || unit == 0x7F || unit == u'"' || unit == u'\\' || unit == 0xFFFC;
        const bool isSurrogate = unit >= 0xD800 && unit <= 0xDFFF;
        if (isControl || isSurrogate)
        {
            std::array<char, 8> escaped{};
            std::snprintf(escaped.data(), escaped.size(), "\\u%04x", static_cast<unsigned>(unit));
            out += escaped.data();
        }
        else
            out += ToUtf8({&unit, 1});
    }
    return out + "\"";
}

std::string DumpOf(const CharFormat& format) { return DumpFields(format, kCharFields); }
std::string DumpOf(const ParagraphFormat& format) { return DumpFields(format, kParagraphFields); }

std::string DumpOf(const TableRow& row)
{
    const TableRow usual{};
    std::string out = "row-format";
    Put(out, "left", row.left, usual.left);
    Put(out, "gap", row.gap, usual.gap);
    Put(out, "height", row.height, usual.height);
    Put(out, "align", row.align, usual.align);
    Put(out, "header", row.header, usual.header);
    Put(out, "keep", row.keepTogether, usual.keepTogether);
    Put(out, "right-to-left", row.rightToLeft, usual.rightToLeft);
    Put(out, "borders", row.borders, usual.borders);
    Put(out, "kept", row.kept, usual.kept);
    for (const TableCell& cell : row.cells)
    {
        const TableCell plain{};
        out += " cell(" + Value(cell.right);
        Put(out, "vertical-merge", cell.vertical, plain.vertical);
        Put(out, "horizontal-merge", cell.horizontal, plain.horizontal);
        Put(out, "align", cell.align, plain.align);
        Put(out, "borders", cell.borders, plain.borders);
        Put(out, "shading", cell.shading, plain.shading);
        Put(out, "kept", cell.kept, plain.kept);
        out += ")";
    }
    return out;
}

std::string DumpOf(const Section& section)
{
    const Section usual{};
    std::string out;
    Put(out, "break", section.breakKind, usual.breakKind);
    PutPage(out, section.page);
    Put(out, "columns", section.columns, usual.columns);
    Put(out, "column-gap", section.columnGap, usual.columnGap);
    Put(out, "title-page", section.titlePage, usual.titlePage);
    Put(out, "header-distance", section.headerDistance, usual.headerDistance);
    Put(out, "footer-distance", section.footerDistance, usual.footerDistance);
    Put(out, "first-page", section.firstPage, usual.firstPage);
    Put(out, "restart-pages", section.restartPages, usual.restartPages);
    Put(out, "kept", section.kept, usual.kept);
    return out;
}

std::string DumpOf(const InlinePicture& picture)
{
    const InlinePicture usual{};
    std::string out;
    Put(out, "mapping", picture.mapping, usual.mapping);
    Put(out, "width", picture.width, usual.width);
    Put(out, "height", picture.height, usual.height);
    Put(out, "goal-width", picture.goalWidth, usual.goalWidth);
    Put(out, "goal-height", picture.goalHeight, usual.goalHeight);
    Put(out, "scale-x", picture.scaleX, usual.scaleX);
    Put(out, "scale-y", picture.scaleY, usual.scaleY);
    Put(out, "crop-left", picture.cropLeft, usual.cropLeft);
    Put(out, "crop-top", picture.cropTop, usual.cropTop);
    Put(out, "crop-right", picture.cropRight, usual.cropRight);
    Put(out, "crop-bottom", picture.cropBottom, usual.cropBottom);
    Put(out, "kept", picture.kept, usual.kept);
    return out + " bytes=" + Number(picture.bytes ? static_cast<long long>(picture.bytes->size()) : 0);
}

std::string DumpOf(const EmbeddedObject& object)
{
    const EmbeddedObject usual{};
    std::string out;
    Put(out, "kind", object.kind, usual.kind);
    out += " class=" + Quoted(object.className) + " name=" + Quoted(object.name);
    Put(out, "width", object.width, usual.width);
    Put(out, "height", object.height, usual.height);
    Put(out, "kept", object.kept, usual.kept);
    return out + " bytes=" + Number(object.data ? static_cast<long long>(object.data->size()) : 0);
}

std::string DumpOf(const DocumentFormat& format)
{
    const DocumentFormat usual{};
    std::string out;
    PutPage(out, format.page);
    Put(out, "default-tab", format.defaultTab, usual.defaultTab);
    Put(out, "facing-pages", format.facingPages, usual.facingPages);
    Put(out, "kept", format.kept, usual.kept);
    Put(out, "info-kept", format.infoKept, usual.infoKept);
    out = out.empty() ? "" : "document" + out + "\n";
    for (const auto& [word, text] : format.info)
        out += "info " + word + "=" + Quoted(text) + "\n";
    return out;
}

}  // namespace quillmarker
