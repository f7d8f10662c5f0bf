#include "ui/sheets/carriers_view.h"

#include "messaging/send_desk.h"
#include "platform/mail_settings.h"
#include "ui/kit/text_boxes.h"
#include "ui/sheets/new_message_view.h"
#include "ui/sheets/sheet_probe.h"
#include "ui/sheets/stop_replies_view.h"

#include <QCheckBox>
#include <QClipboard>
#include <QRadioButton>

using namespace quenoria;
using namespace quenoria::test;

namespace {

class CarriersSheet : public SheetTest {
protected:
    CarriersSheet()
    {
        desktop.mailbox.program = u"/usr/sbin/sendmail"_s;
        carriers.carriers = {{u"modem:1"_s,
                              u"Clé <b>4G</b>"_s,
                              CarrierState::asksForPin,
                              u"Attend son PIN"_s,
                              {},
                              u"route"_s},
                             {{},
                              u"Téléphone"_s,
                              CarrierState::notInstalled,
                              u"Absent"_s,
                              u"sudo apt install x"_s,
                              {}}};
    }

    static QRadioButton *choice(const QDialog &sheet, const QString &text)
    {
        for (auto *candidate : sheet.findChildren<QRadioButton *>()) {
            if (candidate->text().startsWith(text))
                return candidate;
        }
        return nullptr;
    }

    FakeCarriers &carriers = desktop.carriers;
    SendDesk desk{store(), desktop.platform()};
};

TEST_F(CarriersSheet, ChoosesUnlocksAndTestsTheCarrier)
{
    store().setTestNumber(u"06 39 98 00 77"_s);
    CarriersView sheet(desktop.platform(), desk, nullptr);
    const Probe probe(sheet);
    EXPECT_FALSE(probe.button(u"Tester"_s)->isEnabled()) << "nothing is chosen";
    EXPECT_TRUE(probe.shows(u"06 39 98 00 77"_s) && probe.shows(u"route"_s));
    EXPECT_FALSE(choice(sheet, u"Téléphone"_s)->isEnabled());
    const auto copies = sheet.findChildren<QPushButton *>();
    const auto shown = [](const QPushButton *button) {
        return button->isVisible() && button->text() == u"Copier la commande"_s;
    };
    ASSERT_EQ(std::ranges::count_if(copies, shown), 1);
    (*std::ranges::find_if(copies, shown))->click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"sudo apt install x"_s);
    choice(sheet, u"Clé <b>4G</b>"_s)->click();
    EXPECT_EQ(carriers.choice, u"modem:1"_s);
    EXPECT_FALSE(choice(sheet, u"Aucun"_s)->isChecked());
    probe.type(u"Code PIN de la carte SIM"_s, u"1234"_s);
    carriers.carriers[0].words = carriers.carriers[0].road = u"Attend toujours"_s;
    Q_EMIT carriers.changed();
    EXPECT_FALSE(probe.shows(u"route"_s)) << "a choice that was not there comes with its road";
    for (auto *box : sheet.findChildren<QCheckBox *>())
        box->setChecked(box->text().startsWith(u"Retenir"_s));
    QTest::keyClick(probe.field(u"Code PIN de la carte SIM"_s), Qt::Key_Return);
    EXPECT_TRUE(sheet.isVisible()) << "to tell what came of it";
    probe.press(u"Déverrouiller"_s);
    EXPECT_EQ(carriers.pins, QStringList{u"1234"_s}) << "typed before a change, and given once";
    EXPECT_EQ(carriers.pinUse, PinUse::kept);
    carriers.carriers[0].keepsPin = true;
    Q_EMIT carriers.pinKept(true);
    Q_EMIT carriers.changed();
    EXPECT_TRUE(probe.shows(u"Le code PIN est dans le trousseau."_s));
    probe.press(u"Oublier le code PIN"_s);
    EXPECT_TRUE(carriers.pins.isEmpty());
    probe.press(u"Tester"_s);
    settle();
    ASSERT_EQ(carriers.sent.size(), 1U);
    EXPECT_EQ(carriers.sent[0].recipients, QStringList{u"+33639980077"_s});
    EXPECT_TRUE(probe.shows(u"remis au modem à"_s));
    choice(sheet, u"Aucun"_s)->click();
    EXPECT_EQ(carriers.choice, QString());
}

