#include "store/store_fixture.h"

#include <QDir>
#include <QFileInfo>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class Files : public StoreTest {
protected:
    QStringList folderContent() const
    {
        return QDir(desktop.folders.data()).entryList(QDir::Files);
    }
};

TEST_F(Files, FirstStartWritesTwelveFilesForTheUserAlone)
{
    store();
    EXPECT_EQ(folderContent().size(), 12);
    EXPECT_FALSE(folderContent().contains(u"nouveaux-numeros.json"_s));
    EXPECT_EQ(QFileInfo(desktop.folders.data()).permissions() & 0x0077, 0);
    EXPECT_EQ(QFileInfo(store().file(Collection::statuses)).permissions() & 0x0077, 0);
    EXPECT_EQ(array(u"modeles-messages.json"_s).size(), 1);
    EXPECT_EQ(array(u"departements.json"_s).size(), 5); // the four, and 75 of the built-in list
    EXPECT_TRUE(desktop.log.lines.isEmpty());
}

TEST_F(Files, WritesSortedIndentedMembersWithEscapedSlashes)
{
    ASSERT_EQ(store().add(u"a/b \"c\"\\"_s, u"06 39 98 00 20"_s, {}, u"29"_s, {}), std::nullopt);
    const QString expected = uR"json([
  {
    "department" : "29",
    "id" : "0639980020",
    "isCustom" : true,
    "label" : "A\/B \"C\"\\ — AJOUT MANUEL (29)",
    "phone" : "06 39 98 00 20"
  }
]
)json"_s;
    EXPECT_EQ(QString::fromUtf8(desktop.file(u"nouveaux-numeros.json"_s)), expected);
    const QByteArray once = desktop.file(u"nouveaux-numeros.json"_s);
    store().save(Collection::customProspects);
    EXPECT_EQ(desktop.file(u"nouveaux-numeros.json"_s), once);
}

TEST_F(Files, ReadsWhatAnotherProgramWrote)
{
    desktop.writeFile(u"suivi-envois.json"_s, R"({ "0639980010" : { "stopped":null, "extra":[1,{}],
        "sentAt":"2026-02-01T10:00:00Z", "sent":true, "comment":"a/b\/c\u00e9",
        "sendHistory":["2026-01-01T10:00:00Z","2026-02-01T10:00:00Z"] } })");
    desktop.writeFile(u"contacts-supprimes.json"_s, R"(["0639980012","0639980012"])");
    const SendStatus *status = store().status(alix());
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(status->comment, u"a/b/cé"_s);
    EXPECT_EQ(status->stopped, std::nullopt);
    EXPECT_EQ(store().sendHistory(alix()).size(), 2U);
    EXPECT_EQ(store().deletedProspectIDs().size(), 1U);
    EXPECT_EQ(store().prospect(u"0639980012"_s), nullptr);
    EXPECT_FALSE(desktop.file(u"suivi-envois.json"_s).contains("extra"));
    EXPECT_TRUE(desktop.log.lines.isEmpty());
}

struct Undecodable {
    const char *name;
    const char *content;
};

class UndecodableFile : public Files, public testing::WithParamInterface<Undecodable> {};

TEST_P(UndecodableFile, IsRefusedWholeAndKeptAside)
{
    desktop.writeFile(u"suivi-envois.json"_s, GetParam().content);
    store();
    EXPECT_EQ(store().statuses().size(), 1U) << "only the seeded contact";
    const QStringList aside = folderContent().filter(u"illisible"_s);
    ASSERT_EQ(aside.size(), 1);
    EXPECT_EQ(desktop.file(aside.front()), GetParam().content);
    EXPECT_EQ(store().filesSetAside(), QStringList{desktop.folders.data() + u'/' + aside.front()});
    ASSERT_EQ(desktop.log.lines.size(), 1);
    EXPECT_TRUE(desktop.log.lines.front().contains(aside.front()));
    desktop.writeFile(u"suivi-envois.json"_s, GetParam().content);
    restart();
    EXPECT_EQ(store().filesSetAside().size(), 1);
    EXPECT_EQ(folderContent().filter(u"illisible"_s).size(), 2) << "a name that is taken stays";
}

