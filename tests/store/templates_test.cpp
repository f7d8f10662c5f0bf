#include "store/defaults.h"
#include "store/store_fixture.h"

#include <QFile>
#include <QRegularExpression>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class Templates : public StoreTest {};

TEST_F(Templates, ADeletedTemplateGivesItsContactsTheDefault)
{
    const QString id = store().createMessage(u"Relance"_s, u"Corps"_s);
    const QString twin = store().createMessage(u"Relance"_s, u"Corps"_s);
    EXPECT_NE(id, twin);
    EXPECT_TRUE(
        QRegularExpression(u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s).match(id).hasMatch());
    store().assignMessage(id, alix());
    store().assignMessage(twin, chloe());
    EXPECT_EQ(store().assignedMessage(alix()).body, u"Corps"_s);
    store().deleteMessage(store().messageTemplates()[1].id); // which goes with the template
    store().deleteMessage(ProspectStore::defaultMessageID);
    EXPECT_EQ(store().assignedMessageID(alix()), ProspectStore::defaultMessageID);
    EXPECT_EQ(store().messageTemplates().size(), 2U);
    EXPECT_EQ(object(u"associations-messages.json"_s), (QJsonObject{{chloe().id, twin}}));
    store().assignMessage(ProspectStore::defaultMessageID, chloe());
    EXPECT_TRUE(object(u"associations-messages.json"_s).isEmpty());
}

TEST_F(Templates, EmailTemplatesLiveLikeMessages)
{
    const QString id = store().createEmailTemplate(u"T"_s, u"O"_s, u"C"_s);
    store().assignEmailTemplate(id, alix());
    store().updateEmailTemplate(id, u"T2"_s, u"O2"_s, u"C2"_s);
    store().updateEmailTemplate(u"inconnu"_s, u"x"_s, u"x"_s, u"x"_s);
    EXPECT_EQ(store().assignedEmailTemplate(alix()),
              (EmailTemplate{id, u"T2"_s, u"O2"_s, u"C2"_s}));
    EXPECT_EQ(array(u"modeles-mails.json"_s).last().toObject().value(u"subject"_s), u"O2"_s);
    store().deleteEmailTemplate(id);
    EXPECT_TRUE(object(u"associations-mails.json"_s).isEmpty());
    EXPECT_EQ(store().emailTemplates().size(), 1U);
}

TEST_F(Templates, TheDefaultCanBeEditedAndKeepsItsPlace)
{
    store().createMessage(u"B"_s, u"b"_s);
    store().updateMessage(ProspectStore::defaultMessageID, u"Mien"_s, u"à moi"_s);
    restart();
    EXPECT_EQ(store().messageTemplates()[0],
              (MessageTemplate{ProspectStore::defaultMessageID, u"Mien"_s, u"à moi"_s}));
}

class Attachments : public StoreTest {};

TEST_F(Attachments, FollowTheFileWhereItWas)
{
    const QString path = desktop.folders.root.filePath(u"devis.pdf"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    desktop.panels.answer = path;
    store().chooseAttachment(alix());
    EXPECT_EQ(desktop.panels.opened.back().title, u"Choisir un fichier joint"_s);
    EXPECT_EQ(store().attachmentURL(alix()), QUrl::fromLocalFile(path));
    desktop.panels.answer.reset();
    store().chooseAttachment(alix());
    EXPECT_EQ(store().attachmentName(alix()), u"devis.pdf"_s)
        << "a cancelled panel changes nothing";
    ASSERT_TRUE(file.rename(path + u".bak"_s));
    EXPECT_EQ(store().attachmentName(alix()), u"devis.pdf"_s);
    EXPECT_FALSE(store().attachmentExists(alix()));
    EXPECT_EQ(store().attachmentURL(alix()), std::nullopt);
    desktop.panels.answer = desktop.folders.root.path() + u"/dossier é/"_s;
    store().chooseAttachment(alix());
    EXPECT_EQ(store().attachmentName(alix()), u"dossier é"_s);
    store().removeAttachment(alix());
    EXPECT_EQ(store().attachmentName(alix()), std::nullopt);
    EXPECT_TRUE(object(u"fichiers-joints.json"_s).isEmpty());
    EXPECT_TRUE(QFile::exists(path + u".bak"_s)) << "the file itself is never touched";
}

} // namespace
