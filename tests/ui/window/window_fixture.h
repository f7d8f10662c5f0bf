#pragma once

#include "messaging/send_desk.h"
#include "store/store_fixture.h"
#include "ui/kit/switches.h"
#include "ui/table/contact_table_view.h"
#include "ui/window/content_view.h"

#include <QAction>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace quenoria::test {

/// The whole window over a fake desktop.
class WindowTest : public StoreTest {
protected:
    Switches switches{desktop.preferences};

    SendDesk &desk()
    {
        if (!m_desk)
            m_desk = std::make_unique<SendDesk>(store(), desktop.platform());
        return *m_desk;
    }

    ContentView &window()
    {
        if (!m_window) {
            m_window = std::make_unique<ContentView>(desk(), switches, desktop.platform());
            m_window->show();
            settle();
        }
        return *m_window;
    }
    void closeWindow() { m_window.reset(); }

    ContactTableView &table() { return *window().findChild<ContactTableView *>(); }

    QAbstractButton *button(const QString &text)
    {
        for (auto *candidate : window().findChildren<QAbstractButton *>()) {
            if (candidate->isVisible() && candidate->text() == text)
                return candidate;
        }
        return nullptr;
    }
    /// The menu entry of a command, which has no button where the window is too narrow.
    QAction *entry(const QString &text)
    {
        for (auto *candidate : window().findChildren<QAction *>()) {
            if (candidate->text() == text)
                return candidate;
        }
        return nullptr;
    }
    void press(const QString &text)
    {
        QAbstractButton *found = button(text);
        QAction *command = found ? nullptr : entry(text);
        ASSERT_TRUE(found || command) << text.toStdString();
        found ? found->click() : command->trigger();
        settle();
    }

    /// Title and message of the alert that is open, which is then left.
    QString alert()
    {
        auto *box = window().findChild<QMessageBox *>();
        if (!box)
            return {};
        const QString shown = box->text() + QStringLiteral(" | ") + box->informativeText();
        delete box;
        return shown;
    }

    void tick(const Prospect &contact, int column)
    {
        const int row = model().contacts().rowOf(contact.id);
        model().setData(model().index(row, column), Qt::Checked, Qt::CheckStateRole);
    }
    ContactTableModel &model() { return dynamic_cast<ContactTableModel &>(*table().model()); }

private:
    std::unique_ptr<SendDesk> m_desk;
    std::unique_ptr<ContentView> m_window;
};

} // namespace quenoria::test
