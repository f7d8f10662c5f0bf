#include "messaging/compose_url.h"
#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

const QString stopped = u"Ce contact a demandé à ne plus être destinataire de vos messages."_s;
const QString noAddress = u"Aucune adresse e-mail valide n’est renseignée pour ce contact."_s;
const QString gone = u"Le fichier joint a été déplacé ou supprimé. Choisissez-le à nouveau."_s;
const QString appleMailNeeded = u"L’envoi automatique des e-mails nécessite Apple Mail comme "
                                "application de messagerie par défaut."_s;
const QString notAuthorised =
    u"Autorisez Quenoria à contrôler Mail dans Réglages Système > Confidentialité et sécurité > "
    "Automatisation, puis recommencez."_s;

class Email : public StoreTest {
protected:
    Email()
    {
        store().updateEmailTemplate(ProspectStore::defaultEmailTemplateID, u"t"_s,
                                    u"50 % & \"plus\" ?"_s, u"a+b\r\nc\rd\n#é"_s);
        desktop.workspace.mailApplication = u"com.apple.mail"_s;
    }

    QString prepare(const Prospect &prospect)
    {
        return store().prepareEmail(prospect).value_or(u"done"_s);
    }

    QString automatic(const Prospect &prospect)
    {
        QString answer = u"pending"_s;
        store().sendEmailAutomatically(prospect).then(
            [&answer](Refusal refusal) { answer = refusal.value_or(u"done"_s); });
        return answer;
    }

    QString attach(const Prospect &prospect)
    {
        desktop.panels.answer = desktop.folders.root.filePath(u"menu.pdf"_s);
        EXPECT_TRUE(QFile(*desktop.panels.answer).open(QIODevice::WriteOnly));
        store().chooseAttachment(prospect);
        return *desktop.panels.answer;
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

TEST_F(Email, EveryMailProgramReadsThePreparedMessageRight)
{
    Prospect contact = alix();
    contact.email = u" Alix%Menu@Example.org "_s;
    ASSERT_EQ(prepare(contact), u"done"_s);
    const QByteArray url = desktop.workspace.opened.back().toEncoded();
    const QList<QByteArray> parts = url.split('?');
    ASSERT_EQ(parts.size(), 2) << url.constData();
    const QList<QByteArray> items = parts[1].split('&');
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(decoded(parts[0].mid(int(strlen("mailto:")))), u" Alix%Menu@Example.org "_s);
    EXPECT_TRUE(items[0].startsWith("subject=") && items[1].startsWith("body="));
    EXPECT_EQ(decoded(items[0].mid(8)), u"50 % & \"plus\" ?"_s);
    EXPECT_EQ(decoded(items[1].mid(5)), u"a+b\r\nc\r\nd\r\n#é"_s);
    EXPECT_EQ(desktop.pasteboard.content, QString());
    desktop.workspace.accepts = false;
    EXPECT_EQ(prepare(alix()), u"L’application de messagerie n’a pas pu être ouverte."_s);
}

TEST_F(Email, AnyTextSurvivesTheURL)
{
    std::uint32_t seed = 7;
    for (int round = 0; round < 2000; ++round) {
        QString text;
        for (int length = 0; length < 12; ++length) {
            seed = seed * 1664525 + 1013904223;
            const char32_t character = (seed >> 8) % (seed >> 31 ? 0x80 : 0x2FFF) + 1;
            text += QString::fromUcs4(&character, 1);
        }
        const QueryItem item{u"body"_s, text};
        const QByteArray url = composeUrl(u"mailto"_s, u"a@example.org"_s, {&item, 1}).toEncoded();
        ASSERT_EQ(decoded(url.mid(url.indexOf("body=") + 5)), text) << url.constData();
    }
}

TEST_F(Email, ChecksRunInTheirOrder)
{
    desktop.workspace.mailApplication.reset();
    Prospect contact = alix();
    QFile::remove(attach(contact));
    contact.email = u"alix@example.o"_s;
    store().setStopped(true, contact);
    EXPECT_EQ(prepare(contact), stopped);
    EXPECT_EQ(automatic(contact), stopped);
    store().setStopped(false, contact);
    EXPECT_EQ(prepare(contact), noAddress);
    contact.email.reset();
    EXPECT_EQ(automatic(contact), noAddress);
    EXPECT_EQ(prepare(alix()), gone);
    EXPECT_EQ(automatic(alix()), gone);
    store().removeAttachment(alix());
    EXPECT_EQ(automatic(alix()), appleMailNeeded);
    desktop.workspace.mailApplication = u"com.apple.Mail"_s;
    EXPECT_EQ(automatic(alix()), appleMailNeeded);
    EXPECT_TRUE(desktop.scripts.sources.isEmpty() && desktop.workspace.opened.isEmpty());
}

TEST_F(Email, AFileGoesThroughAMailDraftOrTheComposeService)
{
    const QString path = attach(alix());
    EXPECT_EQ(prepare(alix()), u"done"_s);
    EXPECT_TRUE(desktop.scripts.sources.back().contains(u"visible:true"_s));
    EXPECT_TRUE(desktop.scripts.sources.back().contains(path));
    desktop.workspace.mailApplication = u"org.example.mail"_s;
    EXPECT_EQ(prepare(alix()), u"done"_s);
    const Composition &composition = desktop.sharing.email.performed.back();
    EXPECT_EQ(composition.recipients, QStringList{u"alix@example.org"_s});
    EXPECT_EQ(composition.subject, u"50 % & \"plus\" ?"_s);
    EXPECT_EQ(composition.file, QUrl::fromLocalFile(path));
    desktop.sharing.email.accepts = false;
    EXPECT_EQ(prepare(alix()), u"Ce fichier ne peut pas être joint à cet e-mail."_s);
    desktop.sharing.present = false;
    EXPECT_EQ(prepare(alix()), u"Le service de messagerie n’est pas disponible sur ce Mac."_s);
    EXPECT_EQ(desktop.scripts.sources.size(), 1);
    EXPECT_TRUE(desktop.workspace.opened.isEmpty());
}

TEST_F(Email, ScriptFailuresHaveTheirMessages)
{
    EXPECT_EQ(automatic(alix()), u"done"_s) << "at once: the script runs on this thread";
    EXPECT_TRUE(desktop.scripts.sources.back().contains(u"send draftMessage"_s));
    attach(alix());
    desktop.scripts.answer = [](const QString &) { return ScriptNotCreated{}; };
    EXPECT_EQ(automatic(alix()), u"L’e-mail automatique n’a pas pu être préparé dans Mail."_s);
    EXPECT_EQ(prepare(alix()),
              u"Le brouillon avec pièce jointe n’a pas pu être préparé dans Mail."_s);
    desktop.scripts.answer = [](const QString &) { return ScriptError{u"panne"_s, u"550"_s}; };
    EXPECT_EQ(automatic(alix()), notAuthorised);
    EXPECT_EQ(prepare(alix()), notAuthorised);
    const QString line = u"Impossible de préparer la pièce jointe dans Mail : panne"_s;
    EXPECT_EQ(desktop.log.lines, (QStringList{line, line}));
    EXPECT_EQ(store().emailStatus(alix()), nullptr) << "recording is the caller's";
}

} // namespace
