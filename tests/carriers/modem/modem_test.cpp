#include "carriers/bench.h"
#include "model/sms_length.h"
#include "platform/linux/modem_road.h"
#include "platform/linux/modem_transport.h"
#include "platform/linux/sms_carriers.h"
#include "support/fake_desktop.h"
#include "support/fake_keyring.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

using namespace quenoria;
using namespace quenoria::test;
using namespace std::chrono_literals;

namespace {

const QString equipment = u"490154203237518"_s;
const QString handle = u"+33639980001"_s;

/// The real ModemManager with a simulated modem.
class ModemBench : public Bench {
protected:
    void startModem(const QStringList &conduct = {})
    {
        start(daemon, u"/usr/sbin/ModemManager"_s,
              {u"--test-session"_s, u"--test-enable"_s, u"--test-no-udev"_s,
               u"--test-no-suspend-resume"_s, u"--test-no-qrtr"_s, u"--no-auto-scan"_s});
        plug(peer, u"one"_s, conduct);
        road.watch();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !carrier().id.isEmpty(); }, patience));
    }

    void plug(QProcess &modem, const QString &name, const QStringList &conduct)
    {
        const QStringList ports{u"abstract:"_s + folder.path().section(u'/', -1) + name};
        start(modem, u"/usr/bin/python3"_s,
              QStringList{support(u"fake_modem.py"_s), ports[0]} + conduct);
        while (!modem.canReadLine())
            ASSERT_TRUE(modem.waitForReadyRead());
        ASSERT_EQ(QString::fromUtf8(modem.readLine()).trimmed(), u"prêt"_s);
        const BusOrder find{
            modemRoot, modemManager + u".Test"_s, u"SetProfile"_s, {name, u"generic"_s, ports}};
        ASSERT_TRUE(QTest::qWaitFor([&] { return order(find); }, patience));
    }

    SmsCarriers::Roads roads()
    {
        SmsCarriers::Roads all;
        all.push_back(std::make_unique<ModemRoad>(application()));
        return all;
    }

    bool order(const BusOrder &what)
    {
        return BusService(application(), modemManager).call(what).type() ==
               QDBusMessage::ReplyMessage;
    }

    Carrier carrier() const { return road.found().front(); }

    QString send(const QString &text)
    {
        return outcome(
            await([this, text] { return transport.sendText(MessagesService::SMS, handle, text); }));
    }

    MemoryPreferences preferences;
    FakeKeyring keyring;
    SmsCarriers carriers{preferences, keyring, roads()};
    ModemRoad road{application()};
    ModemTransport::Limits limits{330s, 5s};
    ModemTransport transport{application(), equipment, limits};
};

struct Row {
    const char *name;
    QStringList conduct;
    QString text;
    QString outcome;
    int taken; ///< parts in the modem's file
};

class ModemSends : public ModemBench, public testing::WithParamInterface<Row> {};

TEST_P(ModemSends, AsItTells)
{
    const Row &row = GetParam();
    startModem(row.conduct);
    EXPECT_EQ(send(row.text), row.outcome);
    QString taken;
    for (int part = 0; part < row.taken; ++part)
        taken += QJsonDocument::fromJson(line().toUtf8())[u"text"_s].toString();
    EXPECT_EQ(taken, row.text.left(taken.size()));
    EXPECT_EQ(lineCount(), 0);
}

const QString refusedPart =
    u"? Le réseau a refusé une partie du message (erreur 21) : le début est peut-être parti."_s;

INSTANTIATE_TEST_SUITE_P(
    Conducts, ModemSends,
    testing::Values(
        Row{"OnePart", {}, u"Été : 5 € l’un 👍\nÀ bientôt"_s, u"parti"_s, 1},
        Row{"ThreeParts", {}, QString(400, u'é'), u"parti"_s, 3},
        Row{"Pin", {u"sim=SIM PIN"_s}, u"a"_s, u"La carte SIM du modem attend son code PIN."_s, 0},
        Row{"Puk",
            {u"sim=SIM PUK"_s},
            u"a"_s,
            u"La carte SIM du modem est bloquée (code PUK)."_s,
            0},
        Row{"NoSim", {u"sim=absent"_s}, u"a"_s, u"Le modem n’a pas de carte SIM."_s, 0},
        Row{"Searching",
            {u"registration=2"_s},
            u"a"_s,
            u"Le modem n’est relié à aucun réseau mobile."_s,
            0},
        Row{"Denied",
            {u"registration=3"_s},
            u"a"_s,
            u"Le réseau mobile refuse la carte SIM du modem."_s,
            0},
        Row{"NetworkRefuses",
            {u"refused=21"_s},
            u"a"_s,
            u"Le réseau a refusé le message (erreur 21)."_s,
            0},
        Row{"ModemRefuses",
            {u"refused=ERROR"_s},
            u"a"_s,
            u"Le réseau a refusé le message (Unknown error)."_s,
            0},
        Row{"NetworkIsLate",
            {u"refused=332"_s},
            u"a"_s,
            u"? Le modem n’a pas répondu à temps : le message est peut-être parti."_s,
            0},
        Row{"SecondPartRefused",
            {u"refused=21"_s, u"good=1"_s},
            QString(400, u'a'),
            refusedPart,
            1},
        // The bus itself would give up after 25 seconds, and whoever tried again would send twice.
        Row{"SlowNetwork", {u"delay=26"_s}, u"a"_s, u"parti"_s, 1}),
    [](const auto &row) { return std::string(row.param.name); });

