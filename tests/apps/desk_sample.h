#pragma once

#include "main_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace quillmarker::desk
{

inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

/// A user of the window: presses keys, and answers what is asked, in the order in which it was planned.
class DeskTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        ASSERT_TRUE(m_folder.isValid());
        OpenWindow();
        m_watch.setInterval(0);
        QObject::connect(&m_watch, &QTimer::timeout, [this] { Answer(); });
        m_watch.start();
    }

    void TearDown() override
    {
        m_watch.stop();
        EXPECT_TRUE(m_plan.empty()) << m_plan.size() << " questions were not asked";
        EXPECT_THAT(m_unexpected, ::testing::IsEmpty());
    }

    /// As the program does: a window over the settings of the one before.
    void OpenWindow()
    {
        m_window.reset();
        m_settings = std::make_unique<QSettings>(InFolder("settings.ini"), QSettings::IniFormat);
        m_window = std::make_unique<MainWindow>(*m_settings);
        m_window->show();
        QApplication::setActiveWindow(m_window.get());
        View().setFocus();
        QApplication::processEvents();
    }

    MainWindow& Window() { return *m_window; }
    RichTextView& View() { return *qobject_cast<RichTextView*>(m_window->Editor().RTFObj()); }
    QAction& Action(const char* name) { return *m_window->menuBar()->findChild<QAction*>(QLatin1String(name)); }
    QSettings& Settings() { return *m_settings; }

    QString InFolder(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    QString Written(const char* name, const QByteArray& bytes) const
    {
        QFile file(InFolder(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }
    static QByteArray Read(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    /// Who gets the keys. Without a window system nobody makes the window active again when a dialog closes.
    QWidget* Focus()
    {
        QApplication::setActiveWindow(m_window.get());
        return m_window->focusWidget();
    }

    void Type(const char* text)
    {
        QTest::keyClicks(Focus(), QLatin1String(text));
        QApplication::processEvents();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(Focus(), key, modifiers);
        QApplication::processEvents();
    }
    QString Text() { return m_window->Editor().TextString(); }

    /// The next message box is answered by this button; what it said is in Told().
    void PlanButton(QMessageBox::StandardButton button)
    {
        m_plan.push_back([this, button](QWidget& dialog) {
            auto* box = qobject_cast<QMessageBox*>(&dialog);
            if (!box || !box->button(button))
                return false;
            m_told.append(box->text() + QLatin1Char(' ') + box->informativeText());
            QTest::mouseClick(box->button(button), Qt::LeftButton);
            return true;
        });
    }

    /// The next file dialog is given this name, which is typed, and the Return key.
    void PlanFileName(const QString& name)
    {
        m_plan.push_back([name](QWidget& dialog) {
            auto* files = qobject_cast<QFileDialog*>(&dialog);
            auto* edit = files ? files->findChild<QLineEdit*>() : nullptr;
            if (!edit)
                return false;
            edit->setText(name);
            QTest::keyClick(edit, Qt::Key_Return);
            return true;
        });
    }

    /// The next dialog is answered like that; false: it is not the one that was meant.
    void Plan(std::function<bool(QWidget& dialog)> answer) { m_plan.push_back(std::move(answer)); }

    const QStringList& Told() const { return m_told; }

private:
    void Answer()
    {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog || dialog == m_answered)
            return;
        m_answered = dialog;
        if (!m_plan.empty())
        {
            const auto answer = m_plan.front();
            m_plan.erase(m_plan.begin());
            if (answer(*dialog))
            {
                m_answered = QApplication::activeModalWidget() == dialog ? dialog : nullptr;
                return;
            }
        }
        m_unexpected.append(dialog->metaObject()->className() + QStringLiteral(": ") + dialog->windowTitle());
        dialog->close();
        m_answered = nullptr;
    }

    QTemporaryDir m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<MainWindow> m_window;
    QTimer m_watch;
    std::vector<std::function<bool(QWidget&)>> m_plan;
    QWidget* m_answered = nullptr;
    QStringList m_told;
    QStringList m_unexpected;
};

}  // namespace quillmarker::desk
