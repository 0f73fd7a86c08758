#include "font_form_widget.h"

#include "color_choice_widget.h"
#include "font_charset.h"
#include "sample_ground.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScopedValueRollback>
#include <QStringListModel>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

constexpr int kTenths = 10;
constexpr int kLargestSize = 1638 * kTenths;

/// The parts of Qt's dialog have no names: they are known by their kind and their order. One that another version of Qt
/// does not have is stood in for by one that is not shown.
template <class Part>
Part* PartOf(QWidget& whole, int index)
{
    const QList<Part*> parts = whole.findChildren<Part*>(QString(), Qt::FindDirectChildrenOnly);
    if (index < parts.size())
        return parts.at(index);
    auto* standIn = new Part(&whole);
    standIn->hide();
    return standIn;
}

QString SizeText(int tenths)
{
    const QLocale locale;
    return tenths == 0 ? QString() : locale.toString(tenths / double{kTenths}, 'f', tenths % kTenths == 0 ? 0 : 1);
}

int TenthsOf(QString text)
{
    text.replace(u',', u'.');
    return std::clamp(static_cast<int>(std::lround(text.toDouble() * kTenths)), 0, kLargestSize);
}

}  // namespace

FontForm::FontForm(FontPick asked, FontKind kind, QWidget* parent)
    : QFontDialog(parent), m_asked(std::move(asked)), m_kind(kind), m_pick(m_asked)
{
    setOption(QFontDialog::DontUseNativeDialog);
    setObjectName(QStringLiteral("FontForm"));
    setWindowTitle(tr("Font"));
    setAttribute(Qt::WA_WindowPropagation);
    m_families = TakeColumn(0, tr("Font"));
    m_styleNames = TakeColumn(1, tr("Font style"));
    m_sizes = TakeColumn(2, tr("Size"));
    TakeEffects();
    TakeSample();
    AddColor();
    ConnectParts();
    SelectAsked();
    // Qt's own has no colours to make room for.
    constexpr qreal kRoom = 1.2;
    resize((QSizeF(size()) * kRoom).toSize());
}

FontPick FontForm::Picked() const
{
    FontPick picked = m_pick;
    picked.isUnderlined = m_underline->isChecked();
    picked.isStruckOut = m_strikeOut->isChecked();
    picked.color = m_color->Color().rgb();
    picked.charset = ChosenCharset({.askedCharset = m_asked.charset,
                                    .askedFamily = m_asked.family,
                                    .chosenFamily = m_pick.family,
                                    .shownFamily = ShownFamily(m_pick.family),
                                    .system = m_system});
    return picked;
}

void FontForm::HideEffects() { m_effects->hide(); }

void FontForm::showEvent(QShowEvent* event)
{
    QFontDialog::showEvent(event);
    for (const Column& column : {m_families, m_styleNames, m_sizes})
        column.list->scrollTo(column.list->currentIndex(), QAbstractItemView::PositionAtCenter);
}

FontForm::Column FontForm::TakeColumn(int index, const QString& accessibleName)
{
    const Column column{PartOf<QLineEdit>(*this, index), PartOf<QListView>(*this, index), new QStringListModel(this)};
    disconnect(column.edit, nullptr, this, nullptr);
    disconnect(column.list, nullptr, this, nullptr);
    column.list->setModel(column.entries);
    column.list->setAccessibleName(accessibleName);
    column.edit->setAccessibleName(accessibleName);
    return column;
}

void FontForm::TakeEffects()
{
    m_effects = PartOf<QGroupBox>(*this, 0);
    m_strikeOut = PartOf<QCheckBox>(*m_effects, 0);
    m_underline = PartOf<QCheckBox>(*m_effects, 1);
    m_systems = PartOf<QComboBox>(*this, 0);
    for (QWidget* part :
         {static_cast<QWidget*>(m_strikeOut), static_cast<QWidget*>(m_underline), static_cast<QWidget*>(m_systems)})
        disconnect(part, nullptr, this, nullptr);
}

void FontForm::TakeSample()
{
    m_sample = PartOf<QLineEdit>(*PartOf<QGroupBox>(*this, 1), 0);
    m_sample->setAccessibleName(tr("Sample"));
}

void FontForm::AddColor()
{
    m_color = new ColorChoice(m_effects);
    auto* label = new QLabel(tr("&Color"), m_effects);
    label->setBuddy(m_color->List());
    if (QLayout* layout = m_effects->layout())
    {
        layout->addWidget(label);
        layout->addWidget(m_color);
    }
    setTabOrder(m_underline, m_color->List());
    setTabOrder(m_color->List(), m_color->OthersButton());
    // Qt's own can be reached by its letter and the mouse alone.
    m_sizes.edit->setFocusPolicy(Qt::StrongFocus);
    m_sizes.edit->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d{0,4}([.,]\\d?)?")), this));
}

void FontForm::ConnectParts()
{
    const auto connectChoice = [this](const Column& column, void (FontForm::*choose)()) {
        connect(column.list->selectionModel(), &QItemSelectionModel::selectionChanged, this, choose);
    };
    connectChoice(m_families, &FontForm::ChooseFamily);
    connectChoice(m_styleNames, &FontForm::ChooseStyle);
    connectChoice(m_sizes, &FontForm::ChooseListedSize);
    connect(m_sizes.edit, &QLineEdit::textChanged, this, &FontForm::TypeSize);
    connect(m_systems, &QComboBox::activated, this, &FontForm::ChooseSystem);
    connect(m_strikeOut, &QCheckBox::toggled, this, &FontForm::ShowSample);
    connect(m_underline, &QCheckBox::toggled, this, &FontForm::ShowSample);
    connect(m_color, &ColorChoice::ColorChanged, this, &FontForm::ShowSample);
}

