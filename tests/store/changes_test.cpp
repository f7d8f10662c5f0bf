#include "store/many_contacts.h"
#include "store/store_fixture.h"
#include "store/together.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

const QString alixID = u"0639980010"_s;
const QString chloeID = u"0639980012"_s;
const QString other = u"autre"_s;

struct Announcement {
    const char *name;
    std::function<void(ProspectStore &, const Prospect &)> change;
    QStringList announced;
};

void PrintTo(const Announcement &announcement, std::ostream *out) { *out << announcement.name; }

class Changes : public StoreTest, public testing::WithParamInterface<Announcement> {
protected:
    Changes()
    {
        desktop.writeFile(u"modeles-mails.json"_s,
                          R"([{"id":"autre","title":"t","subject":"s","body":"b"}])");
        desktop.writeFile(u"associations-mails.json"_s, R"({"0639980012":"autre"})");
        store().setSelectedForSending(true, alix());
        store().setSelectedForSending(true, chloe());
        store().setSelectedForEmailSending(true, alix());
        listen();
    }
};

TEST_P(Changes, NameWhatTheyConcern)
{
    GetParam().change(store(), alix());
    EXPECT_EQ(announced, GetParam().announced);
}

const QString sms = u"suivi-envois.json "_s;
const Announcement announcements[] = {
    {"tick",
     [](auto &store, const auto &alix) { store.setSent(true, alix); },
     {sms + alixID, u"quota"_s}},
    {"stop",
     [](auto &store, const auto &alix) { store.setStopped(true, alix); },
     {u"selection sms "_s + alixID, u"selection email "_s + alixID, sms + alixID}},
    {"clear",
     [](auto &store, const auto &) { store.clearSendSelection(); },
     {u"selection sms "_s + alixID + u',' + chloeID}},
    {"edit",
     [](auto &store, const auto &alix) {
         EXPECT_EQ(store.update(alix, {u"A"_s, {}, alix.phone, {}, u"29"_s, {}}), std::nullopt);
     },
     {u"contacts-modifies.json "_s + alixID, u"adresses-mails-completees.json "_s + alixID}},
    {"templateGone",
     [](auto &store, const auto &) { store.deleteEmailTemplate(other); },
     {u"templates email"_s, u"associations-mails.json "_s + chloeID}},
    {"department",
     [](auto &store, const auto &) {
         EXPECT_EQ(store.addDepartment(u"44"_s, u"Loire-Atlantique"_s), std::nullopt);
     },
     {u"departments"_s}},
    {"number",
     [](auto &store, const auto &) { store.setTestNumber(u"06 39 98 00 99"_s); },
     {u"test number"_s}},
    {"deletion",
     [](auto &store, const auto &) {
         EXPECT_EQ(store.deleteProspects({alixID, other}), 1);
     },
     {u"list"_s, u"list"_s, sms + alixID, u"suivi-envois-mails.json "_s + alixID,
      u"associations-messages.json "_s + alixID, u"associations-mails.json "_s + alixID,
      u"adresses-mails-completees.json "_s + alixID, u"contacts-modifies.json "_s + alixID,
      u"fichiers-joints.json "_s + alixID, u"selection sms "_s + alixID,
      u"selection email "_s + alixID}},
    {"manyTicked",
     [](auto &store, const auto &) {
         store.clearSendSelection();
         store.setStopped(true, *store.prospect(chloeID));
         const ManyContacts many =
             store.setSelected(Channel::sms, true, {alixID, chloeID, other, {}});
         EXPECT_EQ(many.changed, IdSet{alixID});
         EXPECT_EQ(std::pair(many.stopped, many.unreachable), std::pair(1, 1));
         EXPECT_TRUE(store.setSelected(Channel::sms, true, {alixID}).changed.empty());
     },
     {u"selection sms "_s + alixID + u',' + chloeID, u"selection sms "_s + chloeID,
      u"selection email "_s + chloeID, sms + chloeID, u"selection sms "_s + alixID}},
    {"manyStopped",
     [](auto &store, const auto &) {
         EXPECT_EQ(store.setStopped(true, IdSet{alixID, chloeID}).changed.size(), 2U);
     },
     {u"selection sms "_s + alixID + u',' + chloeID,
      u"selection email "_s + alixID + u',' + chloeID, sms + alixID + u',' + chloeID}},
    {"manySent",
     [](auto &store, const auto &) {
         store.setSent(Channel::sms, true, {alixID, chloeID});
         EXPECT_EQ(store.setSent(Channel::sms, true, {alixID}).changed, IdSet{});
     },
     {sms + alixID + u',' + chloeID, u"quota"_s}},
    {"manyAtOnce",
     [](auto &store, const auto &alix) {
         const Together together(store);
         const Together nested(store);
         store.setSent(true, *store.prospect(chloeID));
         store.setSent(true, alix);
         store.setComment(u"c"_s, alix);
         EXPECT_EQ(store.status(alix)->comment, u"c"_s) << "memory does not wait";
     },
     {sms + alixID + u',' + chloeID, u"quota"_s}},
};
INSTANTIATE_TEST_SUITE_P(All, Changes, testing::ValuesIn(announcements),
                         [](const auto &tested) { return tested.param.name; });

TEST_F(Changes, ManyAtOnceAreWrittenAtTheirEnd)
{
    const auto isKept = [this] {
        return desktop.file(u"suivi-envois.json"_s).contains("ensemble");
    };
    {
        const Together together(store());
        store().setComment(u"ensemble"_s, alix());
        store().setSelectedForSending(false, chloe());
        EXPECT_FALSE(isKept());
    }
    EXPECT_TRUE(isKept());
    EXPECT_EQ(announced, (QStringList{u"selection sms "_s + chloeID, sms + alixID}));
}

} // namespace
