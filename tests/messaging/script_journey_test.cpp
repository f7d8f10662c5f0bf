#include "messaging/mail_script.h"
#include "messaging/messages_script.h"
#include "platform/applescript/apple_script_host.h"
#include "platform/applescript/mail_application.h"
#include "platform/applescript/messages_application.h"
#include "store/store_fixture.h"
#include "support/recording_transports.h"

#include <random>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

const auto sms = MessagesService::SMS;
const auto rcs = MessagesService::RCS;
const auto iMessage = MessagesService::iMessage;
const MailDraft draft{u"Alix@example.org"_s,
                      u"Menu \"été\" \\ 1"_s,
                      u"Bonjour \"Alix\"\r\n\rC:\\menu, à bientôt"_s,
                      {}};
const QString path = u"/documents/menu \"été\".pdf"_s;

/// A desktop whose scripts are interpreted, down to the transports.
class Journey : public StoreTest {
protected:
    Journey()
    {
        desktop.scripts.answer = [this](const QString &source) { return host.run(source); };
    }

    QString sendToAlix()
    {
        QString answer = u"pending"_s;
        store().sendSMSAutomatically(alix(), true).then([&answer](Refusal refusal) {
            answer = refusal.value_or(u"sent"_s);
        });
        settle();
        return answer;
    }

    RecordingMessages transport;
    RecordingMail post;
    MessagesApplication messages{transport};
    MailApplication mail{post};
    AppleScriptHost host{{&messages, &mail}, [](std::chrono::nanoseconds) {}};
};

TEST(ScriptTexts, AreTheDocumentedOnesToTheByte)
{
    MailDraft withFile = draft;
    withFile.attachmentPath = path;
    const std::pair<QString, QString> texts[] = {
        {u"messages"_s, messagesScript(u"+33639980010"_s, draft.body, {})},
        {u"messages_with_file"_s, messagesScript(u"+33639980010"_s, draft.body, path)},
        {u"mail_draft"_s, mailScript(draft, MailDelivery::Draft)},
        {u"mail_draft_with_file"_s, mailScript(withFile, MailDelivery::Draft)},
        {u"mail_immediate"_s, mailScript(draft, MailDelivery::Immediate)},
        {u"mail_immediate_with_file"_s, mailScript(withFile, MailDelivery::Immediate)},
    };
    for (const auto &[name, text] : texts) {
        QFile golden(u"" QUENORIA_TEST_DATA "/scripts/%1.applescript"_s.arg(name));
        ASSERT_TRUE(golden.open(QIODevice::ReadOnly));
        EXPECT_EQ(text.toStdString(), golden.readAll().toStdString()) << name.toStdString();
    }
}

TEST(ScriptTexts, HandlesAreInternational)
{
    EXPECT_EQ(messagingHandle(u"06 39 98 00 10"_s), u"+33639980010"_s);
    EXPECT_EQ(messagingHandle(u"+33 6 39 98 00 10"_s), u"+33639980010"_s);
    EXPECT_EQ(messagingHandle(u"33.6.39.98.00.10"_s), u"+33639980010"_s);
    EXPECT_EQ(messagingHandle(u"1 555 010 00 00"_s), u"15550100000"_s);
}

/// Texts made of what could break out of a quoted string, or be changed on the way.
class HostileTexts {
public:
    QString next()
    {
        static const QStringList fragments{u"\""_s,
                                           u"\\"_s,
                                           u"\\\""_s,
                                           u"\\n"_s,
                                           u"\r\n"_s,
                                           u"\r"_s,
                                           u"\n"_s,
                                           u" "_s,
                                           u"\t"_s,
                                           u"é"_s,
                                           u"👩‍👩‍👧"_s,
                                           u"\u2028"_s,
                                           u"\u2029"_s,
                                           u"\u0085"_s,
                                           u"¬\n"_s,
                                           u"--"_s,
                                           u"&%+?#="_s,
                                           u"\" & (do shell script \"x\") & \""_s,
                                           u"\" & return & \""_s,
                                           u"\"\nend tell\n"_s,
                                           u"missing value"_s,
                                           QString(QChar(0)),
                                           u"«»{}:,"_s};
        QString text;
        for (auto count = m_random() % 12; count > 0; --count)
            text += fragments[qsizetype(m_random() % std::size_t(fragments.size()))];
        return text;
    }

