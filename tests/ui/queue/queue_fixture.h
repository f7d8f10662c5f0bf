#pragma once

#include "support/fake_desktop.h"
#include "ui/kit/deliberate_input.h"
#include "ui/queue/queue_sheet.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSemaphore>
#include <QTest>

#include <gtest/gtest.h>

namespace quenoria::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class QueueSheets : public testing::Test {
protected:
    QueueSheets()
    {
        desktop.workspace.mailApplication = u"com.apple.mail"_s;
        desktop.resources.files[u"prospects.tsv"_s] = "b\t06 39 98 00 10\tb@example.org\n"
                                                      "A\t06 39 98 00 11\ta@example.org\n"
                                                      "c\t06 39 98 00 12\tc@example.org\n"
                                                      "d\t06 39 98 00 13\n";
        start();
    }

    void start()
    {
        desk.reset();
        store = std::make_unique<ProspectStore>(desktop.platform());
        desk = std::make_unique<SendDesk>(*store, desktop.platform());
        store->updateMessage(ProspectStore::defaultMessageID, u"1er envoi"_s, u"Bonjour"_s);
        store->updateEmailTemplate(ProspectStore::defaultEmailTemplateID, {}, {}, u"Bonjour"_s);
        for (const Prospect &prospect : store->allProspects()) {
            store->setSelectedForSending(true, prospect);
            store->setSelectedForEmailSending(true, prospect);
        }
    }

    ~QueueSheets() override
    {
        delete sheet;
        desktop.clock.advance(0ms);
    }

    Prospect contact(int number) { return *store->prospect(u"06399800%1"_s.arg(10 + number)); }
    std::size_t sent(int number) { return store->sendHistory(contact(number)).size(); }

    void show(const ChannelDescriptor &channel = smsChannel())
    {
        sheet = new QueueSheet(channel, *desk, switches, desktop.platform());
        sheet->present();
        QCoreApplication::processEvents();
    }

    bool shows(const QString &text) const
    {
        return std::ranges::any_of(sheet->findChildren<QLabel *>(), [&](const QLabel *label) {
            return label->isVisible() && label->text() == text;
        });
    }

    QPushButton *button(const QString &text) const
    {
        const auto buttons = sheet->findChildren<QPushButton *>();
        const auto found = std::ranges::find(
            buttons, text, [](QPushButton *each) { return each->text().remove(u'&'); });
        return found == buttons.end() ? nullptr : *found;
    }

    void press(const QString &text)
    {
        button(text)->click();
        settle();
    }

    void enter(bool repeated)
    {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s, repeated);
        QWidget *focused = sheet->focusWidget();
        QCoreApplication::sendEvent(focused ? focused : sheet, &key);
    }

    DeliberateInput input{*qApp};
    FakeDesktop desktop;
    std::unique_ptr<ProspectStore> store;
    std::unique_ptr<SendDesk> desk;
    Switches switches{desktop.preferences};
    QPointer<QueueSheet> sheet;
    QSemaphore gate; ///< of a carrier that waits
};

} // namespace quenoria::test