INSTANTIATE_TEST_SUITE_P(
    Contents, UndecodableFile,
    testing::Values(
        Undecodable{"truncated", R"({"a":{"sent":true)"}, Undecodable{"array", "[]"},
        Undecodable{"empty", ""}, Undecodable{"missingMember", R"({"a":{"sent":true}})"},
        Undecodable{"nullRequired", R"({"a":{"sent":null,"sentAt":"2026-02-01T10:00:00Z"}})"},
        Undecodable{"numberForFlag", R"({"a":{"sent":1,"sentAt":"2026-02-01T10:00:00Z"}})"},
        Undecodable{"fraction", R"({"a":{"sent":true,"sentAt":"2026-02-01T10:00:00.5Z"}})"},
        Undecodable{"numericDate", R"({"a":{"sent":true,"sentAt":700000000}})"},
        Undecodable{"oneBadOfTwo", R"({"a":{"sent":true,"sentAt":"2026-02-01T10:00:00Z"},
                                       "b":{"sent":true,"sentAt":"hier"}})"},
        Undecodable{"badHistory", R"({"a":{"sent":true,"sentAt":"2026-02-01T10:00:00Z",
                                           "sendHistory":["2026-02-01T10:00:00Z",null]}})"}),
    [](const auto &undecodable) { return undecodable.param.name; });

TEST_F(Files, EachFailureIsLoggedInTheWordsOfItsCollection)
{
    store();
    const std::map<Collection, QString> wordings{
        {Collection::customProspects, u"les nouveaux numéros"_s},
        {Collection::statuses, u"le suivi SMS"_s},
        {Collection::messageTemplates, u"les modèles de messages"_s},
        {Collection::messageAssignments, u"les associations de messages"_s},
        {Collection::emailStatuses, u"le suivi des e-mails"_s},
        {Collection::emailTemplates, u"les modèles d’e-mails"_s},
        {Collection::emailAssignments, u"les associations d’e-mails"_s},
        {Collection::emailOverrides, u"les adresses e-mail complétées"_s},
        {Collection::contactOverrides, u"les contacts modifiés"_s},
        {Collection::attachmentPaths, u"les fichiers joints"_s},
        {Collection::deletedProspectIDs, u"les contacts supprimés"_s},
        {Collection::departments, u"les départements"_s},
        {Collection::smsMonthlyRecipientsByMonth, u"le quota mensuel SMS"_s}};
    desktop.files.refusal = u"plein"_s;
    for (const auto &[collection, wording] : wordings) {
        store().save(collection);
        EXPECT_EQ(desktop.log.lines.takeLast(),
                  u"Impossible d’enregistrer %1 : plein"_s.arg(wording));
    }
    EXPECT_EQ(store().unsaved().size(), wordings.size());
    EXPECT_TRUE(desktop.log.lines.isEmpty());
}

TEST_F(Files, EmptyCollectionsAreWrittenAsEmptyBrackets)
{
    store().save(Collection::customProspects);
    EXPECT_EQ(desktop.file(u"nouveaux-numeros.json"_s), "[]\n");
    EXPECT_EQ(desktop.file(u"contacts-supprimes.json"_s), "[]\n");
    EXPECT_EQ(desktop.file(u"fichiers-joints.json"_s), "{}\n");
    for (const auto &[name, other] : {std::pair{u"nouveaux-numeros.json"_s, "{}"},
                                      std::pair{u"contacts-supprimes.json"_s, "{}"},
                                      std::pair{u"fichiers-joints.json"_s, "[]"}}) {
        desktop.writeFile(name, other);
        restart();
        EXPECT_EQ(store().filesSetAside().size(), 1) << name.toStdString();
    }
}

TEST_F(Files, AFolderThatWasTakenAwayIsNotMadeAnewAndLosesNothing)
{
    store();
    const QString folder = desktop.folders.data();
    ASSERT_TRUE(QDir().rename(folder, folder + u".parti"_s));
    store().setComment(u"gardé"_s, alix());
    EXPECT_FALSE(QDir(folder).exists());
    EXPECT_EQ(store().unsaved().size(), 13U) << "every file went with it";
    ASSERT_TRUE(QDir().mkpath(folder));
    const auto unsaved = store().unsaved();
    for (const auto &[collection, failure] : unsaved)
        store().save(collection);
    EXPECT_EQ(folderContent().size(), 13);
    EXPECT_TRUE(desktop.file(u"suivi-envois.json"_s).contains("gardé"));
}

} // namespace
