#include "engine/document/edit.h"
#include "support/random_document.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

// A character, or a mark with all that it carries: what an edit takes away and puts in.
struct Atom
{
    char16_t unit = 0;  // 0: a mark
    CharFormatId format{};
    ParagraphMark mark{};
    const TableRow* row = nullptr;
    const InlineObject* object = nullptr;

    std::int32_t Length() const { return unit != 0 ? 1 : MarkLength(mark.kind); }
    bool operator==(const Atom&) const = default;
};

using Atoms = std::vector<Atom>;  // the last mark included

Atoms AtomsOf(const Document& document)
{
    Atoms atoms;
    document.Visit(0, [&](const Paragraph& paragraph) {
        const auto text = paragraph.Text();
        for (std::uint32_t i = 0; i < text.size(); ++i)
            atoms.push_back({text[i], paragraph.FormatAt(i), {}, nullptr, paragraph.ObjectAt(i)});
        const ParagraphMark& mark = paragraph.Ending();
        atoms.push_back({0, mark.charFormat, mark, paragraph.Extras().row.Identity(), nullptr});
        return true;
    });
    return atoms;
}

// A range as numbers of atoms. One that begins inside a mark begins before it, one that ends inside ends behind it.
struct AtomRange
{
    std::ptrdiff_t begin = 0;
    std::ptrdiff_t end = 0;
};

AtomRange RangeIn(const Atoms& atoms, TextRange range)
{
    AtomRange found;
    std::int32_t at = 0;
    for (const Atom& atom : atoms)
    {
        at += atom.Length();
        found.begin += at <= range.begin.value ? 1 : 0;
    }
    at = 0;
    for (std::size_t i = 0; i < atoms.size() && at < range.end.value; at += atoms[i++].Length())
        ++found.end;
    if (range.IsEmpty())
        found.end = found.begin;
    return found;
}

Atoms Replaced(Atoms atoms, AtomRange range, const Atoms& items)
{
    atoms.erase(atoms.begin() + range.begin, atoms.begin() + range.end);
    atoms.insert(atoms.begin() + range.begin, items.begin(), items.end());
    return atoms;
}

// `text` with each line end as one LF and without NULs.
std::u16string WithOneLineEnd(std::u16string text)
{
    for (std::size_t at = 0; (at = text.find(u"\r\n", at)) != text.npos; ++at)
        text.erase(at, 1);
    std::ranges::replace(text, u'\r', u'\n');
    std::erase(text, u'\0');
    return text;
}

Atoms AtomsOfText(const std::u16string& text, CharFormatId format, const Atom& laterMark)
{
    Atoms atoms;
    Atom lineEnd{0, format, laterMark.mark, nullptr, nullptr};
    lineEnd.mark.kind = Mark::Break;
    lineEnd.mark.charFormat = format;
    for (const char16_t unit : WithOneLineEnd(text))
        atoms.push_back(unit == u'\n' ? lineEnd : Atom{unit, format, {}, nullptr, nullptr});
    return atoms;
}

const Atom& MarkFrom(const Atoms& atoms, std::ptrdiff_t at)
{
    return *std::find_if(atoms.begin() + at, atoms.end(), [](const Atom& atom) { return atom.unit == 0; });
}

constexpr std::u16string_view kTyped(u"abc\r\n\0\v", 7);

TEST(EditLaws, TextReplacesExactlyTheRange)
{
    std::mt19937 random(71);
    for (int round = 0; round < 60; ++round)
    {
        Document document = RandomDocument(random, u"xyz", 1 + Below(random, 8));
        for (int edit = 0; edit < 25; ++edit)
        {
            const Atoms before = AtomsOf(document);
            const TextRange range = RandomRange(random, document);
            const AtomRange places = RangeIn(before, range);
            const std::u16string text = RandomText(random, kTyped, Below(random, 7));
            const CharFormatId format = RandomCharFormat(random, document.SharedFormats());
            const Document after = WithText(document, range, text, format);
            const Atoms items = AtomsOfText(text, format, MarkFrom(before, places.end));
            ASSERT_TRUE(AtomsOf(after) == Replaced(before, places, items)) << "round " << round << " edit " << edit;
            ASSERT_TRUE(AtomsOf(document) == before) << "the old document changed";
            document = after;
        }
    }
}

