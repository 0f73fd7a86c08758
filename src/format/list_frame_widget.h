#pragma once

#include "font_name_index.h"
#include "picker_frame_widget.h"

#include <optional>

namespace quillmarker
{

class PickerList;

/// A panel with a list in it, which has the panel's focus.
class ListFrame : public PickerFrame
{
    Q_OBJECT

public:
    ~ListFrame() override;
    ListFrame(const ListFrame&) = delete;
    ListFrame& operator=(const ListFrame&) = delete;

    /// The entries, each as it was given.
    QStringList Items() const;
    void SetItems(const QStringList& items);

    /// Called before it is shown. Selects the first entry that equals `selectedText`, case and blanks around ignored; none
    /// where there is none. The panel has its own size again.
    void Prepare(const std::optional<QString>& selectedText);

    PickerList& List() const { return *m_list; }

    QSize sizeHint() const override;
    int LeastHeight() const override;

Q_SIGNALS:
    /// An entry was clicked, or was the current one when Enter was pressed.
    void Chosen(const QString& text);

protected:
    struct Extent
    {
        int twipsWide;
        int rows;  // at most
    };
    ListFrame(Extent extent, const QString& listName, QWidget* parent);

private:
    int HeightOf(int rows) const;

    Extent m_extent;
    PickerList* m_list;
    FontNameIndex m_index;
};

/// "FontFrame", with the list "fName" of font families, each in its own face.
class FontFrame : public ListFrame
{
    Q_OBJECT

public:
    explicit FontFrame(QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void SetNames();
};

/// "SizeFrame", with the list "fSize" of font sizes.
class SizeFrame : public ListFrame
{
    Q_OBJECT

public:
    explicit SizeFrame(QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void SetNames();
};

}  // namespace quillmarker