    QString fileName() { return u"a"_s + next().remove(QChar(0)).left(60); }

private:
    std::mt19937 m_random{20260310};
};

QString lineFeeds(QString text) { return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n'); }

TEST_F(Journey, HostileTextsArriveAsTheyWereTyped)
{
    transport.offered = {{sms, {}}};
    HostileTexts texts;
    for (int round = 0; round < 3000; ++round) {
        QString file;
        if (round % 20 == 0) {
            file = desktop.folders.root.filePath(texts.fileName());
            ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly));
        }
        const std::optional<QString> attached = file.isEmpty() ? std::nullopt : std::optional(file);
        const MailDraft typed{texts.next(), texts.next(), texts.next(), attached};
        const QString body = lineFeeds(typed.body);
        transport.carried.clear();
        const ScriptOutcome sent = host.run(messagesScript(typed.address, typed.body, attached));
        ASSERT_TRUE(std::holds_alternative<ScriptDone>(sent));
        QStringList expected{u"SMS "_s + typed.address + u' ' + body};
        if (attached)
            expected << u"SMS "_s + typed.address + u" file "_s + file;
        ASSERT_EQ(transport.carried, expected);

        const ScriptOutcome mailed = host.run(mailScript(typed, MailDelivery::Immediate));
        ASSERT_TRUE(std::holds_alternative<ScriptDone>(mailed));
        const OutgoingMessage &message = post.sent.back();
        ASSERT_EQ(message.recipients, QStringList{typed.address});
        ASSERT_EQ(message.subject, typed.subject);
        ASSERT_EQ(message.content, body);
        ASSERT_EQ(message.attachments, attached ? QStringList{file} : QStringList());
    }
    EXPECT_EQ(post.sent.size(), 3000U);
}

TEST_F(Journey, TextsFallBackFromRCSAndFailuresAreReadByTheUser)
{
    const TransportResult down = TransportFailure{u"réseau absent"_s};
    const TransportResult silent = TransportFailure{};
    const QString failed = u"Messages n’a pas confirmé l’envoi : "_s;
    const QString unexplained = u"Messages n’a pas confirmé l’envoi. Vérifiez l’autorisation "
                                "Automatisation dans les Réglages Système."_s;
    const struct {
        std::map<MessagesService, TransportResult> offered;
        QString answer;
        QString tried;
    } rows[] = {
        {{{rcs, {}}, {sms, {}}}, u"sent"_s, u"RCS"_s},
        {{{rcs, down}, {sms, {}}, {iMessage, {}}}, u"sent"_s, u"RCS SMS"_s},
        {{{rcs, down}, {iMessage, {}}}, failed + u"réseau absent"_s, u"RCS"_s},
        {{{rcs, silent}, {sms, down}}, failed + u"réseau absent"_s, u"RCS SMS"_s},
        {{{rcs, silent}}, unexplained, u"RCS"_s},
        {{{sms, silent}}, unexplained, u"SMS"_s},
        {{{iMessage, {}}}, u"sent"_s, u"iMessage"_s},
        {{}, failed + u"Aucun service Messages actif"_s, u""_s},
    };
    for (const auto &row : rows) {
        transport.offered = row.offered;
        transport.carried.clear();
        restart();
        EXPECT_EQ(sendToAlix(), row.answer);
        QStringList tried;
        for (const QString &line : transport.carried)
            tried << line.section(u' ', 0, 0);
        EXPECT_EQ(tried.join(u' '), row.tried);
    }
}

} // namespace