/// The families are those of the letters that the character set means, as long as the one that is asked is among them.
void FontForm::SelectAsked()
{
    m_strikeOut->setChecked(m_asked.isStruckOut);
    m_underline->setChecked(m_asked.isUnderlined);
    m_color->SetColor(QColor::fromRgb(m_asked.color));
    const QFontDatabase::WritingSystem system = SystemOfCharset(m_asked.charset);
    if (system != QFontDatabase::Any && system < m_systems->count() &&
        (m_asked.family.isEmpty() || OfferedFamilies(system, m_kind).contains(m_asked.family, Qt::CaseInsensitive)))
        m_system = system;
    m_systems->setCurrentIndex(m_system);
    FillSizes();
    FillFamilies();
}

void FontForm::FillFamilies()
{
    const QScopedValueRollback filling(m_isFilling, true);
    const QStringList families = OfferedFamilies(m_system, m_kind);
    m_families.entries->setStringList(families);
    Highlight(m_families, static_cast<int>(IndexOfFamily(families, m_pick.family)));
    m_families.edit->setText(m_pick.family);
    FillStyles();
}

/// A family without the style that is wanted is shown in the nearest one it has, and the wanted one stays.
void FontForm::FillStyles()
{
    const QScopedValueRollback filling(m_isFilling, true);
    m_styles = StylesOf(ShownFamily(m_pick.family));
    QStringList names;
    for (const FontStyle& style : m_styles)
        names.append(style.name);
    m_styleNames.entries->setStringList(names);
    const auto nearest = static_cast<int>(NearestStyle(m_styles, m_pick.weight, m_pick.isItalic));
    Highlight(m_styleNames, nearest);
    m_styleNames.edit->setText(names.at(nearest));
    ShowSample();
}

void FontForm::FillSizes()
{
    const QScopedValueRollback filling(m_isFilling, true);
    QStringList sizes;
    for (const int size : QFontDatabase::standardSizes())
        sizes.append(QString::number(size));
    m_sizes.entries->setStringList(sizes);
    m_sizes.edit->setText(SizeText(m_pick.sizeTenths));
    Highlight(m_sizes, static_cast<int>(sizes.indexOf(SizeText(m_pick.sizeTenths))));
}

void FontForm::Highlight(const Column& column, int row)
{
    const QScopedValueRollback filling(m_isFilling, true);
    if (row >= 0)
        return column.list->setCurrentIndex(column.entries->index(row));
    column.list->clearSelection();
}

void FontForm::ChooseSystem(int index)
{
    m_system = static_cast<QFontDatabase::WritingSystem>(index);
    m_sample->setText(QFontDatabase::writingSystemSample(m_system));
    FillFamilies();
}

void FontForm::ChooseFamily()
{
    const QModelIndexList chosen = m_families.list->selectionModel()->selectedIndexes();
    if (m_isFilling || chosen.isEmpty())
        return;
    m_pick.family = chosen.front().data().toString();
    m_families.edit->setText(m_pick.family);
    FillStyles();
}

void FontForm::ChooseStyle()
{
    const QModelIndexList chosen = m_styleNames.list->selectionModel()->selectedIndexes();
    if (m_isFilling || chosen.isEmpty())
        return;
    const FontStyle& style = m_styles.at(static_cast<std::size_t>(chosen.front().row()));
    m_pick.weight = style.weight;
    m_pick.isItalic = style.isItalic;
    m_styleNames.edit->setText(style.name);
    ShowSample();
}

void FontForm::ChooseListedSize()
{
    const QModelIndexList chosen = m_sizes.list->selectionModel()->selectedIndexes();
    if (!m_isFilling && !chosen.isEmpty())
        m_sizes.edit->setText(chosen.front().data().toString());
}

void FontForm::TypeSize(const QString& text)
{
    if (m_isFilling)
        return;
    m_pick.sizeTenths = TenthsOf(text);
    Highlight(m_sizes, static_cast<int>(m_sizes.entries->stringList().indexOf(SizeText(m_pick.sizeTenths))));
    ShowSample();
}

void FontForm::ShowSample()
{
    constexpr qreal kSizeWithoutOne = 14;
    const QString shown = ShownFamily(m_pick.family);
    QFont font = this->font();
    if (!shown.isEmpty())
        font = QFontDatabase::font(shown, m_styleNames.edit->text(), static_cast<int>(kSizeWithoutOne));
    else
    {
        if (!m_pick.family.isEmpty())
            font.setFamily(m_pick.family);
        font.setWeight(static_cast<QFont::Weight>(m_pick.weight));
        font.setItalic(m_pick.isItalic);
    }
    font.setPointSizeF(m_pick.sizeTenths > 0 ? m_pick.sizeTenths / qreal{kTenths} : kSizeWithoutOne);
    font.setUnderline(m_underline->isChecked());
    font.setStrikeOut(m_strikeOut->isChecked());
    m_sample->setFont(font);

    QPalette colors = palette();
    colors.setColor(QPalette::Text, m_color->Color());
    colors.setColor(QPalette::Base, SampleGround(m_color->Color(), palette().color(QPalette::Base)));
    m_sample->setPalette(colors);
}

}  // namespace quillmarker
