#include "messaging/messaging_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class Email : public MessagingTest {
protected:
    void setTemplate(const QString &subject, const QString &body)
    {
        store().updateEmailTemplate(ProspectStore::defaultEmailTemplateID, u"t"_s, subject, body);
    }

    QString prepare(const Prospect &prospect)
    {
        return store().prepareEmail(prospect).value_or(u"done"_s);
    }

    QString automatic(const Prospect &prospect)
    {
        follow(store().sendEmailAutomatically(prospect));
        return answers.back();
    }
};

/// Reads a percent-encoded text; what should have been encoded becomes "<raw>".
QString decoded(const QByteArray &encoded)
{
    QByteArray bytes;
    for (qsizetype at = 0; at < encoded.size(); ++at) {
        const char byte = encoded[at];
        if (byte == '%') {
            bytes += char(encoded.mid(at + 1, 2).toInt(nullptr, 16));
            at += 2;
        } else {
            bytes += isalnum(byte) || strchr("-._~@", byte) ? QByteArray(1, byte) : "<raw>";
        }
    }
    return QString::fromUtf8(bytes);
}

TEST_F(Email, EveryMailProgramReadsThePreparedMessageAsTyped)
{
    Prospect contact = alix();
    contact.email = u" Alix%Menu@Example.org "_s;
    HostileTexts texts;
    for (int round = 0; round < 100; ++round) {
        const QString subject = texts.next();
        const QString body = texts.next();
        setTemplate(subject, body);
        ASSERT_EQ(prepare(contact), u"done"_s);
        const QByteArray url = desktop.workspace.opened.back().toEncoded();
        ASSERT_TRUE(url.startsWith("mailto:") && url.contains("?subject=")) << url.constData();
        const auto query = url.indexOf("?subject=");
        const auto bodyItem = url.indexOf("&body=");
        EXPECT_EQ(decoded(url.mid(7, query - 7)), contact.email);
        ASSERT_EQ(decoded(url.mid(query + 9, bodyItem - query - 9)), subject);
        ASSERT_EQ(decoded(url.mid(bodyItem + 6)), withLineEnds(body, u"\r\n"_s));
    }
    EXPECT_EQ(desktop.pasteboard.content, QString());
    desktop.workspace.accepts = false;
    EXPECT_EQ(prepare(alix()), u"L’application de messagerie n’a pas pu être ouverte."_s);
}

TEST_F(Email, ChecksRunInTheirOrder)
{
    const QString refusals[] = {
        u"Ce contact a demandé à ne plus être destinataire de vos messages."_s,
        u"Aucune adresse e-mail valide n’est renseignée pour ce contact."_s, gone,
        u"L’envoi automatique des e-mails nécessite Apple Mail comme application de messagerie "
        "par défaut."_s};
    desktop.workspace.mailApplication.reset();
    Prospect contact = alix();
    QFile::remove(attach(contact));
    contact.email = u"alix@example.o"_s;
    store().setStopped(true, contact);
    EXPECT_EQ(prepare(contact), refusals[0]);
    EXPECT_EQ(automatic(contact), refusals[0]);
    store().setStopped(false, contact);
    EXPECT_EQ(prepare(contact), refusals[1]);
    EXPECT_EQ(automatic(chloe()), refusals[1]);
    EXPECT_EQ(prepare(alix()), refusals[2]);
    EXPECT_EQ(automatic(alix()), refusals[2]);
    store().removeAttachment(alix());
    EXPECT_EQ(automatic(alix()), refusals[3]);
    desktop.workspace.mailApplication = u"com.apple.Mail"_s;
    EXPECT_EQ(automatic(alix()), refusals[3]);
    EXPECT_TRUE(desktop.scripts.sources.isEmpty() && desktop.workspace.opened.isEmpty());
}

TEST_F(Email, AFileGoesThroughAMailDraftOrTheComposeService)
{
    setTemplate(u"Menu"_s, u"Bonjour"_s);
    const QString path = attach(alix());
    EXPECT_EQ(prepare(alix()), u"done"_s);
    EXPECT_EQ(automatic(alix()), u"done"_s);
    ASSERT_TRUE(scripts.mail.shown.size() == 1 && scripts.mail.sent.size() == 1);
    EXPECT_EQ(scripts.mail.shown.back().attachments, QStringList{path});
    EXPECT_FALSE(scripts.mail.sent.back().visible);
    desktop.workspace.mailApplication = u"org.example.mail"_s;
    EXPECT_EQ(prepare(alix()), u"done"_s);
    const Composition &composition = desktop.sharing.email.performed.back();
    EXPECT_EQ(composition.recipients, QStringList{u"alix@example.org"_s});
    EXPECT_EQ(composition.subject + composition.body, u"MenuBonjour"_s);
    EXPECT_EQ(composition.file, QUrl::fromLocalFile(path));
    desktop.sharing.email.accepts = false;
    EXPECT_EQ(prepare(alix()), u"Ce fichier ne peut pas être joint à cet e-mail."_s);
    desktop.sharing.present = false;
    EXPECT_EQ(prepare(alix()), u"Le service de messagerie n’est pas disponible sur ce Mac."_s);
    EXPECT_TRUE(desktop.workspace.opened.isEmpty());
}

TEST_F(Email, ScriptFailuresHaveTheirMessages)
{
    const QString notAuthorised =
        u"Autorisez Quenoria à contrôler Mail dans Réglages Système > "
        "Confidentialité et sécurité > Automatisation, puis recommencez."_s;
    attach(alix());
    scripts.mail.answer = TransportFailure{u"550"_s};
    EXPECT_EQ(automatic(alix()), notAuthorised);
    EXPECT_EQ(prepare(alix()), notAuthorised);
    const QString line = u"Impossible de préparer la pièce jointe dans Mail : erreur -10000, 550"_s;
    EXPECT_EQ(desktop.log.lines, (QStringList{line, line}));
    scripts.mail.answer = TransportFailure{u"lent"_s, Fate::perhapsSent};
    EXPECT_EQ(automatic(alix()), u"perhaps: lent"_s);
    EXPECT_TRUE(desktop.log.lines.back().endsWith(u"erreur -1712, lent"_s));
    desktop.scripts.answer = [](const QString &) { return ScriptNotCreated{}; };
    EXPECT_FALSE(store().sendEmailAutomatically(alix()).isReady()) << "runs on another thread";
    EXPECT_EQ(automatic(alix()), u"L’e-mail automatique n’a pas pu être préparé dans Mail."_s);
    EXPECT_EQ(prepare(alix()),
              u"Le brouillon avec pièce jointe n’a pas pu être préparé dans Mail."_s);
}

} // namespace
