#include "messaging/mail_script.h"
#include "messaging/messages_script.h"
#include "messaging/messaging_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

using Journey = MessagingTest;

TEST(ScriptTexts, AreTheDocumentedOnesToTheByte)
{
    const MailDraft draft{u"Alix@example.org"_s,
                          u"Menu \"été\" \\ 1"_s,
                          u"Bonjour \"Alix\"\r\n\rC:\\menu, à bientôt"_s,
                          {}};
    MailDraft withFile = draft;
    withFile.attachmentPath = u"/documents/menu \"été\".pdf"_s;
    const QString handle = messagingHandle(u"+33 6 39.98 00 10"_s);
    const std::pair<QString, QString> texts[] = {
        {u"messages"_s, messagesScript(handle, draft.body, {})},
        {u"messages_with_file"_s, messagesScript(handle, draft.body, withFile.attachmentPath)},
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
    EXPECT_EQ(messagingHandle(u"1 555 010 00 00"_s), u"15550100000"_s);
}

TEST_F(Journey, HostileTextsArriveAsTheyWereTyped)
{
    HostileTexts texts;
    for (int round = 0; round < 2000; ++round) {
        MailDraft typed{texts.next(), texts.next(), texts.next(), {}};
        const QString body = withLineEnds(typed.body, u"\n"_s);
        QStringList carried{u"SMS "_s + typed.address + u' ' + body};
        QStringList attachments;
        if (round % 10 == 0) {
            const QString name = u"a"_s + texts.next().remove(QChar(0)).left(60);
            typed.attachmentPath = desktop.folders.root.filePath(name);
            ASSERT_TRUE(QFile(*typed.attachmentPath).open(QIODevice::WriteOnly));
            carried << u"wait 500 ms"_s
                    << u"SMS "_s + typed.address + u" file "_s + *typed.attachmentPath
                    << u"wait 2000 ms"_s;
            attachments << *typed.attachmentPath;
        }
        scripts.messages.carried.clear();
        const ScriptOutcome outcomes[] = {
            scripts.host.run(messagesScript(typed.address, typed.body, typed.attachmentPath)),
            scripts.host.run(mailScript(typed, MailDelivery::Immediate))};
        for (const ScriptOutcome &outcome : outcomes)
            ASSERT_TRUE(std::holds_alternative<ScriptDone>(outcome)) << typed.body.toStdString();
        ASSERT_EQ(scripts.messages.carried, carried);
        const OutgoingMessage &message = scripts.mail.sent.back();
        ASSERT_EQ(message.recipients, QStringList{typed.address});
        ASSERT_EQ(message.subject, typed.subject);
        ASSERT_EQ(message.content, body);
        ASSERT_EQ(message.attachments, attachments);
    }
}

TEST_F(Journey, TextsFallBackFromRCSAndFailuresAreReadByTheUser)
{
    const auto sms = MessagesService::SMS;
    const auto rcs = MessagesService::RCS;
    const auto iMessage = MessagesService::iMessage;
    const TransportResult down = TransportFailure{u" réseau absent\n"_s};
    const TransportResult lost = TransportFailure{u"muet"_s, Fate::perhapsSent};
    const TransportResult silent = TransportFailure{};
    const QString failed = u"Messages n’a pas confirmé l’envoi : "_s;
    const QString unexplained = u"Messages n’a pas confirmé l’envoi. Vérifiez l’autorisation "
                                "Automatisation dans les Réglages Système."_s;
    const struct {
        std::map<MessagesService, TransportResult> offered;
        QString tried;
        QString answer;
        TransportResult file = {};
    } rows[] = {
        {{{rcs, {}}, {sms, {}}}, u"RCS wait RCS wait"_s, u"done"_s},
        {{{rcs, down}, {sms, {}}, {iMessage, {}}}, u"RCS SMS wait SMS wait"_s, u"done"_s},
        {{{rcs, down}, {iMessage, {}}}, u"RCS"_s, failed + u"réseau absent"_s},
        {{{rcs, silent}, {sms, down}}, u"RCS SMS"_s, failed + u"réseau absent"_s},
        {{{rcs, silent}}, u"RCS"_s, unexplained},
        {{{sms, TransportFailure{u" \n"_s}}}, u"SMS"_s, unexplained},
        {{{iMessage, {}}}, u"iMessage wait iMessage wait"_s, u"done"_s},
        {{{rcs, lost}, {sms, {}}}, u"RCS"_s, u"perhaps: muet"_s},
        {{{sms, {}}}, u"SMS wait SMS"_s, u"perhaps: réseau absent"_s, down},
        {{}, {}, failed + u"Aucun service Messages actif"_s},
    };
    attach(alix());
    for (const auto &row : rows) {
        scripts.messages.offered = row.offered;
        scripts.messages.file = row.file;
        scripts.messages.carried.clear();
        restart();
        follow(store().sendSMSAutomatically(alix(), true));
        EXPECT_EQ(answers.back(), row.answer);
        QStringList tried;
        for (const QString &line : scripts.messages.carried)
            tried << line.section(u' ', 0, 0);
        EXPECT_EQ(tried.join(u' '), row.tried) << "the text, then the file on the same service";
    }
    scripts.messages.offered = {{rcs, {}}, {sms, {}}};
    for (const auto &[refused, tried] :
         {std::pair(std::map<MessagesService, TransportResult>{{rcs, down}}, 4),
          {{{rcs, down}, {sms, down}}, 0}}) {
        scripts.messages.filesRefused = refused;
        scripts.messages.carried.clear();
        restart();
        follow(store().sendSMSAutomatically(alix(), true));
        EXPECT_EQ(scripts.messages.carried.size(), tried) << "no text leaves without its file";
        EXPECT_EQ(answers.back(), tried == 0 ? failed + u"réseau absent"_s : u"done"_s);
    }
    scripts.messages.filesRefused.clear();
    scripts.messages.offered.clear();
    restart();
    follow(store().sendSMSAutomatically(alix(), true));
    EXPECT_EQ(desktop.log.lines.back(),
              u"Envoi SMS direct impossible : erreur -2700, Aucun service Messages actif"_s);
}

} // namespace
