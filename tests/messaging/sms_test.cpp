#include "messaging/compose_url.h"
#include "store/prospect_store.h"
#include "support/fake_desktop.h"

#include <QCoroTask>
#include <QFile>
#include <QUrlQuery>

#include <gtest/gtest.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class SMS : public testing::Test {
protected:
    SMS()
    {
        desktop.resources.files[u"prospects.tsv"_s] = "ALIX (29)\t06 39 98 00 10\n"
                                                      "BRUNO (29)\t06 39 98 00 11\n"
                                                      "CHLOÉ (29)\t06 39 98 00 12\n";
        store = std::make_unique<ProspectStore>(desktop.platform());
        store->updateMessage(ProspectStore::defaultMessageID, u"t"_s, u"A & B?\nc+d #é"_s);
        mute = *store->prospect(u"0639980010"_s);
        mute.phone.clear();
    }

    const Prospect &contact(int number)
    {
        return *store->prospect(u"06399800%1"_s.arg(10 + number));
    }

    /// Starts an automatic SMS; its answer appears in answers once it has come.
    void start(const Prospect &prospect, std::stop_token stop = {})
    {
        store->sendSMSAutomatically(prospect, false, stop).then([this](Refusal refusal) {
            answers.push_back(refusal.value_or(u"envoyé"_s));
        });
        settle();
    }

    QString attach(const Prospect &prospect)
    {
        const QString path = desktop.folders.root.filePath(u"a \"b\".pdf"_s);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        desktop.panels.answer = path;
        store->chooseAttachment(prospect);
        return path;
    }

    FakeDesktop desktop;
    std::unique_ptr<ProspectStore> store;
    Prospect mute;
    QStringList answers;
};

const QString stopped = u"Cet abonné a demandé à ne plus être destinataire de SMS."_s;
const QString noMobile = u"Aucun numéro de mobile n’est renseigné pour ce contact."_s;
const QString gone = u"Le fichier joint a été déplacé ou supprimé. Choisissez-le à nouveau."_s;
const QString busy = u"Un autre SMS automatique est déjà en cours. Attendez la fin de cet envoi."_s;

TEST_F(SMS, PreparedTextReachesMessagesAsTyped)
{
    ASSERT_EQ(store->prepareSMS(contact(0), false), std::nullopt);
    const QUrl url = desktop.workspace.opened.back();
    EXPECT_EQ(url.scheme(), u"sms"_s);
    EXPECT_EQ(url.path(), u"+33639980010"_s);
    EXPECT_EQ(QUrlQuery(url).queryItemValue(u"body"_s, QUrl::FullyDecoded), u"A & B?\nc+d #é"_s);
    EXPECT_TRUE(url.toEncoded().contains("body=A%20%26%20B%3F%0Ac%2Bd%20%23%C3%A9"));
    EXPECT_EQ(desktop.pasteboard.content, u"A & B?\nc+d #é"_s);
    EXPECT_EQ(store->status(contact(0)), nullptr) << "preparing records nothing";
    desktop.workspace.accepts = false;
    EXPECT_EQ(store->prepareSMS(contact(0), false), u"Messages n’a pas pu être ouvert."_s);
}

TEST_F(SMS, PreparedWithAFileGoesThroughTheComposeService)
{
    const QString path = attach(contact(0));
    ASSERT_EQ(store->prepareSMS(contact(0), false), std::nullopt);
    const Composition &composition = desktop.sharing.message.performed.back();
    EXPECT_EQ(composition.recipients, QStringList{u"+33639980010"_s});
    EXPECT_EQ(composition.file, QUrl::fromLocalFile(path));
    EXPECT_TRUE(desktop.workspace.opened.isEmpty());
    EXPECT_EQ(desktop.pasteboard.content, composition.body);
    desktop.sharing.message.accepts = false;
    EXPECT_EQ(store->prepareSMS(contact(0), false),
              u"Ce fichier ne peut pas être joint à un message SMS/MMS."_s);
    desktop.sharing.present = false;
    EXPECT_EQ(store->prepareSMS(contact(0), false),
              u"Le service Messages n’est pas disponible sur ce Mac."_s);
}

TEST_F(SMS, ChecksRunInTheirOrder)
{
    desktop.pasteboard.content = u"intact"_s;
    QFile::remove(attach(mute));
    store->setStopped(true, mute);
    EXPECT_EQ(store->prepareSMS(mute, false), stopped);
    start(mute);
    store->setStopped(false, mute);
    EXPECT_EQ(store->prepareSMS(mute, false), noMobile);
    start(mute);
    EXPECT_EQ(store->prepareSMS(contact(0), false), gone);
    start(contact(0));
    EXPECT_EQ(answers, (QStringList{stopped, noMobile, gone}));
    EXPECT_FALSE(store->automaticSMSBusy());
    EXPECT_EQ(desktop.pasteboard.content, u"intact"_s);
    EXPECT_TRUE(desktop.scripts.sources.isEmpty());
}