TEST(EditLaws, TheLengthOfATextIsKnownBeforeItIsPutIn)
{
    std::mt19937 random(72);
    for (int round = 0; round < 2000; ++round)
    {
        const std::u16string text = RandomText(random, kTyped, Below(random, 12));
        ASSERT_EQ(WithText(Document(), {}, text, {}).Size(), LengthInDocument(text));
    }
}

TEST(EditLaws, ASliceIsExactlyTheRange)
{
    std::mt19937 random(73);
    for (int round = 0; round < 1000; ++round)
    {
        const Document document = RandomDocument(random, u"xyz", 1 + Below(random, 8));
        const Atoms atoms = AtomsOf(document);
        const TextRange range = RandomRange(random, document);
        const AtomRange places = RangeIn(atoms, range);
        Atoms slice = AtomsOf(Slice(document, range));
        ASSERT_EQ(slice.back().unit, 0);
        ASSERT_EQ(slice.back().mark.kind, Mark::Break);
        ASSERT_EQ(slice.back().mark.format, MarkFrom(atoms, places.end).mark.format);
        slice.pop_back();
        ASSERT_TRUE(slice == Atoms(atoms.begin() + places.begin, atoms.begin() + places.end)) << "round " << round;
    }
}

TEST(EditLaws, AFragmentReplacesExactlyTheRange)
{
    std::mt19937 random(74);
    for (int round = 0; round < 1000; ++round)
    {
        const Document document = RandomDocument(random, u"xyz", 1 + Below(random, 8));
        const Atoms before = AtomsOf(document);
        const Document fragment = Slice(document, RandomRange(random, document));
        Atoms items = AtomsOf(fragment);
        items.pop_back();
        const TextRange range = RandomRange(random, document);
        const Document after = WithFragment(document, range, fragment);
        ASSERT_TRUE(AtomsOf(after) == Replaced(before, RangeIn(before, range), items)) << "round " << round;
    }
}

TEST(EditLaws, PuttingASliceBackWhereItWasChangesNothing)
{
    std::mt19937 random(75);
    for (int round = 0; round < 1000; ++round)
    {
        const Document document = RandomDocument(random, u"xyz", 1 + Below(random, 8));
        const TextRange range = RandomRange(random, document);
        ASSERT_TRUE(SameContent(WithFragment(document, range, Slice(document, range)), document));
    }
}

TEST(EditLaws, AFragmentOfAnotherFamilyBringsTheSameContent)
{
    std::mt19937 random(76);
    for (int round = 0; round < 500; ++round)
    {
        const Document document = RandomDocument(random, u"xyz", 1 + Below(random, 8));
        const Document stranger = RandomDocument(random, u"uvw", 1 + Below(random, 8));
        const std::int32_t at = Below(random, document.Size() + 1);
        const TextRange caret = Snapped(document, {{at}, {at}});
        const Document after = WithFragment(document, caret, stranger);
        const Document back = Slice(after, {caret.begin, caret.begin + stranger.Size()});
        ASSERT_EQ(back.Text(), stranger.Text());
        const auto all = [](const Document& part) { return TextRange{{0}, {part.Size()}}; };
        ASSERT_TRUE(SameContent(WithFragment(stranger, all(stranger), back), stranger)) << "round " << round;
    }
}

TEST(EditLaws, SnappedRangesStandOutsideOfMarks)
{
    std::mt19937 random(77);
    const Document document = RandomDocument(random, u"x", 40);
    const std::u16string text = document.Text();
    const auto isInside = [&](Position at) {
        const auto i = static_cast<std::size_t>(at.value);
        return i > 0 && i < text.size() && text[i - 1] == u'\r' && text[i] == u'\n';
    };
    for (std::int32_t begin = -2; begin <= document.Size() + 2; ++begin)
    {
        for (std::int32_t length : {0, 1, 2, 3, 50})
        {
            const TextRange range{{begin}, {begin + length}};
            const TextRange snapped = Snapped(document, range);
            ASSERT_FALSE(isInside(snapped.begin) || isInside(snapped.end)) << begin << "+" << length;
            ASSERT_EQ(Snapped(document, snapped), snapped);
            ASSERT_LE(snapped.begin.value, std::clamp(begin, 0, document.Size()));
            ASSERT_GE(snapped.end.value, std::clamp(begin + length, 0, document.Size()) - (length == 0 ? 1 : 0));
        }
    }
}

}  // namespace
}  // namespace quillmarker
