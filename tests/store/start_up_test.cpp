#include "store/defaults.h"
#include "store/store_fixture.h"
#include "store/together.h"

#include <QCoreApplication>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class StartUp : public StoreTest {};

TEST_F(StartUp, BuiltInListFollowsItsLines)
{
    const QString tab = u"\t"_s;
    desktop.resources.files[u"prospects.tsv"_s] =
        "A (2A)\t0639980030\tpas une adresse\t Plombier \r\n\r\n"
        "sans numero\n"
        "B\t0639980031\t B@Example.ORG \t\n"
        "C (974)\t0639980032\t\tun\tdeux\xE2\x80\xA8"
        "D (1) (22)\t";
    const auto &all = store().allProspects();
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(
        all[0],
        (Prospect{
            u"0639980030"_s, u"A (2A)"_s, u"0639980030"_s, {}, u"2A"_s, false, u"Plombier"_s}));
    EXPECT_EQ(all[1].email, u"b@example.org"_s);
    EXPECT_EQ(all[1].department, u""_s);
    EXPECT_EQ(all[1].profession, std::nullopt);
    EXPECT_EQ(all[2].profession, u"un\tdeux"_s);
    EXPECT_EQ(all[3].department, u"22"_s);
    EXPECT_EQ(all[3].id, u""_s);
    EXPECT_EQ(store().departments().back(), (DepartmentInfo{u"974"_s, u"Département 974"_s}));

    desktop.resources.files[u"prospects.tsv"_s] = "\xff\xfe";
    EXPECT_TRUE(ProspectStore::loadProspects(desktop.resources).empty());
}

TEST_F(StartUp, SeedsTheDefaultTemplatesBeforeTheUsersOwn)
{
    desktop.writeFile(u"modeles-messages.json"_s,
                      R"([{"id":"A","title":"a","body":""},{"id":"B","title":"b","body":""}])");
    desktop.writeFile(u"modeles-mails.json"_s, "[]");
    desktop.writeFile(u"departements.json"_s, "[]");
    const auto &templates = store().messageTemplates();
    ASSERT_EQ(templates.size(), 3U);
    EXPECT_EQ(templates[0], defaultMessage());
    EXPECT_EQ(templates[2].id, u"B"_s);
    EXPECT_EQ(store().emailTemplates()[0], defaultEmailTemplate());
    EXPECT_EQ(array(u"modeles-mails.json"_s).size(), 1);
    EXPECT_EQ(store().departments().front().code, u"29"_s);
}

struct Migration {
    const char16_t *title;
    QString body;
    const char16_t *newTitle;
    QString newBody;
};

TEST_F(StartUp, MigratesOnlyAnEarlierDefaultMessage)
{
    const QString old = u"… "_s + legacyBusinessNames().last() + u" …"_s;
    const Migration migrations[] = {
        {u"Olvak 1er Envoi", u"mine"_s, u"1er envoi", u"mine"_s},
        {u"olvak 1er envoi", old, u"olvak 1er envoi", defaultMessage().body},
        {u"Autre", old.toUpper(), u"Autre", old.toUpper()},
    };
    for (const Migration &migration : migrations) {
        const QJsonObject stored{{u"id"_s, ProspectStore::defaultMessageID},
                                 {u"title"_s, QString::fromUtf16(migration.title)},
                                 {u"body"_s, migration.body}};
        desktop.writeFile(u"modeles-messages.json"_s, QJsonDocument(QJsonArray{stored}).toJson());
        restart();
        EXPECT_EQ(store().messageTemplates()[0].title, QString::fromUtf16(migration.newTitle));
        EXPECT_EQ(store().messageTemplates()[0].body, migration.newBody);
    }
}

