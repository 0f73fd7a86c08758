#pragma once

#include "font_families.h"
#include "font_styles.h"

#include <QFontDialog>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QListView;
class QStringListModel;

namespace quillmarker
{

class ColorChoice;

struct FontPick
{
    QString family;  // empty: none
    int weight = QFont::Normal;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruckOut = false;
    int sizeTenths = 0;  // tenths of a point; 0: none
    QRgb color = 0xFF000000;
    int charset = 0;

    bool operator==(const FontPick&) const = default;
};

/// Qt's font dialog, filled by us: what its lists hold and what choosing from them means is decided here, as Qt's own does
/// not know fonts that are shown in a twin, a selection without one family or size, half points and colours. What is not
/// chosen stays what was asked.
class FontForm : public QFontDialog
{
    Q_OBJECT

public:
    FontForm(FontPick asked, FontKind kind, QWidget* parent);

    FontPick Picked() const;
    /// Without underline, strike-out and colour.
    void HideEffects();

protected:
    void showEvent(QShowEvent* event) override;

private:
    /// A list, the line above it that shows what is chosen, and its entries.
    struct Column
    {
        QLineEdit* edit = nullptr;
        QListView* list = nullptr;
        QStringListModel* entries = nullptr;
    };

    Column TakeColumn(int index, const QString& accessibleName);
    void TakeEffects();
    void TakeSample();
    void AddColor();
    void ConnectParts();

    void SelectAsked();
    void FillFamilies();
    void FillStyles();
    void FillSizes();
    void Highlight(const Column& column, int row);

    void ChooseSystem(int index);
    void ChooseFamily();
    void ChooseStyle();
    void ChooseListedSize();
    void TypeSize(const QString& text);
    void ShowSample();

    const FontPick m_asked;
    const FontKind m_kind;
    FontPick m_pick;
    QFontDatabase::WritingSystem m_system = QFontDatabase::Any;
    std::vector<FontStyle> m_styles;

    Column m_families;
    Column m_styleNames;
    Column m_sizes;
    QGroupBox* m_effects = nullptr;
    QCheckBox* m_strikeOut = nullptr;
    QCheckBox* m_underline = nullptr;
    QLineEdit* m_sample = nullptr;
    QComboBox* m_systems = nullptr;
    ColorChoice* m_color = nullptr;
    bool m_isFilling = false;  // what the lists say then is no choice
};

}  // namespace quillmarker
