#include "platform/linux/linux_mailbox.h"
#include "platform/linux/mail_carrier.h"
#include "platform/linux/sent_folder.h"
#include "support/fake_desktop.h"
#include "support/fake_keyring.h"

#include <QCryptographicHash>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gmock/gmock.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

const QString password = u"sésame"_s;

/// A real server process, and the mailbox of someone who sends through it.
class OwnMailbox : public testing::Test {
protected:
    static QString path(const QString &name)
    {
        static const QTemporaryDir folder;
        return folder.filePath(name);
    }

    static void SetUpTestSuite()
    {
        QProcess openssl;
        openssl.start(u"/usr/bin/openssl"_s,
                      {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s, u"-nodes"_s, u"-subj"_s,
                       u"/O=Essais/CN=localhost"_s, u"-addext"_s, u"subjectAltName=DNS:localhost"_s,
                       u"-days"_s, u"30"_s, u"-keyout"_s, path(u"key"_s), u"-out"_s, authority()});
        ASSERT_TRUE(openssl.waitForFinished()) << openssl.errorString().toStdString();
        QFile both(path(u"both"_s)), key(path(u"key"_s)), certificate(authority());
        ASSERT_TRUE(both.open(QIODevice::WriteOnly) && key.open(QIODevice::ReadOnly) &&
                    certificate.open(QIODevice::ReadOnly));
        both.write(key.readAll() + certificate.readAll());
    }

    static QString authority() { return path(u"certificate"_s); }

    OwnMailbox()
    {
        account.host = u"localhost"_s;
        account.user = account.senderAddress = u"agence@example.com"_s;
        account.senderName = u"L’Agence, « été »"_s;
        conditions.authorities = authority().toUtf8();
    }

    ~OwnMailbox() override
    {
        for (QProcess *process : {&server, &imap}) {
            process->kill();
            process->waitForFinished();
        }
    }

    void start(QStringList arguments)
    {
        if (account.security == SmtpSecurity::implicitTls)
            arguments.prepend(u"--implicit"_s);
        server.start(u"/usr/bin/python3"_s,
                     QStringList{QStringLiteral(QUENORIA_TEST_DATA "/../support/smtp_sink.py"),
                                 u"--certificate"_s, path(u"both"_s)} +
                         arguments);
        account.port = line(server).trimmed().toInt();
    }

    /// The next line that the process prints; empty when it has ended.
    static QByteArray line(QProcess &process)
    {
        while (!process.canReadLine() && process.waitForReadyRead())
            continue;
        return process.readLine();
    }

    QJsonObject received() { return QJsonDocument::fromJson(line(server)).object(); }

    /// "sent", or what the user reads, behind a question mark when the message may have left.
    QString send(const QString &secret = password)
    {
        MailSettings(preferences).setAccount(account);
        passwords->set(KnownPasswords::name(account), secret);
        const auto failure =
            SmtpTransport(clock, preferences, passwords, copies, conditions).send(message);
        if (!failure)
            return u"sent"_s;
        return (failure->fate == Fate::perhapsSent ? u"? "_s : QString()) +
               failure->message.value_or(QString());
    }

    FakeClock clock;
    MemoryPreferences preferences;
    std::shared_ptr<KnownPasswords> passwords = std::make_shared<KnownPasswords>();
    MailboxAccount account;
    SmtpConditions conditions;
    OutgoingMessage message{
        false, u"Été"_s, u"Bonjour,\nÀ bientôt\n"_s, {u"alix@example.fr"_s}, {}};
    RecordingLog log;
    SentCopies copies{preferences, passwords, log, {400ms, authority().toUtf8()}};
    QProcess server;
    QProcess imap;
};

struct Conduct {
    const char *server;
    const char *outcome;
};

class SmtpConduct : public OwnMailbox, public testing::WithParamInterface<Conduct> {};

TEST_P(SmtpConduct, IsToldInASentence)
{
    const QString conduct = QString::fromUtf8(GetParam().server);
    if (conduct.endsWith(u"hang"_s))
        conditions.limit = 400ms;
    start({conduct});
    EXPECT_EQ(send().toStdString(), GetParam().outcome);
}

