#include "view_state.h"

// The engine's members at the boundary to Qt: each is the box's, with its values as Qt has them.

namespace quillmarker
{
namespace
{

QString ToQt(const std::u16string& text) { return QString::fromStdU16String(text); }

QColor ToQt(Colour colour)
{
    return colour.IsAutomatic() ? QColor() : QColor(colour.Red(), colour.Green(), colour.Blue());
}

Colour FromQt(const QColor& colour)
{
    return colour.isValid() ? Colour::Of(colour.red(), colour.green(), colour.blue()) : Colour();
}

/// Mixed is an invalid value.
template <class T>
QVariant ToVariant(const std::optional<T>& value)
{
    if (!value)
        return {};
    if constexpr (std::is_arithmetic_v<T>)
        return QVariant::fromValue(*value);
    else
        return QVariant::fromValue(ToQt(*value));
}

/// Hands a value on as a number; what is none, mixed among it, changes nothing.
template <class Set>
void WithNumber(const QVariant& value, Set set)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (isNumber)
        set(number);
}

/// As WithNumber, for what is on or off: any number but 0 is on.
template <class Set>
void WithSwitch(const QVariant& value, Set set)
{
    WithNumber(value, [&](double number) { set(number != 0 ? 1 : 0); });
}

template <class Set>
void WithWhole(const QVariant& value, Set set)
{
    constexpr double kFurthest = 1e9;
    WithNumber(value,
               [&](double number) { set(static_cast<int>(std::lround(std::clamp(number, -kFurthest, kFurthest)))); });
}

SpanDirection Direction(bool forward) { return forward ? SpanDirection::Forward : SpanDirection::Backward; }
CharacterSet Set(bool negate) { return negate ? CharacterSet::Negated : CharacterSet::Listed; }
FileKind Kind(int kind) { return kind == 1 ? FileKind::Text : FileKind::Rtf; }

}  // namespace

QString RichTextView::Text() const { return ToQt(Box().Text()); }
void RichTextView::SetText(const QString& text)
{
    const QPointer<RichTextView> alive(this);
    Box().SetText(text.toStdU16String());
    if (alive)
        m_state->RevealCaret();
}
QString RichTextView::TextRTF() const { return ToQt(Box().TextRTF()); }
void RichTextView::SetTextRTF(const QString& rtf)
{
    const QPointer<RichTextView> alive(this);
    Box().SetTextRTF(rtf.toStdU16String());
    if (alive)
        m_state->RevealCaret();
}
int RichTextView::SelStart() const { return Box().SelStart(); }
void RichTextView::SetSelStart(int start) { Box().SetSelStart(start); }
int RichTextView::SelLength() const { return Box().SelLength(); }
void RichTextView::SetSelLength(int length) { Box().SetSelLength(length); }
QString RichTextView::SelText() const { return ToQt(Box().SelText()); }
void RichTextView::SetSelText(const QString& text) { Box().SetSelText(text.toStdU16String()); }
QString RichTextView::SelRTF() const { return ToQt(Box().SelRTF()); }
void RichTextView::SetSelRTF(const QString& rtf) { Box().SetSelRTF(rtf.toStdU16String()); }