TEST_F(StartUp, SeededContactIsMarkedOnceAndNeverOverwritten)
{
    store();
    const QJsonObject seeded = object(u"suivi-envois.json"_s).value(seededContactID()).toObject();
    EXPECT_EQ(seeded, (QJsonObject{{u"sent"_s, true}, {u"sentAt"_s, u"2026-08-09T08:45:00Z"_s}}));
    desktop.writeFile(
        u"suivi-envois.json"_s,
        u"{\"%1\":{\"sent\":false,\"sentAt\":\"2026-01-01T00:00:00Z\"}}"_s.arg(seededContactID())
            .toUtf8());
    restart();
    EXPECT_FALSE(store().statuses().find(seededContactID())->sent);
}

TEST_F(StartUp, MergedListAppliesOverridesAndDeletions)
{
    desktop.writeFile(u"contacts-supprimes.json"_s, R"(["0639980012","0639980040"])");
    desktop.writeFile(u"nouveaux-numeros.json"_s,
                      R"([{"id":"0639980040","label":"D","phone":"","department":"974",
                          "isCustom":true,"profession":"Couvreur"}])");
    desktop.writeFile(u"adresses-mails-completees.json"_s,
                      R"({"0639980010":"autre@example.org","":"bruno@example.org"})");
    desktop.writeFile(u"contacts-modifies.json"_s,
                      R"({"0639980010":{"label":"ALIX 2","phone":"","department":"35"}})");
    const auto &all = store().allProspects();
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0],
              (Prospect{u"0639980010"_s, u"ALIX 2"_s, u""_s, {}, u"35"_s, false, u"Fleuriste"_s}));
    EXPECT_EQ(all[1].email, u"bruno@example.org"_s);
    EXPECT_EQ(all[2].id, u"0639980040"_s) << "the deleted set does not concern custom contacts";
    EXPECT_EQ(store().departmentName(u"974"_s), u"Département 974"_s);
    EXPECT_EQ(array(u"departements.json"_s).last().toObject().value(u"code"_s), u"974"_s);
}

/// Whatever comes before the histories are there: none of it may take them for empty.
TEST_F(StartUp, HistoriesThatAreLeftForLaterAreReadBeforeAnythingNeedsThem)
{
    const auto act = std::to_array<std::function<void()>>({
        [this] { store().complete(); },
        [this] { store().setComment(u"À rappeler"_s, alix()); },
        [this] { store().recordSentNow(alix()); },
        [this] { EXPECT_EQ(store().sendHistory(alix()).size(), 1); },
        [this] { store().assignMessage(store().createMessage({}, {}), alix()); },
        [this] { EXPECT_EQ(store().deleteProspects({chloe().id}), 1); },
        [this] { const Together together(store()); },
        [this] { store().save(Collection::statuses); },
        [this] { EXPECT_TRUE(store().unsaved().empty()); },
    });
    for (const std::function<void()> &each : act) {
        desktop.writeFile(u"suivi-envois.json"_s, R"({"0639980010": {"sent": true,
            "sentAt": "2026-08-01T10:00:00Z", "sendHistory": ["2026-08-01T10:00:00Z"]}})");
        desktop.writeFile(u"quota-destinataires-sms.json"_s, "{}");
        restart();
        reading = FirstReading::contacts;
        EXPECT_EQ(alix().label, u"ALIX — BREST (29)"_s);
        EXPECT_EQ(store().departmentName(u"29"_s), u"Finistère"_s);
        ASSERT_FALSE(store().isReady());
        listen();
        each();
        EXPECT_TRUE(store().isReady());
        const QJsonArray history =
            object(u"suivi-envois.json"_s)[u"0639980010"_s].toObject()[u"sendHistory"_s].toArray();
        EXPECT_EQ(history.first().toString(), u"2026-08-01T10:00:00Z"_s);
        EXPECT_TRUE(object(u"quota-destinataires-sms.json"_s).contains(u"2026-08"_s));
        QCoreApplication::processEvents();
        EXPECT_TRUE(announced.contains(u"list"_s)) << "for those who show what was not there";
    }
}

} // namespace
