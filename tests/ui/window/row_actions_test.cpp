#include "store/store_fixture.h"
#include "ui/kit/switches.h"
#include "ui/window/row_actions.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class RowButtons : public StoreTest {
protected:
    RowButtons() : actions(std::make_unique<RowActions>(desk, switches, nullptr))
    {
        desktop.workspace.mailApplication = u"com.apple.mail"_s;
        QObject::connect(actions.get(), &RowActions::failed,
                         [this](const QString &title, const QString &text) {
                             failure = title + u" | "_s + text;
                         });
    }

    void perform(RowAction action, const Prospect &contact)
    {
        const QString id = contact.id;
        actions->perform(action, id);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !desk.isBusy(); }));
    }

    SendDesk desk{store(), desktop.platform()};
    Switches switches{desktop.preferences};
    std::unique_ptr<RowActions> actions;
    QString failure;
};

TEST_F(RowButtons, PrepareAndRecordNothing)
{
    perform(RowAction::send(Channel::sms), chloe());
    perform(RowAction::send(Channel::email), alix());
    EXPECT_EQ(desktop.workspace.opened.size(), 2);
    EXPECT_EQ(store().status(chloe()), nullptr);
    EXPECT_EQ(failure, QString());
    perform(RowAction::send(Channel::email), chloe());
    EXPECT_TRUE(failure.startsWith(u"E-mail impossible | "_s));
    store().setStopped(true, chloe());
    perform(RowAction::send(Channel::sms), chloe());
    EXPECT_EQ(failure,
              u"SMS impossible | Cet abonné a demandé à ne plus être destinataire de SMS."_s);
}

TEST_F(RowButtons, SendAndRecord)
{
    switches.setAutoValidateSMS(true);
    switches.setAutoValidateEmail(true);
    perform(RowAction::send(Channel::sms), alix());
    perform(RowAction::send(Channel::email), alix());
    EXPECT_EQ(store().sendHistory(alix()).size(), 1U);
    ASSERT_NE(store().emailStatus(alix()), nullptr) << failure.toStdString();
    EXPECT_EQ(store().smsRecipientsSentThisMonth(), 1);

    desktop.scripts.answer = [](const QString &) { return ScriptError{{}, u"Réseau absent"_s}; };
    perform(RowAction::send(Channel::email), alix());
    EXPECT_TRUE(failure.startsWith(u"Envoi automatique impossible | "_s));
    EXPECT_EQ(store().emailStatus(alix())->sendHistory->size(), 1U);
}

TEST_F(RowButtons, ASecondClickOrdersNothing)
{
    switches.setAutoValidateSMS(true);
    switches.setAutoValidateEmail(true);
    QSemaphore gate;
    desktop.scripts.answer = [&gate](const QString &) {
        gate.acquire();
        return ScriptDone{};
    };
    for (const RowAction action :
         {RowAction::send(Channel::sms), RowAction::send(Channel::email)}) {
        actions->perform(action, alix().id);
        actions->perform(action, alix().id);
    }
    gate.release(4);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !desk.isBusy(); }));
    EXPECT_EQ(desktop.scripts.sources.size(), 2);
    EXPECT_EQ(store().sendHistory(alix()).size() + store().emailHistory(alix()).size(), 2U);
    EXPECT_EQ(failure, QString()) << "no alert either";
}

TEST_F(RowButtons, AMessageThatLeftIsRecordedWithoutItsWindow)
{
    switches.setAutoValidateSMS(true);
    actions->perform(RowAction::send(Channel::sms), chloe().id);
    actions.reset();
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return !store().automaticSMSBusy() && !desktop.scripts.sources.isEmpty(); }));
    EXPECT_EQ(store().sendHistory(chloe()).size(), 1U);
}

TEST_F(RowButtons, AnSMSThatStillWaitsItsTurnIsAbandonedSilently)
{
    switches.setAutoValidateSMS(true);
    perform(RowAction::send(Channel::sms), alix());
    actions->perform(RowAction::send(Channel::sms), chloe().id);
    settle();
    EXPECT_TRUE(desk.isUnderWay(Channel::sms, chloe().id));
    QSignalSpy idle(&desk, &SendDesk::idle);
    desk.close();
    desktop.clock.advance(0ms);
    EXPECT_EQ(idle.size(), 1);
    EXPECT_TRUE(store().sendHistory(chloe()).empty());
    EXPECT_EQ(failure, QString());
}

} // namespace
