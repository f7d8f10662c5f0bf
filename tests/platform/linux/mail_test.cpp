#include "platform/linux/fake_portal.h"
#include "platform/linux/linux_sharing.h"
#include "platform/linux/linux_workspace.h"
#include "support/fake_desktop.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QUrlQuery>

#include <gmock/gmock.h>

#include <sys/stat.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// A home folder with programs and settings of its own: a mail application is registered there,
/// and nothing for telephone messages. GIO reads the environment once, so all tests share it.
class Mail : public testing::Test {
protected:
    static QString path(const QString &name)
    {
        static const QTemporaryDir home;
        return home.filePath(name);
    }

    static void write(const QString &name, const QByteArray &content)
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// What the application that was started says into the pipe; waits for it.
    static QString answer()
    {
        QFile pipe(path(u"answer"_s));
        return pipe.open(QIODevice::ReadOnly) ? QString::fromUtf8(pipe.readAll()) : QString();
    }

    static void SetUpTestSuite()
    {
        qputenv("HOME", path({}).toUtf8());
        qputenv("PATH", path(u"bin"_s).toUtf8());
        qunsetenv("XDG_CONFIG_HOME");
        qunsetenv("XDG_DATA_HOME");
        write(u".local/share/applications/courrier.desktop"_s,
              "[Desktop Entry]\nType=Application\nName=Courrier\nExec=" +
                  path(u"courrier"_s).toUtf8() + " %u\nMimeType=x-scheme-handler/mailto;\n");
        write(u".config/mimeapps.list"_s,
              "[Default Applications]\nx-scheme-handler/mailto=courrier.desktop\n");
        write(u"courrier"_s, "#!/bin/sh\nprintf '%s' \"$1\" >\"$HOME/answer\"\n");
        mkfifo(path(u"answer"_s).toUtf8(), S_IRUSR | S_IWUSR);
    }

    Mail()
    {
        QDir(path(u"bin"_s)).removeRecursively();
        QDir().mkpath(path(u"bin"_s));
        QFile::remove(path(u".msmtprc"_s));
    }

    QString send(std::chrono::milliseconds limit = 1min)
    {
        const auto failure = SendmailTransport(clock, drafts, progress, limit).send(message);
        if (!failure)
            return u"sent"_s;
        const QString fate = failure->fate == Fate::perhapsSent ? u"peut-être parti : "_s : u""_s;
        return fate + failure->message.value_or(u"?"_s);
    }

    FakeClock clock;
    HandOverProgress progress;
    DraftOpener drafts{QDBusConnection(u"no bus"_s)};
    OutgoingMessage message{false,
                            u"Été : « l’offre \"3 pour 2\" »"_s,
                            u"Bonjour,\n\n.\nÀ bientôt \\o/\n"_s,
                            {u" alix@example.fr "_s},
                            {}};
};

/// The real msmtp, talking to a real SMTP server.
class Msmtp : public Mail {
protected:
    ~Msmtp() override
    {
        sink.kill();
        sink.waitForFinished();
    }

    void start(const QStringList &conducts)
    {
        sink.start(u"/usr/bin/python3"_s,
                   QStringList{QStringLiteral(QUENORIA_TEST_DATA "/../support/smtp_sink.py")} +
                       conducts);
        write(u".msmtprc"_s,
              "account default\nhost 127.0.0.1\nfrom agence@example.com\nport " + line());
        QFile::link(u"/usr/bin/msmtp"_s, path(u"bin/msmtp"_s));
    }

    /// The next line that the server prints; empty when it has ended.
    QByteArray line()
    {
        while (!sink.canReadLine() && sink.waitForReadyRead())
            continue;
        return sink.readLine();
    }

    QProcess sink;
};

TEST_F(Msmtp, DeliversWhatAnIndependentParserReads)
{
    const QString name = u"l’été \"2026\" ; n°1.txt"_s;
    const QByteArray bytes = QByteArray("a\nb\r\nc\rd\0.\n", 11) + QByteArray(90, '\xE9');
    write(name, bytes);
    message.attachments << path(name);
    start({u"accept"_s});
    ASSERT_EQ(send(), u"sent"_s);
    const QJsonObject expected{
        {u"From"_s, u"agence@example.com"_s},
        {u"To"_s, u"alix@example.fr"_s},
        {u"Subject"_s, message.subject},
        {u"Date"_s, u"Tue, 10 Mar 2026 10:00:00 +0100"_s},
        {u"envelope"_s, QJsonArray{u"agence@example.com"_s, u"alix@example.fr"_s}},
        {u"defects"_s, QJsonArray()},
        {u"body"_s, QString(message.content).replace(u"\n"_s, u"\r\n"_s)},
        {u"files"_s, QJsonObject{{name, QString::fromLatin1(bytes.toHex())}}},
    };
    QJsonObject found = QJsonDocument::fromJson(line()).object();
    found.remove(u"headers"_s);
    found.remove(u"longest"_s);
    EXPECT_EQ(QJsonDocument(found).toJson().toStdString(),
              QJsonDocument(expected).toJson().toStdString());
}

