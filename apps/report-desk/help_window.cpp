#include "help_window.h"

#include "help_topics.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QSplitter>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace quillmarker::desk
{

HelpWindow::HelpWindow(QWidget* owner) : QDialog(owner), m_topics(new QListWidget), m_text(new QTextBrowser)
{
    constexpr QSize kFirstSize(720, 520);
    constexpr int kListWidth = 190;
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(tr("Report Desk Help"));
    resize(kFirstSize);

    m_topics->setObjectName(QStringLiteral("helpTopics"));
    m_topics->setAccessibleName(tr("Topics"));
    for (const HelpTopic& topic : HelpTopic::kAll)
        m_topics->addItem(topic.Title());
    m_text->setObjectName(QStringLiteral("helpText"));
    m_text->setTabChangesFocus(true);
    connect(m_topics, &QListWidget::currentRowChanged, this, &HelpWindow::ShowRow);

    auto* splitter = new QSplitter;
    splitter->addWidget(m_topics);
    splitter->addWidget(m_text);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({kListWidth, kFirstSize.width() - kListWidth});
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addWidget(buttons);
    m_topics->setCurrentRow(0);
}

void HelpWindow::ShowTopic(int context)
{
    m_topics->setCurrentRow(RowOfTopic(context));
    show();
    raise();
    activateWindow();
    m_text->setFocus();
}

int HelpWindow::Context() const { return HelpTopic::kAll[static_cast<std::size_t>(m_topics->currentRow())].context; }

void HelpWindow::ShowRow(int row)
{
    const HelpTopic& topic = HelpTopic::kAll[static_cast<std::size_t>(row)];
    m_text->setHtml(topic.Text());
    m_text->setAccessibleName(topic.Title());
}

}  // namespace quillmarker::desk
