#pragma once

#include <QColor>
#include <QWidget>

class QComboBox;
class QPushButton;

namespace quillmarker
{

/// A list of the sixteen basic colours by name, and a button that leads to all others.
class ColorChoice : public QWidget
{
    Q_OBJECT

public:
    explicit ColorChoice(QWidget* parent);

    QColor Color() const;
    void SetColor(const QColor& color);

    QComboBox* List() const { return m_list; }
    QPushButton* OthersButton() const { return m_others; }

Q_SIGNALS:
    void ColorChanged();

private:
    void ShowAllColors();
    QIcon Swatch(const QColor& color) const;

    QComboBox* m_list;
    QPushButton* m_others;
};

}  // namespace quillmarker
