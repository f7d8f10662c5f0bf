#include "store/store_fixture.h"

using namespace Qt::StringLiterals;

namespace quenoria::test {
namespace {

const QString shared = u"0639980011"_s;
const QString second = u"0639980011#2"_s;

/// Two imported contacts with one id; the first edition made them.
class Twins : public StoreTest {
protected:
    Twins()
    {
        const QByteArray twin = R"({"id":"0639980011","label":"A","phone":"06 39 98 00 11",
            "email":"a@example.org","department":"29","isCustom":true})";
        desktop.writeFile(u"nouveaux-numeros.json"_s, "[" + twin + "," + twin + "]");
        const QByteArray kept = R"({"0639980011":"x"})";
        for (const QString &name : {u"associations-messages"_s, u"associations-mails"_s,
                                    u"adresses-mails-completees"_s, u"fichiers-joints"_s})
            desktop.writeFile(name + u".json"_s, kept);
        const QByteArray sent =
            R"({"0639980011":{"sent":true,"sentAt":"2026-02-01T10:00:00Z","stopped":true}})";
        desktop.writeFile(u"suivi-envois.json"_s, sent);
        desktop.writeFile(u"suivi-envois-mails.json"_s, sent);
        desktop.writeFile(u"contacts-modifies.json"_s, R"({"0639980011":{"label":"B",
            "phone":"06 39 98 00 19","email":"b@example.org","department":"29"}})");
    }

    const Prospect &contact(const QString &id) { return *store().prospect(id); }
    Refusal update(const QString &id, const ProspectStore::ContactEdit &edit)
    {
        return store().update(contact(id), edit);
    }
};

TEST_F(Twins, BecomeTwoContactsWithAllThatIsKeptAboutThem)
{
    EXPECT_EQ(store().separateTwins(), 1);
    restart();
    EXPECT_EQ(store().separateTwins(), 0) << "once";
    for (const CollectionDescriptor &row : collections()) {
        if (row.deletionTurn == 0)
            continue;
        const QJsonObject kept = object(QString::fromUtf16(row.fileName));
        EXPECT_TRUE(kept.contains(second)) << kept.keys().join(u' ').toStdString();
        EXPECT_EQ(kept[second], kept[shared]);
    }
    EXPECT_EQ(store().customProspects()[1].id, second);
    EXPECT_TRUE(store().isStopped(contact(second)));
}

TEST_F(Twins, AreEditedAndDeletedOneByOne)
{
    store().separateTwins();
    ASSERT_EQ(update(second, {u"C"_s, {}, u"06 39 98 00 19"_s, {}, u"29"_s, {}}), std::nullopt)
        << "the number that both have is no stranger's";
    EXPECT_EQ(contact(shared).label, u"B"_s);
    EXPECT_EQ(store().deleteProspects({shared}), 1);
    EXPECT_EQ(store().prospect(shared), nullptr);
    EXPECT_EQ(contact(second).label, u"C (29) — 06 39 98 00 19"_s);
    EXPECT_EQ(store().sendHistory(contact(second)).size(), 1U);
}

TEST_F(Twins, AreNeverBothServedAndShareAStop)
{
    store().separateTwins();
    for (const QString &id : {shared, second})
        store().setStopped(false, contact(id));
    const auto reachable = [this](const QString &id) {
        return std::pair(store().isReachable(Channel::sms, contact(id)),
                         store().isReachable(Channel::email, contact(id)));
    };
    EXPECT_EQ(reachable(shared), std::pair(true, true));
    EXPECT_EQ(reachable(second), std::pair(false, false));
    const ProspectStore::ContactEdit again{u"C"_s, {}, u"+33 6 39 98 00 19"_s, {}, u"29"_s, {}};
    ASSERT_EQ(update(second, again), std::nullopt);
    EXPECT_FALSE(reachable(second).first) << "the same number, written otherwise";
    ASSERT_EQ(update(second, {u"C"_s, {}, u"0639980013"_s, u"c@example.org"_s, u"29"_s, {}}),
              std::nullopt);
    EXPECT_EQ(reachable(second), std::pair(true, true)) << "another person now";
    store().setStopped(true, contact(second));
    EXPECT_TRUE(store().isStopped(contact(shared)));
}

TEST_F(Twins, StayTogetherWhileTheirRecordsCannotBeWritten)
{
    (void)store();
    desktop.files.refusal = u"plein"_s;
    EXPECT_EQ(store().separateTwins(), 0);
    EXPECT_EQ(store().customProspects()[1].id, shared) << "a row without its STOP would be worse";
}

} // namespace
} // namespace quenoria::test