TEST_F(Msmtp, FailsInItsOwnWordsWhenTheServerRefusesOrHangsUp)
{
    start({u"END 550 5.7.1 Message refused"_s, u"END drop"_s});
    EXPECT_THAT(send().toStdString(), testing::HasSubstr("550 5.7.1 Message refused"));
    EXPECT_THAT(send().toStdString(), testing::StartsWith("msmtp: "));
}

struct Sendmail {
    const char *script;
    const char16_t *outcome;
    std::chrono::milliseconds limit = 1min;
};

class SendmailOutcome : public Mail, public testing::WithParamInterface<Sendmail> {};

TEST_P(SendmailOutcome, ComesBack)
{
    write(u"bin/sendmail"_s, QByteArray("#!/bin/sh\n") + GetParam().script);
    message.subject = u"Bonjour\r\nBcc: tous@example.fr"_s;
    EXPECT_EQ(send(GetParam().limit), QStringView(GetParam().outcome));
}

INSTANTIATE_TEST_SUITE_P(
    Programs, SendmailOutcome,
    testing::Values(Sendmail{"[ \"$*\" = '-i -- alix@example.fr' ]", u"sent"},
                    Sendmail{"/bin/grep -q '^Bcc:' && exit 1; exit 0", u"sent"},
                    Sendmail{"echo ' boîte pleine ' >&2; exit 75", u"boîte pleine"},
                    Sendmail{"exit 75", u"Le programme d’envoi « sendmail » a échoué (code 75)."},
                    Sendmail{"kill -9 $$", u"Le programme d’envoi « sendmail » a échoué (code 9)."},
                    Sendmail{"/bin/cat >/dev/null; kill -9 $$",
                             u"peut-être parti : Le programme d’envoi « sendmail » a échoué "
                             "(code 9)."},
                    Sendmail{"exec /bin/sleep 600",
                             u"Le programme d’envoi « sendmail » n’a pas répondu à temps.", 0ms},
                    Sendmail{"/bin/cat >/dev/null; /bin/sleep 600",
                             u"peut-être parti : Le programme d’envoi « sendmail » n’a pas "
                             "répondu à temps.",
                             100ms},
                    Sendmail{"while [ $((n += 1)) -lt 9 ] && read line; do "
                             "/bin/sleep 0.03; done",
                             u"sent", 100ms}));

/// Whatever ends the program, no other one takes a part of the message for the whole.
TEST_F(Mail, EndsAllThatTheProgramStarted)
{
    write(u"bin/sendmail"_s, "#!/bin/sh\n/bin/sleep 600 & echo $! >\"$HOME/child\"; wait");
    EXPECT_EQ(send(100ms), u"Le programme d’envoi « sendmail » n’a pas répondu à temps."_s);
    QFile child(path(u"child"_s));
    ASSERT_TRUE(child.open(QIODevice::ReadOnly));
    QFile left(u"/proc/%1/cmdline"_s.arg(QString::fromLatin1(child.readAll().trimmed())));
    EXPECT_TRUE(!left.open(QIODevice::ReadOnly) || left.readAll().isEmpty());
}

TEST_F(Mail, ATextIsWholeBeforeTheProgramStarts)
{
    message.content = QString(200000, u'x');
    write(u"bin/sendmail"_s, "#!/bin/sh\n/bin/sleep 0.05; exec /usr/bin/wc -c >\"$HOME/size\"");
    ASSERT_EQ(send(), u"sent"_s);
    QFile size(path(u"size"_s));
    ASSERT_TRUE(size.open(QIODevice::ReadOnly));
    EXPECT_GT(size.readAll().trimmed().toInt(), 200000);
}

TEST_F(Mail, RefusesWhatCannotTravel)
{
    write(u"bin/sendmail"_s, "#!/bin/sh\n");
    message.attachments << path(u"parti.pdf"_s);
    EXPECT_EQ(send(), u"Le fichier joint « %1 » ne peut pas être lu."_s.arg(path(u"parti.pdf"_s)));
    message.recipients = {u"alix@example.fr\nBcc: tous@example.fr"_s};
    EXPECT_TRUE(send().startsWith(u"L’adresse « alix"_s));
}