constexpr auto late = "Le serveur « localhost » n’a pas répondu à temps.";
constexpr auto cut =
    "La connexion au serveur « localhost » a été coupée : le message n’est pas parti.";

INSTANTIATE_TEST_SUITE_P(
    Servers, SmtpConduct,
    testing::Values(
        Conduct{"accept", "sent"}, Conduct{"QUIT hang", "sent"}, Conduct{"QUIT drop", "sent"},
        Conduct{"AUTH 535 5.7.8 Non : c8Opc2FtZQ==",
                "Le serveur « localhost » refuse l’identifiant « agence@example.com » ou son mot "
                "de passe."},
        Conduct{"MAIL 550 5.7.1 Interdit", "Le serveur « localhost » refuse l’expéditeur « "
                                           "agence@example.com » : 550 5.7.1 Interdit"},
        Conduct{"RCPT 550-5.1.1 Inconnu\r\n550 5.1.1 ici",
                "Le serveur « localhost » refuse le destinataire « alix@example.fr » : 550 5.1.1 "
                "Inconnu 5.1.1 ici"},
        Conduct{"RCPT 451 4.7.1 Liste grise", "Le serveur « localhost » demande de réessayer plus "
                                              "tard : 451 4.7.1 Liste grise"},
        Conduct{"GREETING 421 Trop de monde", "Le serveur « localhost » demande de réessayer plus "
                                              "tard : 421 Trop de monde"},
        Conduct{"MAIL 552 5.3.4 Trop", "Le message est trop gros pour le serveur « localhost » : "
                                       "552 5.3.4 Trop"},
        Conduct{"RCPT 552 5.2.2 Pleine",
                "La boîte de « alix@example.fr » est pleine : 552 5.2.2 Pleine"},
        Conduct{"END 550 5.4.5 Demain", "Votre quota d’envoi chez « localhost » est atteint : 550 "
                                        "5.4.5 Demain"},
        Conduct{"END 554 5.7.1 Pourriel",
                "Le serveur « localhost » refuse le message : 554 5.7.1 Pourriel"},
        Conduct{"GREETING hang", late}, Conduct{"EHLO hang", late}, Conduct{"STARTTLS hang", late},
        Conduct{"AUTH hang", late}, Conduct{"MAIL hang", late}, Conduct{"RCPT hang", late},
        Conduct{"DATA hang", late},
        Conduct{"END hang", "? Le serveur « localhost » n’a pas répondu à temps : le message est "
                            "peut-être parti."},
        Conduct{"MAIL drop", cut}, Conduct{"DATA drop", cut},
        Conduct{"END drop", "? La connexion au serveur « localhost » a été coupée avant sa réponse "
                            ": le message est peut-être parti."}));

TEST_F(OwnMailbox, ReachesNobodyThroughAServerThatIsNotWhatItShouldBe)
{
    start({u"accept"_s});
    EXPECT_EQ(send(u"faux"_s), u"Le serveur « localhost » refuse l’identifiant « "
                               "agence@example.com » ou son mot de passe."_s);
    account.host = u"127.0.0.1"_s;
    EXPECT_THAT(send().toStdString(), testing::HasSubstr("n’est pas digne de confiance"));
    account.host = u"localhost"_s;
    conditions.authorities.clear();
    EXPECT_THAT(send().toStdString(),
                testing::MatchesRegex("Le certificat du serveur « localhost » n’est pas digne de "
                                      "confiance : il est au nom de « localhost », délivré par « "
                                      "localhost », valable du ../../20.. au ../../20..\\."));
    account.security = SmtpSecurity::implicitTls;
    EXPECT_THAT(send().toStdString(), testing::HasSubstr("ne chiffre pas la connexion"));
    account.host = u"sans..nom"_s;
    EXPECT_THAT(send().toStdString(), testing::HasSubstr("est introuvable"));
    account.host = u"localhost"_s;
    server.kill();
    server.waitForFinished();
    EXPECT_THAT(send().toStdString(), testing::HasSubstr("n’accepte pas de connexion sur le port"));
    EXPECT_EQ(received(), QJsonObject());
}