TEST_F(CarriersSheet, TabGoesDownTheSheetAlsoPastACarrierThatCame)
{
    CarriersView sheet(desktop.platform(), desk, nullptr);
    const Probe probe(sheet);
    carriers.carriers.push_back(carriers.carriers[0]);
    carriers.carriers[2].id = u"modem:2"_s;
    Q_EMIT carriers.changed();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
    int above = 0;
    const QWidget *close = probe.button(u"Fermer"_s);
    for (QWidget *each = close->nextInFocusChain(); each != close;
         each = each->nextInFocusChain()) {
        const bool isPassed = !(each->focusPolicy() & Qt::TabFocus) || !each->isVisibleTo(&sheet);
        if (isPassed || qobject_cast<QAbstractScrollArea *>(each))
            continue;
        const int top = each->mapTo(&sheet, QPoint()).y();
        EXPECT_GT(top + each->height(), above)
            << each->metaObject()->className() << each->property("text").toString().toStdString();
        above = top;
    }
}

TEST_F(CarriersSheet, OffersTheRepliesThatSayStop)
{
    store().recordSent(alix(), desktop.clock.now() - std::chrono::hours(1));
    CarriersView sheet(desktop.platform(), desk, nullptr);
    sheet.findChild<QCheckBox *>()->click();
    EXPECT_TRUE(desktop.preferences.flags[u"ReponsesSTOP"_s]);
    for (const auto &text : {u"Stop <b>"_s, u"STOP"_s})
        Q_EMIT carriers.received({u"0639980010"_s, text, desktop.clock.now()});
    StopRepliesView replies(desk.stopReplies(), desktop.clock.zone(), nullptr);
    const Probe probe(replies);
    EXPECT_EQ(replies.windowTitle(), u"Réponses STOP (2)"_s);
    EXPECT_TRUE(probe.shows(u"ALIX"_s) && probe.shows(u"Stop <b>"_s));
    probe.press(u"Ignorer"_s);
    settle();
    EXPECT_EQ(replies.windowTitle(), u"Réponses STOP (1)"_s);
    EXPECT_FALSE(store().isStopped(alix()));
    probe.press(u"Marquer STOP"_s);
    settle();
    EXPECT_TRUE(store().isStopped(alix()) && probe.shows(u"Aucune réponse STOP en attente"_s));
}

TEST_F(CarriersSheet, OnlyShowsThemInADemonstration)
{
    carriers.fixed = true;
    carriers.choice = u"modem:1"_s;
    CarriersView sheet(desktop.platform(), desk, nullptr);
    const Probe probe(sheet);
    EXPECT_TRUE(probe.shows(u"En démonstration"_s));
    EXPECT_FALSE(choice(sheet, u"Clé"_s)->isEnabled());
    EXPECT_TRUE(choice(sheet, u"Clé"_s)->isChecked());
    EXPECT_FALSE(probe.shows(u"Code PIN"_s));
}

