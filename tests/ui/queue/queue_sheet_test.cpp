#include "ui/queue/queue_fixture.h"

using namespace quenoria;
using namespace quenoria::test;

namespace {

TEST_F(QueueSheets, WorkByHandInTheOrderOfTheLabels)
{
    store->setStopped(true, contact(3));
    show();
    EXPECT_TRUE(shows(u"A"_s) && shows(u"Contact 1 sur 3"_s) && shows(u"0/250 ce mois"_s));
    EXPECT_FALSE(button(u"Envoyé, suivant"_s)->isEnabled());
    desktop.workspace.accepts = false;
    press(u"Préparer ce SMS"_s);
    EXPECT_TRUE(shows(u"Messages n’a pas pu être ouvert."_s));
    desktop.workspace.accepts = true;
    press(u"Préparer ce SMS"_s);
    sheet->tellOutcome({{u"+33639980011"_s}, {}, {}, {}}, u"Remis au modem à 14:02"_s);
    sheet->tellOutcome({{u"+33639980010"_s}, {}, {}, {}}, u"d’un autre"_s);
    EXPECT_TRUE(shows(u"Remis au modem à 14:02"_s));
    press(u"Envoyé, suivant"_s);
    EXPECT_FALSE(shows(u"Remis au modem à 14:02"_s));
    EXPECT_TRUE(shows(u"b"_s) && shows(u"Contact 2 sur 3"_s) && shows(u"1/250 ce mois"_s));
    press(u"Ignorer"_s);
    press(u"Ignorer"_s);
    EXPECT_FALSE(sheet) << "the last contact closes the sheet";
    EXPECT_EQ(sent(1), 1U);
    EXPECT_EQ(sent(0), 0U);
    EXPECT_TRUE(store->sendSelection().empty());
}

/// Older folders hold contacts twice, and edits may give two contacts one number.
TEST_F(QueueSheets, NobodyIsServedTwice)
{
    const QByteArray twin = R"({"id":"0639980011","label":"A","phone":"06 39 98 00 11",
        "email":"a@example.org","department":"29","isCustom":true})";
    desktop.writeFile(u"nouveaux-numeros.json"_s, "[" + twin + "," + twin + "]");
    desktop.writeFile(u"contacts-modifies.json"_s, R"({
        "0639980012":{"label":"c","phone":"+33 6 39 98 00 11","department":"29"},
        "0639980013":{"label":"d","phone":"06 39 98 00 11","department":"29"}})");
    start();
    show();
    EXPECT_TRUE(shows(u"A"_s) && shows(u"Contact 1 sur 4"_s)) << "a twin is one contact";
    press(u"Préparer ce SMS"_s);
    press(u"Envoyé, suivant"_s);
    press(u"Ignorer"_s);
    ASSERT_TRUE(sheet) << "what was passed over is to be read";
    EXPECT_TRUE(shows(u"Sélection terminée"_s));
    EXPECT_TRUE(shows(u"Déjà servi dans cette file sous un autre nom : A"_s));
    EXPECT_EQ(sent(1), 1U);
    EXPECT_EQ(sent(2) + sent(3), 0U);
    EXPECT_EQ(store->sendSelection(), (IdSet{u"0639980012"_s, u"0639980013"_s}));
}

