#include "engine/box/box_state.h"

#include <quillmarker/text_box.h>

#include <algorithm>

namespace quillmarker
{
namespace
{

/// Further than any paper reaches; sums of two such lengths stay within what a file may state.
constexpr std::int32_t kMaxTwips = 1'000'000;

Twips Within(std::int32_t twips) { return {std::clamp(twips, -kMaxTwips, kMaxTwips)}; }

Twips HangingOf(const ParagraphFormat& format) { return -format.firstIndent; }

Twips IndentOf(const ParagraphFormat& format) { return format.leftIndent + format.firstIndent; }

/// The first line `indent` from the edge, the others `hanging` further.
void SetIndents(ParagraphFormat& format, Twips indent, Twips hanging)
{
    format.leftIndent = indent + hanging;
    format.firstIndent = -hanging;
}

bool IsBulleted(const ParagraphFormat& format)
{
    return format.numbering && format.numbering->kind == NumberKind::Bullet;
}

const std::vector<TabStop>& TabsOf(const ParagraphFormat& format)
{
    static const std::vector<TabStop> none;
    return format.tabs ? *format.tabs : none;
}

std::vector<TabStop> Sorted(std::vector<TabStop> tabs)
{
    std::ranges::stable_sort(tabs, {}, &TabStop::position);
    const auto samePlace = [](const TabStop& a, const TabStop& b) { return a.position == b.position; };
    tabs.erase(std::unique(tabs.begin(), tabs.end(), samePlace), tabs.end());
    return tabs;
}

/// Where a stop goes that the host places next: behind the last one, or where that is the end, in the first gap.
Twips NextFree(const std::vector<TabStop>& tabs)
{
    if (tabs.empty())
        return kDefaultTab;
    const Twips behind = std::ranges::max(tabs, {}, &TabStop::position).position + kDefaultTab;
    if (behind.value <= kMaxTwips)
        return behind;
    Twips free = kDefaultTab;
    while (std::ranges::find(tabs, free, &TabStop::position) != tabs.end())
        free += kDefaultTab;
    return free;
}

/// What `project` makes of the selection's paragraphs; empty when it differs among them.
template <class Project>
auto ParagraphValue(const Document& document, TextRange range, Project project)
{
    CommonValue<std::decay_t<decltype(project(ParagraphFormat()))>> value;
    VisitParagraphFormats(document, range, [&](const ParagraphFormat& format) { value.Add(project(format)); });
    return value.Result();
}

}  // namespace

std::optional<int> TextBox::SelAlignment() const
{
    return ParagraphValue(m_state->document, m_state->Range(),
                          [](const ParagraphFormat& f) { return static_cast<int>(f.alignment); });
}

void TextBox::SetSelAlignment(int alignment)
{
    if (alignment < kAlignLeft || alignment > kAlignJustify)
        return;
    m_state->ChangeParagraphs([&](ParagraphFormat format) {
        format.alignment = static_cast<Alignment>(alignment);
        return format;
    });
}

std::optional<bool> TextBox::SelBullet() const
{
    return ParagraphValue(m_state->document, m_state->Range(), IsBulleted);
}

void TextBox::SetSelBullet(int on)
{
    // Mixed hanging indents stay as each paragraph has them.
    const bool setsIndent = SelHangingIndent().has_value();
    const Twips hanging = on != 0 ? Within(m_state->bulletIndent) : Twips();
    Numbering bullet;
    bullet.indent = Within(m_state->bulletIndent);
    bullet.text = u"\u2022";
    const Shared<Numbering> numbering = on != 0 ? Shared(bullet) : Shared<Numbering>();
    m_state->ChangeParagraphs([&](ParagraphFormat format) {
        if (IsBulleted(format) == (on != 0))
            return format;
        format.numbering = numbering;
        if (setsIndent)
            SetIndents(format, IndentOf(format), hanging);
        return format;
    });
}

std::optional<std::int32_t> TextBox::SelIndent() const
{
    return ParagraphValue(m_state->document, m_state->Range(),
                          [](const ParagraphFormat& f) { return IndentOf(f).value; });
}

void TextBox::SetSelIndent(std::int32_t twips)
{
    m_state->ChangeParagraphs([&](ParagraphFormat format) {
        SetIndents(format, Within(twips), HangingOf(format));
        return format;
    });
}

std::optional<std::int32_t> TextBox::SelHangingIndent() const
{
    return ParagraphValue(m_state->document, m_state->Range(),
                          [](const ParagraphFormat& f) { return HangingOf(f).value; });
}

void TextBox::SetSelHangingIndent(std::int32_t twips)
{
    m_state->ChangeParagraphs([&](ParagraphFormat format) {
        SetIndents(format, IndentOf(format), Within(twips));
        return format;
    });
}

std::optional<std::int32_t> TextBox::SelRightIndent() const
{
    return ParagraphValue(m_state->document, m_state->Range(),
                          [](const ParagraphFormat& f) { return f.rightIndent.value; });
}

void TextBox::SetSelRightIndent(std::int32_t twips)
{
    m_state->ChangeParagraphs([&](ParagraphFormat format) {
        format.rightIndent = Within(twips);
        return format;
    });
}

std::optional<int> TextBox::SelTabCount() const
{
    return ParagraphValue(m_state->document, m_state->Range(),
                          [](const ParagraphFormat& f) { return static_cast<int>(TabsOf(f).size()); });
}

std::optional<std::int32_t> TextBox::SelTabs(int index) const
{
    const auto tabs = ParagraphValue(m_state->document, m_state->Range(), TabsOf);
    if (!tabs || index < 0 || static_cast<std::size_t>(index) >= tabs->size())
        return std::nullopt;
    return (*tabs)[static_cast<std::size_t>(index)].position.value;
}

std::vector<TabStop> TextBox::State::DraftedTabs() const
{
    const bool goesOn = tabDraft && tabDraft->selection == selection && tabDraft->document.IsSameAs(document);
    if (goesOn)
        return tabDraft->tabs;
    return ParagraphValue(document, Range(), TabsOf).value_or(std::vector<TabStop>());
}

void TextBox::State::DraftTabs(std::vector<TabStop> tabs)
{
    const std::vector<TabStop> sorted = Sorted(tabs);
    const auto value = sorted.empty() ? Shared<std::vector<TabStop>>() : Shared(sorted);
    const Life boxLife = life;
    ChangeParagraphs([&](ParagraphFormat format) {
        format.tabs = value;
        return format;
    });
    if (!boxLife.expired())
        tabDraft = TabDraft{document, selection, std::move(tabs)};
}

void TextBox::SetSelTabCount(int count)
{
    if (count < 0)
        return;
    std::vector<TabStop> tabs = m_state->DraftedTabs();
    if (const std::vector<TabStop> sorted = Sorted(tabs); sorted.size() < tabs.size())
        tabs = sorted;  // two that the host put at one place are one
    const auto wanted = std::min(static_cast<std::size_t>(count), kMaxTabStops);
    tabs.resize(std::min(tabs.size(), wanted));
    while (tabs.size() < wanted)
        tabs.push_back({NextFree(tabs)});
    m_state->DraftTabs(std::move(tabs));
}

void TextBox::SetSelTabs(int index, std::int32_t twips)
{
    std::vector<TabStop> tabs = m_state->DraftedTabs();
    if (index < 0 || static_cast<std::size_t>(index) >= tabs.size())
        return;
    tabs[static_cast<std::size_t>(index)].position = Within(twips);
    m_state->DraftTabs(std::move(tabs));
}

PartialParagraphFormat TextBox::SelParagraphFormat() const
{
    return ParagraphFormatOver(m_state->document, m_state->Range());
}

void TextBox::SetSelParagraphFormat(const PartialParagraphFormat& format)
{
    PartialParagraphFormat patch = format;
    if (patch.numbering && *patch.numbering && (*patch.numbering)->list != 0)
    {
        Numbering numbering = **patch.numbering;
        numbering.list = m_state->document.Formats().ListNumberFor(numbering.list, {numbering});
        patch.numbering = Shared(std::move(numbering));
    }
    m_state->ChangeParagraphs([&](ParagraphFormat here) { return Patched(std::move(here), patch); });
}

std::int32_t TextBox::RightMargin() const { return m_state->rightMargin; }

void TextBox::SetRightMargin(std::int32_t twips)
{
    if (twips >= 0)
        m_state->rightMargin = Within(twips).value;
}

std::int32_t TextBox::BulletIndent() const { return m_state->bulletIndent; }

void TextBox::SetBulletIndent(std::int32_t twips)
{
    if (twips >= 0)
        m_state->bulletIndent = Within(twips).value;
}

Colour TextBox::BackColor() const { return m_state->backColour; }

void TextBox::SetBackColor(Colour colour) { m_state->backColour = colour; }

const BoxFont& TextBox::Font() const { return m_state->font; }

void TextBox::SetFont(const BoxFont& font)
{
    if (!(font.size > 0) || font.name.empty())
        return;
    m_state->font = font;
    const bool isUntouched = TextLength() == 0 && !CanUndo() && !CanRedo();
    if (isUntouched)
        m_state->document = Document(FormatOf(m_state->font));
}

std::int32_t TextBox::MaxLength() const { return m_state->maxLength; }

void TextBox::SetMaxLength(std::int32_t units) { m_state->maxLength = std::max(units, 0); }

bool TextBox::Locked() const { return m_state->locked; }

void TextBox::SetLocked(bool locked) { m_state->locked = locked; }

}  // namespace quillmarker