TEST_F(OwnMailbox, TakesNoOrderFromATextAndSaysWhoSends)
{
    account.security = SmtpSecurity::implicitTls;
    account.senderName += u"\r\nBcc: tous@example.fr"_s;
    account.replyTo = u"reponse@example.com"_s;
    message.subject += u"\r\nBcc: tous@example.fr"_s + QString(300, u'é');
    message.content += u".\nP.-S.\n"_s;
    start({u"accept"_s});
    ASSERT_EQ(send(), u"sent"_s);
    const QJsonObject mail = received();
    const QJsonObject headers = mail[u"headers"_s].toObject();
    EXPECT_EQ(headers.keys(),
              (QStringList{u"Content-Transfer-Encoding"_s, u"Content-Type"_s, u"List-Unsubscribe"_s,
                           u"MIME-Version"_s, u"Message-Id"_s, u"Reply-To"_s}));
    EXPECT_EQ(headers[u"List-Unsubscribe"_s], u"<mailto:agence@example.com?subject=STOP>"_s);
    EXPECT_EQ(headers[u"Reply-To"_s], account.replyTo);
    EXPECT_TRUE(headers[u"Message-Id"_s].toString().endsWith(u"@example.com>"_s));
    EXPECT_EQ(mail[u"From"_s],
              u"\"L’Agence, « été » Bcc: tous@example.fr\" <agence@example.com>"_s);
    EXPECT_EQ(mail[u"Subject"_s], QString(message.subject).replace(u"\r\n"_s, u" "_s));
    EXPECT_EQ(mail[u"body"_s], QString(message.content).replace(u"\n"_s, u"\r\n"_s));
    EXPECT_EQ(mail[u"envelope"_s], (QJsonArray{u"agence@example.com"_s, u"alix@example.fr"_s}));
    EXPECT_EQ(mail[u"defects"_s], QJsonArray());
    EXPECT_LE(mail[u"longest"_s].toInt(), 998);
    for (QString *address : {&message.recipients[0], &account.replyTo, &account.senderAddress}) {
        *address = u"a@example.fr>\r\nRCPT TO:<tous@example.fr"_s;
        EXPECT_THAT(send().toStdString(), testing::HasSubstr("n’est pas utilisable"));
    }
}

TEST_F(OwnMailbox, NamesAMessageThatIsSentAgainAfterDoubtAsBefore)
{
    start({u"END drop"_s, u"END 550 Non"_s, u"accept"_s});
    QStringList ids;
    for (const auto &outcome : {u"? "_s, u"Le serveur"_s, u"sent"_s}) {
        EXPECT_TRUE(send().startsWith(outcome));
        ids << received()[u"headers"_s][u"Message-Id"_s].toString();
    }
    EXPECT_EQ(ids[0], ids[1]);
    EXPECT_NE(ids[0], ids[2]) << "a message that was refused has not reached anybody";
}

struct CopyConduct {
    const char *imap;
    const char *problem; ///< behind the words that the message has left
};

class Copies : public OwnMailbox, public testing::WithParamInterface<CopyConduct> {};

/// Whatever becomes of the copy, the message is sent, and once.
TEST_P(Copies, NeverMakeASentMessageUnsent)
{
    QStringList arguments{QStringLiteral(QUENORIA_TEST_DATA "/../support/imap_sink.py"),
                          path(u"both"_s)};
    arguments += QString::fromUtf8(GetParam().imap).split(u'|');
    imap.start(u"/usr/bin/python3"_s, arguments);
    account.keepsCopies = true;
    account.imapHost = u"localhost"_s;
    account.imapPort = line(imap).trimmed().toInt();
    start({u"accept"_s});
    ASSERT_EQ(send(), u"sent"_s);
    const QString told = copies.lastProblem().result().value_or(u"… : "_s);
    EXPECT_EQ(told.section(u" : "_s, 1).toStdString(), GetParam().problem);
    EXPECT_EQ(log.lines.isEmpty(), *GetParam().problem == 0);
    EXPECT_FALSE(received().isEmpty());
    if (*GetParam().problem != 0)
        return;
    const QJsonObject kept = QJsonDocument::fromJson(line(imap)).object();
    EXPECT_EQ(kept[u"folder"_s], u"Envoy&AOk-s"_s);
    EXPECT_EQ(kept[u"flags"_s], u"\\Seen"_s);
    EXPECT_TRUE(kept[u"text"_s].toString().contains(u"To: alix@example.fr\r\n"_s));
}