/// What an address fills in: until the user names a server himself.
TEST_F(CarriersSheet, SetsUpTheMailboxAndTestsIt)
{
    desktop.mailbox.place = PasswordPlace::keyring;
    CarriersView sheet(desktop.platform(), desk, nullptr);
    const Probe probe(sheet);
    const auto test = [&sheet] {
        for (auto *button : sheet.findChildren<QPushButton *>()) {
            if (button->accessibleName() == u"Tester l’e-mail"_s)
                return button;
        }
        qFatal("no test");
    };
    EXPECT_FALSE(probe.field(u"Serveur d’envoi"_s)->isVisible()) << "sendmail is the first road";
    EXPECT_TRUE(probe.shows(u"/usr/sbin/sendmail"_s));
    choice(sheet, u"Ma boîte"_s)->click();
    settle();
    QTest::keyClicks(probe.field(u"Votre adresse"_s), u"alix@orange.fr"_s);
    EXPECT_EQ(probe.field(u"Serveur d’envoi"_s)->text(), u"smtp.orange.fr"_s);
    QTest::keyClicks(probe.field(u"Votre adresse"_s), u".example.com"_s);
    EXPECT_EQ(probe.field(u"Serveur d’envoi"_s)->text(), QString());
    EXPECT_FALSE(test()->isEnabled());
    QTest::keyClicks(probe.field(u"Serveur d’envoi"_s), u" smtp.example.com"_s);
    probe.type(u"Votre adresse"_s, {});
    QTest::keyClicks(probe.field(u"Votre adresse"_s), u"alix@gmail.com"_s);
    EXPECT_TRUE(probe.shows(u"compte Google"_s));
    EXPECT_TRUE(probe.shows(u"pas encore connu"_s)) << "the keyring has that of another account";
    probe.type(u"Mot de passe"_s, u"secret"_s);
    EXPECT_TRUE(sheet.hasUnsavedInput());
    for (auto *box : sheet.findChildren<QCheckBox *>())
        box->setChecked(box->text().startsWith(u"Ranger"_s));
    desktop.mailbox.testResult = TransportFailure{u"Refusé <b>"_s};
    desktop.mailbox.placeOfNew = PasswordPlace::memory;
    test()->setFocus();
    test()->click();
    test()->click();
    EXPECT_TRUE(test()->hasFocus()) << "else the sheet scrolls away from the outcome";
    settle();
    EXPECT_EQ(desktop.mailbox.tests, 1);
    EXPECT_EQ(desktop.mailbox.passwords, QStringList{u"secret"_s});
    EXPECT_TRUE(probe.shows(u"Refusé"_s) && probe.shows(u"redemandé à chaque démarrage"_s));
    EXPECT_FALSE(sheet.hasUnsavedInput());
    const MailSettings settings(desktop.preferences);
    EXPECT_EQ(settings.road(), MailRoad::mailbox);
    EXPECT_EQ(settings.account().host, u"smtp.example.com"_s) << "the user's own, trimmed";
    EXPECT_EQ(settings.account().senderAddress, u"alix@gmail.com"_s);
    EXPECT_TRUE(settings.account().keepsCopies);
    desktop.mailbox.testResult = {};
    desktop.mailbox.problem = u"Pas rangée"_s;
    test()->click();
    settle();
    EXPECT_TRUE(probe.shows(u"Regardez s’il arrive dans votre boîte. Pas rangée"_s));
    EXPECT_FALSE(std::ranges::any_of(
        desktop.preferences.texts, [](const auto &entry) { return entry.second == u"secret"_s; }));
}

struct Answer {
    const char16_t *words;
    TransportResult result;
    bool mayTryAgain;
};

class NewMessage : public SheetTest, public testing::WithParamInterface<Answer> {};

TEST_P(NewMessage, IsSentOnceUnlessItCertainlyStayed)
{
    desktop.carriers.answer = GetParam().result;
    QStringList told;
    QObject::connect(&desktop.carriers, &Carriers::composeAnswered,
                     [&told](const Composition &, const QString &words) { told << words; });
    NewMessageView sheet(desktop.carriers, {{u"+33639980077"_s}, {}, u"l’été"_s, {}}, nullptr);
    const Probe probe(sheet);
    probe.press(u"Remplacer par '"_s);
    EXPECT_TRUE(probe.shows(u"1 SMS ·"_s));
    probe.press(u"Envoyer"_s);
    probe.press(u"Envoyer"_s);
    settle();
    ASSERT_EQ(desktop.carriers.sent.size(), 1U);
    EXPECT_EQ(desktop.carriers.sent[0].body, u"l'été"_s);
    EXPECT_TRUE(probe.status().startsWith(QString::fromUtf16(GetParam().words)));
    EXPECT_EQ(told, QStringList{probe.status()});
    EXPECT_EQ(probe.button(u"Envoyer"_s)->isEnabled(), GetParam().mayTryAgain);
}

INSTANTIATE_TEST_SUITE_P(Answers, NewMessage,
                         testing::Values(Answer{u"Remis au modem à ", {}, false},
                                         Answer{u"Non", TransportFailure{u"Non"_s}, true},
                                         Answer{u"Peut-être",
                                                TransportFailure{u"Peut-être"_s, Fate::perhapsSent},
                                                false}));

} // namespace