class ModemLoss : public ModemBench, public testing::WithParamInterface<QProcess Bench::*> {};

TEST_P(ModemLoss, InMidSendLeavesTheMessageInDoubt)
{
    startModem({u"mute=1"_s});
    const QFuture<TransportResult> sending = QtConcurrent::run(
        [this] { return transport.sendText(MessagesService::SMS, handle, u"a"_s); });
    ASSERT_EQ(line(), u"muet"_s);
    (this->*GetParam()).kill();
    ASSERT_TRUE(QTest::qWaitFor([&] { return sending.isFinished(); }, patience));
    EXPECT_EQ(outcome(sending.result()),
              u"? Le modem n’a pas répondu à temps : le message est peut-être parti."_s);
}

INSTANTIATE_TEST_SUITE_P(UnpluggedAndDaemonKilled, ModemLoss,
                         testing::Values(&Bench::peer, &Bench::daemon));

TEST_F(ModemBench, DialsNothingButNumbersAndTakesNoFile)
{
    startModem();
    for (const QString &odd :
         {u"abc"_s, u"+33 6"_s, u"06;1"_s, u"12"_s, u"+33639980001\n"_s, u"٠٦٣٩"_s})
        EXPECT_TRUE(transport.sendText(MessagesService::SMS, odd, u"a"_s)) << odd.toStdString();
    EXPECT_TRUE(transport.sendText(MessagesService::SMS, handle, u"a"_s + QChar(0) + u'b'));
    carriers.choose(u"modem:"_s + equipment);
    const QString file = folder.filePath(u"bus"_s);
    const QString noFile = u"Ce transport n’envoie pas de fichier. Retirez le fichier joint, ou "
                           "choisissez le téléphone."_s;
    EXPECT_EQ(outcome(carriers.fileRefusal(MessagesService::SMS, file)), noFile);
    EXPECT_EQ(outcome(carriers.send({{handle}, {}, u"a"_s, QUrl::fromLocalFile(file)}).result()),
              noFile);
    EXPECT_EQ(lineCount(), 0);
    const QString other = outcome(ModemTransport(application(), u"1"_s, limits)
                                      .sendText(MessagesService::SMS, handle, u"a"_s));
    EXPECT_EQ(other, u"Le modem n’est pas branché."_s);
}

TEST_F(ModemBench, ThePinOpensTheCardAndTheListFollows)
{
    startModem({u"sim=SIM PIN"_s});
    EXPECT_EQ(carrier().state, CarrierState::asksForPin);
    using enum PinAnswer::Kind;
    QSignalSpy answers(&road, &SmsRoad::pinAnswered);
    std::vector<PinAnswer::Kind> heard;
    QObject::connect(&road, &SmsRoad::pinAnswered,
                     [&heard](const PinAnswer &answer) { heard.push_back(answer.kind); });
    uint tries = 3;
    for (const auto &pin : {u"0000"_s, u"1234"_s}) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return carrier().pinTries == tries; }, patience));
        --tries;
        road.unlock(equipment, pin);
        ASSERT_TRUE(answers.wait(patience));
    }
    EXPECT_EQ(heard, (std::vector{wrong, taken}));
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return carrier().state == CarrierState::ready; }, patience));
    EXPECT_EQ(send(u"a"_s), u"parti"_s);
    daemon.kill();
    EXPECT_TRUE(QTest::qWaitFor([this] { return carrier().state == CarrierState::notInstalled; },
                                patience));
    EXPECT_EQ(send(u"a"_s), u"Le service des modems (ModemManager) n’est pas en marche."_s);
}

