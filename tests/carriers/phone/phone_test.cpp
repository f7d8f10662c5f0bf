#include "carriers/bench.h"
#include "platform/linux/phone_road.h"
#include "platform/linux/phone_transport.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <set>

using namespace quenoria;
using namespace quenoria::test;
using namespace std::chrono_literals;

namespace {

const QString device = u"_f00df00d_0000_4000_8000_00000000cafe_"_s;
const QString handle = u"+33639980001"_s;

/// KDE Connect listens on a fixed port and calls out, so it lives in a network of its own.
const QStringList ownNetwork{u"-cn"_s, u"--keep-caps"_s, u"-pf"_s, u"--kill-child"_s};

/// The real KDE Connect, paired with a simulated telephone.
class PhoneBench : public Bench {
protected:
    void SetUp() override
    {
        if (QProcess::execute(u"unshare"_s, ownNetwork + QStringList{u"true"_s}) != 0)
            GTEST_SKIP() << "This system refuses a network of one's own";
    }

    void startPhone(const QStringList &conduct)
    {
        for (const char16_t *name :
             {u"HOME", u"XDG_CONFIG_HOME", u"XDG_DATA_HOME", u"XDG_CACHE_HOME", u"XDG_RUNTIME_DIR"})
            environment.insert(QString::fromUtf16(name), folder.path());
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        const QStringList daemons = QDir(u"/usr/lib"_s).entryList({u"*-linux-gnu*"_s}, QDir::Dirs);
        QString program = u"/usr/libexec/kdeconnectd"_s;
        for (const QString &each : daemons) {
            const QString path = u"/usr/lib/%1/libexec/kdeconnectd"_s.arg(each);
            program = QFileInfo::exists(path) ? path : program;
        }
        start(peer, u"unshare"_s,
              ownNetwork +
                  QStringList{u"/usr/bin/python3"_s, support(u"fake_phone.py"_s), program,
                              folder.path()} +
                  conduct);
        ASSERT_EQ(line(), u"prêt"_s);
        road.watch();
        ASSERT_TRUE(QTest::qWaitFor(
            [this] { return road.found().front().state == CarrierState::ready; }, patience));
    }

    QString send(const QString &text)
    {
        return outcome(await(
            [this, text] { return transport->sendText(MessagesService::SMS, handle, text); }));
    }

    PhoneRoad road{application()};
    std::unique_ptr<PhoneTransport> transport =
        std::make_unique<PhoneTransport>(application(), device, 20s);
};

struct Row {
    const char *name;
    QStringList conduct;
    QString outcome;
    int taken;
    std::chrono::milliseconds patience = 20s;
};

class PhoneSends : public PhoneBench, public testing::WithParamInterface<Row> {};

const QString noAnswer =
    u"? Le téléphone n’a pas répondu à temps : le message est peut-être parti."_s;

TEST_P(PhoneSends, AsItTells)
{
    const Row &row = GetParam();
    startPhone(row.conduct);
    transport = std::make_unique<PhoneTransport>(application(), device, row.patience);
    EXPECT_EQ(send(u"Été : 5 € l’un 👍\nÀ bientôt"_s), row.outcome);
    EXPECT_EQ(lineCount(), row.taken);
}

INSTANTIATE_TEST_SUITE_P(Conducts, PhoneSends,
                         testing::Values(Row{"Sent", {u"outcome=sent"_s}, u"parti"_s, 1},
                                         Row{"Failed",
                                             {u"outcome=failed"_s},
                                             u"Le téléphone n’a pas pu envoyer le message."_s,
                                             1},
                                         Row{"Silent", {u"outcome=none"_s}, noAnswer, 1, 300ms},
                                         Row{"Frozen", {u"frozen=1"_s}, noAnswer, 0, 300ms}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(PhoneBench, GivesThePhoneTheNumberAndTheWholeFile)
{
    startPhone({u"outcome=sent"_s});
    QFile file(folder.filePath(u"un devis.txt"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("octets") == 6);
    file.close();
    const auto sendFile = [&](const QString &path) {
        return outcome(
            await([&, path] { return transport->sendFile(MessagesService::SMS, handle, path); }));
    };
    EXPECT_EQ(sendFile(file.fileName()), u"parti"_s);
    const QJsonObject taken = QJsonDocument::fromJson(line().toUtf8()).object();
    EXPECT_EQ(taken[u"addresses"_s][0][u"address"_s], handle);
    const QJsonValue sent = taken[u"attachments"_s][0];
    EXPECT_EQ(QByteArray::fromBase64(sent[u"base64EncodedFile"_s].toString().toLatin1()), "octets");
    const QString gone = folder.filePath(u"parti.pdf"_s);
    EXPECT_TRUE(transport->fileRefusal(MessagesService::SMS, gone)) << "before the text";
    EXPECT_TRUE(sendFile(gone).startsWith(u"? Le fichier joint"_s));
    EXPECT_EQ(lineCount(), 0);
}

TEST_F(PhoneBench, SendsThroughTheTelephoneThatWasChosenAmongSeveral)
{
    const QString second = u"_f00df00d_0000_4000_8000_00000000beef_"_s;
    startPhone({u"outcome=sent"_s, u"also="_s + second});
    ASSERT_TRUE(QTest::qWaitFor([this] { return road.found().size() == 2; }, patience));
    for (const QString &chosen : {second, device}) {
        transport = std::make_unique<PhoneTransport>(application(), chosen, 20s);
        EXPECT_EQ(send(u"a"_s), u"parti"_s);
        EXPECT_EQ(QJsonDocument::fromJson(line().toUtf8())[u"phone"_s], chosen);
    }
}

/// What came while the program was not running, and what it had heard before.
TEST_F(PhoneBench, ReadsAtEachStartWhatThePhoneStillHolds)
{
    startPhone({u"held=Stop svp|Merci"_s});
    const auto startProgram = [this](PhoneRoad &program) {
        std::set<QString> heard;
        const QObject listener;
        QObject::connect(&program, &SmsRoad::received, &listener,
                         [&heard](const ReceivedMessage &message) { heard.insert(message.text); });
        program.listen(device, [](const QString &number, Instant) { return number == handle; });
        EXPECT_TRUE(QTest::qWaitFor([&heard] { return heard.size() == 2; }, patience));
        return heard;
    };
    const std::set<QString> both{u"Stop svp"_s, u"Merci"_s};
    EXPECT_EQ(startProgram(road), both);
    PhoneRoad again{application()};
    EXPECT_EQ(startProgram(again), both);
}

TEST_F(PhoneBench, ReadsTheAnswersThatItMayReadAndNoOther)
{
    startPhone({u"outcome=sent"_s, u"answer=STOP|Bonjour"_s});
    QStringList heard;
    QObject::connect(&road, &SmsRoad::received,
                     [&heard](const ReceivedMessage &message) { heard << message.text; });
    int asked = 0;
    road.listen(device, [&asked](const QString &number, Instant) {
        return number == handle && ++asked == 1;
    });
    ASSERT_EQ(send(u"a"_s), u"parti"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked >= 2; }, patience));
    EXPECT_EQ(heard, QStringList{u"STOP"_s});
    peer.kill();
    EXPECT_TRUE(QTest::qWaitFor([this] { return road.found().front().id.isEmpty(); }, patience));
    EXPECT_EQ(send(u"a"_s), u"Le téléphone n’est pas joignable."_s);
}

} // namespace