// The member of the box that gives a value over the selection, and the one that sets it.
#define QUILLMARKER_VALUE(Member, With)                                                                                \
    QVariant RichTextView::Member() const { return ToVariant(Box().Member()); }                                        \
    void RichTextView::Set##Member(const QVariant& value)                                                              \
    {                                                                                                                  \
        With(value, [this](auto given) { Box().Set##Member(given); });                                                 \
    }
QUILLMARKER_VALUE(SelBold, WithSwitch)
QUILLMARKER_VALUE(SelItalic, WithSwitch)
QUILLMARKER_VALUE(SelUnderline, WithSwitch)
QUILLMARKER_VALUE(SelStrikeThru, WithSwitch)
QUILLMARKER_VALUE(SelProtected, WithSwitch)
QUILLMARKER_VALUE(SelBullet, WithSwitch)
QUILLMARKER_VALUE(SelCharOffset, WithWhole)
QUILLMARKER_VALUE(SelAlignment, WithWhole)
QUILLMARKER_VALUE(SelIndent, WithWhole)
QUILLMARKER_VALUE(SelHangingIndent, WithWhole)
QUILLMARKER_VALUE(SelRightIndent, WithWhole)
QUILLMARKER_VALUE(SelTabCount, WithWhole)
#undef QUILLMARKER_VALUE

QVariant RichTextView::SelFontName() const { return ToVariant(Box().SelFontName()); }
void RichTextView::SetSelFontName(const QVariant& name)
{
    if (name.isValid())
        Box().SetSelFontName(name.toString().toStdU16String());
}

QVariant RichTextView::SelFontSize() const { return ToVariant(Box().SelFontSize()); }
void RichTextView::SetSelFontSize(const QVariant& points)
{
    WithNumber(points, [this](double size) { Box().SetSelFontSize(static_cast<float>(size)); });
}

QVariant RichTextView::SelColor() const { return ToVariant(Box().SelColor()); }
void RichTextView::SetSelColor(const QVariant& colour)
{
    if (colour.canConvert<QColor>())
        Box().SetSelColor(FromQt(colour.value<QColor>()));
}

QVariant RichTextView::SelTabs(int index) const { return ToVariant(Box().SelTabs(index)); }
void RichTextView::SetSelTabs(int index, int twips) { Box().SetSelTabs(index, twips); }

int RichTextView::RightMargin() const { return Box().RightMargin(); }
void RichTextView::SetRightMargin(int twips)
{
    Box().SetRightMargin(twips);
    m_state->ScheduleRefresh();
}

int RichTextView::BulletIndent() const { return Box().BulletIndent(); }
void RichTextView::SetBulletIndent(int twips) { Box().SetBulletIndent(twips); }

QColor RichTextView::BackColor() const { return ToQt(Box().BackColor()); }
void RichTextView::SetBackColor(const QColor& colour)
{
    Box().SetBackColor(FromQt(colour));
    m_state->RefreshAll();
}

QFont RichTextView::Font() const
{
    QFont font(ToQt(Box().Font().name));
    font.setPointSizeF(static_cast<qreal>(Box().Font().size));
    return font;
}

void RichTextView::SetFont(const QFont& font)
{
    const qreal points = font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * 72.0 / logicalDpiY();
    BoxFont boxFont = Box().Font();
    boxFont.name = font.family().toStdU16String();
    boxFont.size = static_cast<float>(points);
    Box().SetFont(boxFont);
    m_state->isStale = true;
    m_state->ScheduleRefresh();
}

int RichTextView::MaxLength() const { return Box().MaxLength(); }
void RichTextView::SetMaxLength(int units) { Box().SetMaxLength(units); }
bool RichTextView::Locked() const { return Box().Locked(); }
void RichTextView::SetLocked(bool locked)
{
    const QPointer<RichTextView> alive(this);
    Box().SetLocked(locked);
    if (locked)
        m_state->DropPreEdit();
    // An input method may write here from now on, or no longer.
    if (alive)
        updateMicroFocus();
}

int RichTextView::Find(const QString& text)
{
    const QPointer<RichTextView> alive(this);
    const int found = Box().Find(text.toStdU16String());
    // It may have been selected already.
    if (alive && found >= 0)
        m_state->RevealCaret();
    return found;
}

int RichTextView::Find(const QString& text, int start, int end, int options)
{
    const ViewFlag staying(*this, m_state->staysPut, (options & kFindNoHighlight) != 0);
    const QPointer<RichTextView> alive(this);
    const int found = Box().Find(text.toStdU16String(), start, end, options);
    if (alive && found >= 0 && !m_state->staysPut)
        m_state->RevealCaret();
    return found;
}

int RichTextView::LoadFile(const QString& path, int kind)
{
    const QPointer<RichTextView> alive(this);
    const FileError error = Box().LoadFile(path.toStdU16String(), Kind(kind));
    if (alive && error == FileError::None)
        m_state->RevealCaret();
    return static_cast<int>(error);
}

int RichTextView::SaveFile(const QString& path, int kind)
{
    return static_cast<int>(Box().SaveFile(path.toStdU16String(), Kind(kind)));
}

void RichTextView::Span(const QString& characters, bool forward, bool negate)
{
    Box().Span(characters.toStdU16String(), Direction(forward), Set(negate));
}

void RichTextView::UpTo(const QString& characters, bool forward, bool negate)
{
    Box().UpTo(characters.toStdU16String(), Direction(forward), Set(negate));
}

}  // namespace quillmarker
