#pragma once

#include <QDialog>

class QListWidget;
class QTextBrowser;

namespace quillmarker::desk
{

/// The help beside its owner, whose work goes on: a list of topics and the text of one. Escape closes it.
class HelpWindow : public QDialog
{
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* owner);

    /// Shows the window with that topic, or with the overview when no topic has the number. The text gets the keys.
    void ShowTopic(int context);
    /// The number of the topic that is shown.
    int Context() const;

private:
    void ShowRow(int row);

    QListWidget* m_topics;
    QTextBrowser* m_text;
};

}  // namespace quillmarker::desk