TEST_F(SMS, TestMessagesIgnoreStopAndRememberTheNumber)
{
    EXPECT_EQ(store->prepareTestSMS(u"06 39 98 00"_s, u"inconnu"_s),
              u"Saisissez un numéro de test valide."_s);
    EXPECT_EQ(store->prepareTestSMS(u"06 39 98 00 55"_s, u"inconnu"_s),
              u"Sélectionnez un modèle de message."_s);
    EXPECT_EQ(store->testNumber(), u"06 39 98 00 00"_s);
    EXPECT_EQ(store->prepareTestSMS(u"06.39.98.00.55"_s, ProspectStore::defaultMessageID),
              std::nullopt);
    EXPECT_EQ(store->testNumber(), u"06.39.98.00.55"_s);
    EXPECT_EQ(desktop.workspace.opened.back().path(), u"+33639980055"_s);
}

TEST_F(SMS, AutomaticSendsKeepElevenSecondsFromTheLastSuccess)
{
    start(contact(0));
    EXPECT_EQ(answers.size(), 1) << "the first one never waits";
    EXPECT_EQ(desktop.workspace.hidden,
              (QStringList{u"com.apple.MobileSMS"_s, u"com.apple.iChat"_s}));
    EXPECT_EQ(desktop.workspace.fronts, 1);
    desktop.clock.advance(3s);
    desktop.scripts.answer = [](const QString &) { return ScriptError{u"panne"_s, u" panne\n"_s}; };
    start(contact(1));
    EXPECT_EQ(desktop.clock.pending(), std::vector{8000ms});
    desktop.clock.advance(7999ms);
    EXPECT_EQ(desktop.scripts.sources.size(), 1);
    desktop.clock.advance(1ms);
    EXPECT_EQ(answers.back(), u"Messages n’a pas confirmé l’envoi : panne"_s);
    EXPECT_EQ(desktop.log.lines, QStringList{u"Envoi SMS direct impossible : panne"_s});
    desktop.scripts.answer = [](const QString &) { return ScriptDone{}; };
    start(contact(1));
    EXPECT_EQ(answers.back(), u"envoyé"_s) << "a failure does not restart the interval";
    desktop.clock.set(desktop.clock.now() - 1h);
    start(contact(2));
    EXPECT_EQ(desktop.clock.pending(), std::vector{11000ms})
        << "a clock set back costs 11 s at most";
    desktop.clock.advance(11s);
}

TEST_F(SMS, OnlyOneAutomaticSendIsUnderWay)
{
    start(contact(0));
    start(contact(1));
    start(contact(2));
    EXPECT_EQ(answers.back(), busy);
    store->setStopped(true, contact(1));
    desktop.clock.advance(11s);
    EXPECT_EQ(answers.back(), stopped) << "STOP that came during the wait";
    EXPECT_FALSE(store->automaticSMSBusy());
}

TEST_F(SMS, QuotaIsRefusedBeforeTheBusyFlagIsLookedAt)
{
    for (int key = 0; key < ProspectStore::standardSMSMonthlyRecipientLimit - 1; ++key) {
        Prospect other;
        other.id = u"k%1"_s.arg(key);
        store->recordSentNow(other);
    }
    start(contact(0));
    store->recordSentNow(contact(0));
    start(contact(0));
    start(contact(1));
    EXPECT_TRUE(answers.back().startsWith(u"Limite mensuelle atteinte"_s));
    EXPECT_TRUE(store->prepareSMS(contact(1), false)->startsWith(u"Limite mensuelle"_s));
    EXPECT_EQ(store->prepareSMS(contact(1), true), std::nullopt);
    desktop.clock.advance(11s);
}

TEST_F(SMS, AWaitThatIsGivenUpSendsNothing)
{
    start(contact(0));
    std::stop_source source;
    start(contact(1), source.get_token());
    source.request_stop();
    desktop.clock.advance(0s);
    ASSERT_EQ(answers.size(), 2);
    EXPECT_EQ(desktop.scripts.sources.size(), 1);
    EXPECT_FALSE(store->automaticSMSBusy());
}

TEST_F(SMS, ScriptFailuresHaveTheirMessages)
{
    const std::pair<ScriptOutcome, QString> failures[] = {
        {ScriptNotCreated{}, u"L’envoi direct n’a pas pu être préparé dans Messages."_s},
        {ScriptError{u"x"_s, {}},
         u"Messages n’a pas confirmé l’envoi. Vérifiez l’autorisation Automatisation dans les Réglages Système."_s},
        {ScriptError{u"x"_s, u" \n"_s},
         u"Messages n’a pas confirmé l’envoi. Vérifiez l’autorisation Automatisation dans les Réglages Système."_s},
    };
    for (const auto &[outcome, message] : failures) {
        desktop.scripts.answer = [&outcome](const QString &) { return outcome; };
        start(contact(0));
        EXPECT_EQ(answers.back(), message);
    }
    EXPECT_EQ(store->lastAutomaticSMSSentAt(), std::nullopt);
}

} // namespace