/// The reply comes while the message waits for its turn; the run goes on with the others.
TEST_F(QueueSheets, LeaveOutWhoAnsweredStopUntilTheUserDecides)
{
    for (const int each : {0, 3})
        store->recordSent(contact(each), desktop.clock.now() - 24h);
    desk->stopReplies().setOn(true);
    switches.setAutoValidateSMS(true);
    const auto receive = [this](const QString &number) {
        Q_EMIT desktop.carriers.received({number, u"STOP"_s, desktop.clock.now()});
    };
    receive(u"0639980013"_s);
    show();
    settle();
    desktop.clock.advance(800ms);
    receive(u"+33639980010"_s);
    desktop.clock.advance(10200ms);
    desktop.clock.advance(800ms);
    desktop.clock.advance(0ms);
    EXPECT_EQ(sent(0) + sent(3), 2U);
    EXPECT_EQ(sent(1) + sent(2), 2U) << "the others";
    ASSERT_TRUE(sheet);
    EXPECT_TRUE(shows(u"Laissé de côté jusqu’à votre décision, car sa réponse dit STOP : d, b"_s));
    EXPECT_EQ(store->sendSelection().size(), 2U);
    StopReplies &replies = desk->stopReplies();
    replies.ignore(ReceivedMessage(replies.waiting().at(0).message));
    replies.markStopped(ReceivedMessage(replies.waiting().at(0).message));
    EXPECT_TRUE(shows(u"d"_s)) << "is back";
    EXPECT_EQ(store->sendSelection().size(), 1U);
}

TEST_F(QueueSheets, TellWhatTheCarrierSaidAndLeadToTheOthers)
{
    show();
    EXPECT_TRUE(shows(u"4 contacts · 4 SMS"_s));
    EXPECT_FALSE(button(u"Choisir un moyen d’envoi…"_s)->isVisible());
    delete sheet;
    switches.setAutoValidateEmail(true);
    desktop.scripts.answer = [](const QString &) {
        return ScriptError{u"x"_s, u" Le serveur <b> refuse."_s};
    };
    show(emailChannel());
    settle();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !desk->isBusy(); }));
    settle();
    EXPECT_TRUE(shows(u"Le serveur <b> refuse."_s));
    int asked = 0;
    QObject::connect(sheet, &QueueSheet::carriersRequested, [&asked] { ++asked; });
    for (auto *each : sheet->findChildren<QPushButton *>()) {
        if (each->isVisible() && each->text() == u"Choisir un moyen d’envoi…"_s)
            each->click();
    }
    EXPECT_EQ(asked, 1);
}

TEST_F(QueueSheets, ASecondClickOrAHeldKeyNeverMeetsTheNextContact)
{
    show();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                    QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, {5, 5}, {5, 5}, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(button(u"Ignorer"_s), &event);
    }
    EXPECT_TRUE(shows(u"Contact 2 sur 4"_s));
    button(u"Préparer ce SMS"_s)->setFocus();
    for (const bool repeated : {false, true, true})
        enter(repeated);
    EXPECT_EQ(desktop.workspace.opened.size(), 1);
    EXPECT_EQ(sent(0), 0U);
}

TEST_F(QueueSheets, EnterPreparesAndNeverConfirms)
{
    show();
    for (int time = 0; time < 3; ++time)
        enter(false);
    EXPECT_EQ(desktop.workspace.opened.size(), 3);
    QPushButton *confirm = button(u"Envoyé, suivant"_s);
    confirm->setFocus();
    EXPECT_TRUE(confirm->isEnabled() && confirm->hasFocus());
    enter(false);
    EXPECT_EQ(sent(1), 0U);
    store->setComment(u"rappeler"_s, contact(0));
    EXPECT_TRUE(confirm->hasFocus()) << "left where the user put it";
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent space(type, Qt::Key_Space, {}, u" "_s);
        QCoreApplication::sendEvent(confirm, &space);
    }
    EXPECT_EQ(sent(1), 1U);
    EXPECT_TRUE(button(u"Préparer ce SMS"_s)->hasFocus());
}

TEST_F(QueueSheets, WhoIsLeftOutStaysSelected)
{
    for (const int each : {0, 1})
        store->recordSent(contact(each), desktop.clock.now() - 24h);
    show();
    settle();
    press(u"2 contactés il y a moins de 30 jours"_s);
    press(u"Retirer de cet envoi (2)"_s);
    EXPECT_TRUE(shows(u"c"_s) && shows(u"Contact 1 sur 2"_s) && shows(u"2 contacts · 2 SMS"_s));
    EXPECT_FALSE(button(u"2 contactés il y a moins de 30 jours"_s)->isVisible());
    EXPECT_EQ(store->sendSelection().size(), 4U);
}

} // namespace