TEST_F(ModemBench, SendsThroughTheModemThatWasChosenAmongSeveral)
{
    const QString second = u"490154203237526"_s;
    startModem();
    QProcess other;
    plug(other, u"two"_s, {u"imei="_s + second});
    carriers.watch();
    const auto isThere = [&] {
        return std::ranges::count(carriers.found(), u"modem:"_s + second, &Carrier::id) == 1;
    };
    ASSERT_TRUE(QTest::qWaitFor(isThere, patience));
    EXPECT_EQ(carriers.found()[1].name, u"Quenoria Modem simule (…7526)"_s);
    const auto chosen = road.transport(second);
    const auto sendText = [&] { return chosen->sendText(MessagesService::SMS, handle, u"a"_s); };
    EXPECT_EQ(outcome(await(sendText)), u"parti"_s);
    EXPECT_TRUE(other.bytesAvailable() > 0 || other.waitForReadyRead());
    EXPECT_EQ(lineCount(), 0);
}

TEST_F(ModemBench, SaysThatThereIsNothingWithoutABus)
{
    ModemRoad lost{QDBusConnection(u"no bus"_s)};
    lost.watch();
    const auto isTold = [&] { return lost.found()[0].state == CarrierState::notInstalled; };
    EXPECT_TRUE(QTest::qWaitFor(isTold, patience));
}

/// The answer is faster than the record of the send.
TEST_F(ModemBench, AsksAgainForAnAnswerThatCouldNotBeReadAtFirst)
{
    startModem({u"answer=STOP"_s});
    QSignalSpy heard(&road, &SmsRoad::received);
    bool isRecorded = false, wasAsked = false;
    road.listen(equipment, [&](const QString &, Instant) {
        wasAsked = true;
        return isRecorded;
    });
    ASSERT_EQ(send(u"a"_s), u"parti"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return wasAsked; }, patience));
    isRecorded = true;
    EXPECT_EQ(send(u"a"_s), u"parti"_s); // the daemon tells of it, as of every change
    EXPECT_TRUE(QTest::qWaitFor([&] { return heard.size() == 1; }, patience));
}

TEST_F(ModemBench, ReadsTheAnswersThatItMayReadAndNoOther)
{
    startModem({u"answer=Stop svp|Bonjour à vous"_s});
    std::vector<ReceivedMessage> heard;
    QObject::connect(&road, &SmsRoad::received,
                     [&heard](const ReceivedMessage &message) { heard.push_back(message); });
    QStringList asked;
    road.listen(equipment, [&asked](const QString &number, Instant) {
        asked << number;
        return asked.size() == 1;
    });
    for (qsizetype count = 1; count <= 2; ++count) {
        ASSERT_EQ(send(u"a"_s), u"parti"_s);
        EXPECT_TRUE(QTest::qWaitFor([&] { return asked.size() >= count; }, patience));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return heard.size() == 1; }, patience));
    EXPECT_EQ(asked.constFirst(), handle);
    const auto noon = std::chrono::sys_days(std::chrono::year(2027) / 3 / 1) + 12h;
    const std::vector stop{ReceivedMessage{handle, u"Stop svp"_s, noon}};
    EXPECT_EQ(heard, stop);
    heard.clear();
    road.listen(equipment, [](const QString &, Instant) { return true; }); // as another start does
    EXPECT_TRUE(QTest::qWaitFor([&] { return heard.size() == 2; }, patience));
    EXPECT_TRUE(std::ranges::find(heard, stop[0]) != heard.end());
}

/// The daemon's own splitting is what the user pays for.
TEST_F(ModemBench, CountsPartsAsTheDaemonSplits)
{
    startModem();
    const QString rows[] = {QString(160, u'a'),
                            QString(161, u'a'),
                            QString(306, u'é'),
                            QString(307, u'é'),
                            QString(80, u'€'),
                            QString(81, u'€'),
                            u"a"_s + QString(80, u'€'),
                            QString(152, u'a') + QString(10, u'€'),
                            QString(70, u'ê'),
                            QString(71, u'ê'),
                            QString(134, u'ê'),
                            QString(135, u'ê'),
                            u"👍"_s.repeated(35),
                            u"👍"_s.repeated(36),
                            u"ê"_s + u"👍"_s.repeated(34),
                            u"👍"_s.repeated(67),
                            u"[{|}]~\\^\f€"_s.repeated(8),
                            u"[{|}]~\\^\f€"_s.repeated(8) + u'a'};
    for (const QString &text : rows) {
        ASSERT_EQ(send(text), u"parti"_s);
        EXPECT_EQ(lineCount(), smsLength(text).parts)
            << text.size() << " × " << text.left(2).toStdString();
    }
}

} // namespace