TEST_F(Mail, GoesToTheRegisteredApplicationUnlessAProgramIsSetUp)
{
    MemoryPreferences preferences;
    RecordingLog log;
    const auto passwords = std::make_shared<KnownPasswords>();
    SentCopies copies(preferences, passwords, log);
    SmtpTransport smtp(clock, preferences, passwords, copies);
    SendmailTransport sendmail(clock, drafts, progress);
    const MailCarrier carrier(smtp, sendmail, preferences);
    FakeCarriers carriers;
    LinuxWorkspace workspace(carrier, carriers);
    const QUrl url(u"mailto:alix@example.fr?subject=l'%C3%A9t%C3%A9%20%26&body=a%0D%0Ab"_s);
    write(u"bin/msmtp"_s, "#!/bin/sh\n");
    QFile::link(path(u"bin/msmtp"_s), path(u"bin/sendmail"_s));
    EXPECT_EQ(workspace.defaultApplication(url), u"courrier"_s) << "msmtp is not configured";
    write(u".msmtprc"_s, {});
    EXPECT_EQ(workspace.defaultApplication(url), u"com.apple.mail"_s);
    MailSettings(preferences).setRoad(MailRoad::mailbox);
    EXPECT_EQ(workspace.defaultApplication(url), u"courrier"_s) << "the mailbox is not set up";
    ASSERT_TRUE(workspace.openUrl(url));
    EXPECT_EQ(answer(), QString::fromUtf8(url.toEncoded()));
    EXPECT_FALSE(workspace.openUrl(QUrl(u"sms:+33639980001?body=a"_s))) << "nobody takes them";
}

TEST_F(Mail, DraftsReachTheMailApplicationWithTheirFile)
{
    RecordingLog log;
    FakeCarriers carriers;
    LinuxSharing sharing(drafts, carriers, log);
    EXPECT_EQ(sharing.composeEmail(), nullptr) << "nothing can open a draft";
    // The real one, so that its shell reads what it is given.
    write(u"bin/xdg-email"_s,
          "#!/bin/sh\nPATH=/usr/bin:/bin MAILER=\"$HOME/courrier\" exec /bin/sh "
          "/usr/bin/xdg-email \"$@\"");
    ASSERT_NE(sharing.composeEmail(), nullptr);
    write(u"un devis & 100 %.pdf"_s, "%PDF");
    message.attachments << path(u"un devis & 100 %.pdf"_s);
    message.subject = u"C:\\temp\\c, l’été & 100 % « \\\\ »"_s;
    const Composition draft{{}, {}, {}, QUrl::fromLocalFile(message.attachments[0])};
    EXPECT_TRUE(sharing.composeEmail()->canPerform(draft));
    EXPECT_FALSE(SendmailTransport(clock, drafts, progress).showDraft(message));
    const QUrl opened(answer());
    const QUrlQuery read(opened);
    EXPECT_EQ(opened.path(), u"alix@example.fr"_s);
    EXPECT_EQ(read.queryItemValue(u"subject"_s, QUrl::FullyDecoded), message.subject);
    EXPECT_EQ(read.queryItemValue(u"body"_s, QUrl::FullyDecoded),
              QString(message.content).replace(u"\n"_s, u"\r\n"_s));
    EXPECT_EQ(read.queryItemValue(u"attach"_s, QUrl::FullyDecoded),
              QFileInfo(message.attachments[0]).canonicalFilePath());
    QFile::remove(message.attachments[0]);
    EXPECT_FALSE(sharing.composeEmail()->canPerform(draft));
    sharing.composeEmail()->perform(draft);
    EXPECT_EQ(log.lines.size(), 1);
}

TEST_F(Mail, ADraftThatThePortalRefusesOpensTheOtherWayOnce)
{
    PortalDesk desk;
    const DraftOpener opener(desk.application());
    const Composition draft{{u"alix@example.fr"_s}, u"Devis"_s, {}, {}};
    write(u"bin/xdg-email"_s, "#!/bin/sh\nprintf '%s' \"$1\" >\"$HOME/answer\"");
    desk.portal.error = u"org.freedesktop.portal.Error.InvalidArgument"_s;
    EXPECT_FALSE(opener.open(draft));
    EXPECT_EQ(answer(), u"mailto:alix@example.fr?subject=Devis"_s);
    desk.portal.error = u"org.freedesktop.DBus.Error.NoReply"_s;
    const TransportResult unanswered = opener.open(draft);
    ASSERT_TRUE(unanswered) << "the other way would have succeeded, and opened it twice";
    EXPECT_EQ(unanswered->fate, Fate::perhapsSent);
}

} // namespace
