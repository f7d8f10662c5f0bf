#include "platform/demo/demo_mail.h"
#include "platform/demo/demo_messages.h"
#include "platform/demo/demo_sharing.h"
#include "platform/demo/demo_workspace.h"
#include "support/fake_desktop.h"

#include <QDir>

#include <gmock/gmock.h>

#include <thread>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class OutboxTest : public testing::Test {
protected:
    QTemporaryDir home;
    FakeClock clock;
    RecordingLog log;
    Disk files;
    Outbox outbox{home.filePath(u"%1 %2 50%3"_s), clock, files};

    QStringList names() const { return QDir(outbox.folder()).entryList(QDir::Files, QDir::Name); }

    QByteArray content(const QString &name) const
    {
        QFile file(QDir(outbox.folder()).filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QString attachment() const
    {
        QFile file(home.filePath(u"devis.pdf"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("%PDF") == 4);
        return file.fileName();
    }
};

TEST_F(OutboxTest, KeepsAnSmsThatAPersonCanRead)
{
    DemoMessages messages(outbox);
    EXPECT_TRUE(messages.offers(MessagesService::RCS) && messages.offers(MessagesService::SMS));
    EXPECT_FALSE(messages.offers(MessagesService::iMessage));
    EXPECT_FALSE(messages.sendText(MessagesService::RCS, u"+33639980001"_s, u"Été\nSTOP"_s));
    EXPECT_FALSE(messages.sendFile(MessagesService::SMS, u"+33639980001"_s, attachment()));
    ASSERT_EQ(names(),
              (QStringList{u"20260310T090000Z-0001.txt"_s, u"20260310T090000Z-0002-devis.pdf"_s,
                           u"20260310T090000Z-0002.txt"_s}));
    EXPECT_EQ(QString::fromUtf8(content(names()[0])),
              u"Destinataire : +33639980001\nService : RCS\nDate : 10/03/2026 10:00:00\n\n"
              "Été\nSTOP\n"_s);
    EXPECT_EQ(content(names()[1]), "%PDF");
    EXPECT_THAT(content(names()[2]).toStdString(),
                testing::HasSubstr("Pièce jointe : devis.pdf\n"));
    EXPECT_EQ(QFileInfo(outbox.folder()).permissions() & 0x0077, 0);
    EXPECT_TRUE(messages.sendFile(MessagesService::SMS, u"+33639980001"_s, u"/nulle/part"_s));
}

TEST_F(OutboxTest, KeepsWhatTheUserWouldSendByHand)
{
    DemoWorkspace workspace(outbox);
    DemoSharing sharing(outbox, log);
    EXPECT_TRUE(workspace.openUrl(QUrl(u"sms:+33639980001?body=1%2B1%20%26%0D%0A%C3%A9%25"_s)));
    EXPECT_TRUE(
        workspace.openUrl(QUrl(u"mailto:a+b@example.fr?subject=d%23%C3%A9&body=x%0D%0Ay"_s)));
    const Composition shared{
        {u"alix@example.fr"_s}, u"Devis"_s, u"Voici"_s, QUrl::fromLocalFile(attachment())};
    ASSERT_TRUE(sharing.composeEmail()->canPerform(shared));
    sharing.composeEmail()->perform(shared);
    sharing.composeMessage()->perform(shared);
    ASSERT_EQ(names().size(), 5);
    EXPECT_THAT(content(names()[0]).toStdString(), testing::EndsWith("\n\n1+1 &\né%\n"));
    EXPECT_THAT(content(names()[1]).toStdString(),
                testing::AllOf(testing::HasSubstr("To: a+b@example.fr\r\n"),
                               testing::HasSubstr("Subject: =?"),
                               testing::HasSubstr("\r\n\r\nx\r\ny")));
    EXPECT_THAT(content(names()[2]).toStdString(),
                testing::HasSubstr(QByteArray("%PDF").toBase64().toStdString()));
    EXPECT_EQ(content(names()[3]), "%PDF");
    EXPECT_TRUE(log.lines.isEmpty());
}

TEST_F(OutboxTest, NeverReplacesAMessage)
{
    DemoMail mail(outbox);
    const OutgoingMessage message{false, u"a"_s, u"b"_s, {u"alix@example.fr"_s}, {}};
    const auto sendTen = [&] {
        for (int count = 0; count < 10; ++count)
            EXPECT_FALSE(mail.send(message));
    };
    std::thread other(sendTen);
    sendTen();
    other.join();
    Outbox restarted(outbox.folder(), clock, files);
    EXPECT_FALSE(restarted.file(message));
    EXPECT_EQ(names().size(), 21);
    clock.advance(std::chrono::seconds(1));
    EXPECT_FALSE(restarted.file(FiledSms{u"SMS"_s, u"+33639980001"_s, u"dernier"_s, {}}));
    EXPECT_TRUE(names().last().endsWith(u".txt"_s));
}

} // namespace