constexpr auto folders = "(\\HasChildren) \"/\" \"Sent\"|(\\sent) \"/\" \"Envoy&AOk-s\"";

INSTANTIATE_TEST_SUITE_P(
    Servers, Copies,
    testing::Values(CopyConduct{folders, ""},
                    CopyConduct{"() \"/\" \"INBOX\"", "La boîte n’a pas de dossier « Envoyés »."},
                    CopyConduct{"AUTHENTICATE=NO Non",
                                "Le serveur « localhost » refuse l’identifiant « "
                                "agence@example.com » ou son mot de passe."},
                    CopyConduct{"() \".\" INBOX.Sent|END=NO [OVERQUOTA] Pleine",
                                "Le serveur « localhost » a refusé : [OVERQUOTA] Pleine"},
                    CopyConduct{"() \".\" Sent|END=drop",
                                "La connexion au serveur « localhost » a été coupée."},
                    CopyConduct{"LIST=hang", "Le serveur « localhost » n’a pas répondu à temps."}));

TEST_F(OwnMailbox, CarriesSixtyMegabytes)
{
    const QByteArray bytes = QByteArray("60 Mo\r\n.\r\n").repeated(6'000'000);
    QFile file(path(u"grand"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() &&
                file.flush());
    message.attachments << file.fileName();
    account.security = SmtpSecurity::implicitTls;
    start({u"accept"_s});
    ASSERT_EQ(send(), u"sent"_s);
    const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
    EXPECT_EQ(received()[u"files"_s][u"grand"_s].toString(), QString::fromLatin1(hash.toHex()));
}

TEST_F(OwnMailbox, KeepsThePasswordInTheKeyringAndForItsServerOnly)
{
    MailSettings settings(preferences);
    FakeKeyring keyring;
    SmtpTransport smtp(clock, preferences, passwords, copies, conditions);
    DraftOpener drafts{QDBusConnection(u"no bus"_s)};
    HandOverProgress progress;
    SendmailTransport sendmail(clock, drafts, progress);
    MailCarrier carrier(smtp, sendmail, preferences);
    const auto mailbox = [&] {
        passwords = std::make_shared<KnownPasswords>();
        return LinuxMailbox(preferences, keyring, passwords, carrier, copies);
    };
    settings.setRoad(MailRoad::mailbox);
    EXPECT_FALSE(carrier.isSetUp());
    settings.setAccount(account);
    EXPECT_TRUE(carrier.isSetUp());
    EXPECT_EQ(mailbox().findPassword().result(), PasswordPlace::nowhere);
    EXPECT_THAT(carrier.send(message)->message->toStdString(),
                testing::HasSubstr("n’est pas connu"));
    EXPECT_EQ(mailbox().setPassword(password).result(), PasswordPlace::keyring);
    EXPECT_EQ(mailbox().findPassword().result(), PasswordPlace::keyring);
    EXPECT_EQ(passwords->of(account), password);

    account.host = u"ailleurs.example.org"_s;
    settings.setAccount(account);
    EXPECT_EQ(passwords->of(settings.account()), std::nullopt) << "another server";
    EXPECT_EQ(mailbox().findPassword().result(), PasswordPlace::nowhere);
    keyring.state = SecretAnswer::State::noKeyring;
    LinuxMailbox last = mailbox();
    EXPECT_EQ(last.setPassword(password).result(), PasswordPlace::memory);
    EXPECT_EQ(last.findPassword().result(), PasswordPlace::memory);
    account.user.clear();
    settings.setAccount(account);
    EXPECT_EQ(last.findPassword().result(), PasswordPlace::notNeeded);
    EXPECT_EQ(settings.account(), account);
    for (const auto &[key, value] : preferences.texts)
        EXPECT_FALSE(value.contains(password)) << key.toStdString();
}

} // namespace
