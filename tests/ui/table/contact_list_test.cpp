#include "ui/table/table_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct Search {
    const char *name;
    const char16_t *typed;
    const char16_t *found;
};

class Searching : public TableTest, public testing::WithParamInterface<Search> {};

TEST_P(Searching, FindsWhatIsTyped)
{
    store().assignMessage(store().createMessage(u"Relance d’été"_s, u"…"_s), chloe());
    store().assignEmailTemplate(store().createEmailTemplate(u"Vœux"_s, {}, {}),
                                contact(u"0639980020"));
    store().setComment(u"rappeler\u00a0lundi"_s, contact(u"0639980021"));
    desktop.panels.answer = u"/dossier/Tarif 2026.pdf"_s;
    store().chooseAttachment(alix());
    model().setSearchText(QString::fromUtf16(GetParam().typed));
    EXPECT_EQ(shown(), QString::fromUtf16(GetParam().found));
}

constexpr const char16_t *everyone = u"ALIX, BRUNO, CHLOÉ, CLIENT 10, CLIENT 2, dora";

INSTANTIATE_TEST_SUITE_P(
    Table, Searching,
    testing::Values(Search{"nothing", u"", everyone}, Search{"blanks", u" \u2003\n ", everyone},
                    Search{"label", u"chloé", u"CHLOÉ"}, Search{"accents matter", u"chloe", u""},
                    Search{"decomposed", u"chloe\u0301", u"CHLOÉ"},
                    Search{"phone with spaces", u"06 39 98 00 10", u"ALIX"},
                    Search{"digits are not folded", u"0639980010", u""},
                    Search{"digits as stored", u"06.39", u"CHLOÉ"},
                    Search{"e-mail", u"@EXAMPLE.FR", u"dora"}, Search{"code", u"56", u"CHLOÉ"},
                    Search{"department", u"FINIS", u"ALIX, dora"},
                    Search{"trade", u"fleur", u"ALIX"}, Search{"SMS template", u"D’ÉTÉ", u"CHLOÉ"},
                    Search{"e-mail template", u"VŒU", u"CLIENT 10"},
                    Search{"attached file", u"tarif 2026.pdf", u"ALIX"},
                    Search{"comment", u"Lundi", u"CLIENT 2"},
                    Search{"kept blanks", u"ALIX ", u"ALIX"}, Search{"too many", u"ALIX  ", u""},
                    Search{"no text runs into the next", u"fleuristepremier", u""}),
    [](const auto &row) {
        return QString::fromLatin1(row.param.name)
            .replace(QRegularExpression(u"\\W"_s), u"_"_s)
            .toStdString();
    });

struct Filtering {
    const char *name;
    ContactFilter filter;
    const char16_t *typed;
    const char16_t *left;
};

class Filters : public TableTest, public testing::WithParamInterface<Filtering> {};

TEST_P(Filters, LeaveWhatIsAskedForAndFound)
{
    const QString file = desktop.folders.root.filePath(u"là.pdf"_s);
    ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    store().setAttachment(file, chloe());
    store().setAttachment(u"/nulle part.pdf"_s, alix());
    store().recordSentNow(alix());
    store().recordEmailSent(contact(u"email:dora@example.fr"), desktop.clock.now() - 48h);
    store().setStopped(true, chloe());
    ContactFilter filter = GetParam().filter;
    if (filter.contactedSince)
        filter.contactedSince = desktop.clock.now() - 24h;
    model().setFilter(filter);
    model().setSearchText(QString::fromUtf16(GetParam().typed));
    EXPECT_EQ(shown(), QString::fromUtf16(GetParam().left));
    store().setStopped(true, alix());
    EXPECT_EQ(shown(), QString::fromUtf16(GetParam().left)) << "no row leaves under the hand";
}

INSTANTIATE_TEST_SUITE_P(
    Table, Filters,
    testing::Values(
        Filtering{"neverContacted", {.traits = 1}, u"", u"BRUNO, CHLOÉ, CLIENT 10, CLIENT 2"},
        Filtering{"stopped", {.traits = 2}, u"", u"CHLOÉ"},
        Filtering{"fileMissing", {.traits = 4}, u"", u"ALIX"},
        Filtering{"noMobile", {.traits = 8}, u"", u"BRUNO, dora"},
        Filtering{"noAddress", {.traits = 16}, u"client", u"CLIENT 10, CLIENT 2"},
        Filtering{"neither", {.traits = 24}, u"", u"BRUNO"},
        Filtering{
            "oneOfTheDepartments", {.departments = {u"29"_s, u"56"_s}}, u"", u"ALIX, CHLOÉ, dora"},
        Filtering{"noTrade",
                  {.professions = {QString()}},
                  u"",
                  u"BRUNO, CHLOÉ, CLIENT 10, CLIENT 2, dora"},
        Filtering{"trade", {.professions = {u"Fleuriste"_s}}, u"", u"ALIX"},
        Filtering{"since", {.contactedSince = Instant()}, u"", u"ALIX"}),
    [](const auto &row) { return row.param.name; });

struct Sorting {
    const char *name;
    SortColumn column;
    const char16_t *ascending;
    const char16_t *descending;
};

class Sorts : public TableTest, public testing::WithParamInterface<Sorting> {};

/// Equal keys stay in the order of the labels, whose numbers count as numbers, both ways.
TEST_P(Sorts, BothWays)
{
    store().setSelectedForSending(true, chloe());
    store().setSelectedForEmailSending(true, contact(u"email:dora@example.fr"));
    store().recordSentNow(contact(u"0639980020"));
    desktop.clock.advance(1h);
    store().recordSentNow(alix());
    store().recordEmailSentNow(alix());
    store().setStopped(true, contact(u"0639980021"));
    store().setComment(u"Zoé"_s, chloe());
    store().setComment(u"École"_s, contact(u"0639980020"));
    const int column = columnOf(GetParam().column);
    model().sort(column, Qt::DescendingOrder);
    EXPECT_EQ(shown(), QString::fromUtf16(GetParam().descending));
    model().sort(column, Qt::AscendingOrder);
    EXPECT_EQ(shown(), QString::fromUtf16(GetParam().ascending));
}

INSTANTIATE_TEST_SUITE_P(
    Table, Sorts,
    testing::Values(
        Sorting{"selection", SortColumn::selection,
                u"ALIX, BRUNO, CLIENT 2, CLIENT 10, dora, CHLOÉ",
                u"CHLOÉ, ALIX, BRUNO, CLIENT 2, CLIENT 10, dora"},
        Sorting{"sent", SortColumn::sent, u"BRUNO, CHLOÉ, CLIENT 2, dora, ALIX, CLIENT 10",
                u"ALIX, CLIENT 10, BRUNO, CHLOÉ, CLIENT 2, dora"},
        Sorting{"emailSelection", SortColumn::emailSelection,
                u"ALIX, BRUNO, CHLOÉ, CLIENT 2, CLIENT 10, dora",
                u"dora, ALIX, BRUNO, CHLOÉ, CLIENT 2, CLIENT 10"},
        Sorting{"emailSent", SortColumn::emailSent,
                u"BRUNO, CHLOÉ, CLIENT 2, CLIENT 10, dora, ALIX",
                u"ALIX, BRUNO, CHLOÉ, CLIENT 2, CLIENT 10, dora"},
        Sorting{"stopped", SortColumn::stopped, u"ALIX, BRUNO, CHLOÉ, CLIENT 10, dora, CLIENT 2",
                u"CLIENT 2, ALIX, BRUNO, CHLOÉ, CLIENT 10, dora"},
        Sorting{"name", SortColumn::name, u"ALIX, BRUNO, CHLOÉ, CLIENT 10, CLIENT 2, dora",
                u"dora, CLIENT 2, CLIENT 10, CHLOÉ, BRUNO, ALIX"},
        Sorting{"department", SortColumn::department,
                u"ALIX, dora, CLIENT 2, CLIENT 10, CHLOÉ, BRUNO",
                u"BRUNO, CHLOÉ, CLIENT 2, CLIENT 10, ALIX, dora"},
        Sorting{"phone", SortColumn::phone, u"BRUNO, ALIX, CHLOÉ, CLIENT 10, CLIENT 2, dora",
                u"dora, CLIENT 2, CLIENT 10, CHLOÉ, ALIX, BRUNO"},
        Sorting{"date", SortColumn::date, u"BRUNO, dora, CLIENT 10, ALIX, CHLOÉ, CLIENT 2",
                u"ALIX, CHLOÉ, CLIENT 2, CLIENT 10, BRUNO, dora"},
        Sorting{"comment", SortColumn::comment, u"ALIX, BRUNO, CLIENT 2, dora, CLIENT 10, CHLOÉ",
                u"CHLOÉ, CLIENT 10, ALIX, BRUNO, CLIENT 2, dora"}),
    [](const auto &row) { return std::string(row.param.name); });

class DisplayList : public TableTest {
protected:
    /// What a table that had just been opened would show.
    QString shownAnew()
    {
        ContactTableModel other(store(), switches(), desktop.clock);
        other.sort(columnOf(model().contacts().sortColumn()), model().contacts().sortOrder());
        other.setSearchText(model().contacts().searchText());
        QStringList names;
        for (int row = 0; row < other.rowCount(); ++row)
            names << other.contacts().at(row).label.section(u" — "_s, 0, 0);
        return names.join(u", "_s);
    }
};

TEST_F(DisplayList, AChangedContactKeepsItsPlaceUntilTheUserSortsOrSearches)
{
    for (const SortColumn column : {SortColumn::comment, SortColumn::stopped, SortColumn::date}) {
        for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
            model().sort(columnOf(column), order);
            for (const Prospect &each : std::vector(store().allProspects())) {
                const QString before = shown();
                store().setComment(each.label.last(9) + each.id, each);
                store().setStopped(!store().isStopped(each), each);
                store().setDate(desktop.clock.now() - std::chrono::hours(each.id.size()), each);
                EXPECT_EQ(shown(), before) << "a row moved under the hand";
                model().setSearchText(u" "_s);
                model().setSearchText({});
                EXPECT_EQ(shown(), shownAnew());
            }
        }
    }
}

TEST_F(DisplayList, AnEditOrADeletionMovesNoOtherRowAndAnAdditionSorts)
{
    const auto rename = [this](const Prospect &contact, const QString &name) {
        ASSERT_FALSE(store().update(contact, {name, {}, contact.phone, {}, u"29"_s, {}}));
        settle();
    };
    ASSERT_EQ(model().rowCount(), 6);
    rename(alix(), u"zoé"_s);
    EXPECT_EQ(shown(), u"ZOÉ (29), BRUNO, CHLOÉ, CLIENT 10, CLIENT 2, dora"_s);
    store().deleteProspects({chloe().id});
    settle();
    EXPECT_EQ(shown(), u"ZOÉ (29), BRUNO, CLIENT 10, CLIENT 2, dora"_s);
    model().setSearchText(u"06 39 98 00 10"_s);
    rename(contact(u"0639980010"), u"alix"_s);
    EXPECT_EQ(shown(), u"ALIX (29)"_s);
    model().setSearchText({});
    EXPECT_EQ(shown(), u"ALIX (29), BRUNO, CLIENT 10, CLIENT 2, dora"_s);
    rename(contact(u"0639980010"), u"zoé"_s);
    ASSERT_FALSE(store().add(u"Éric"_s, u"06 39 98 00 99"_s, {}, u"29"_s, {}));
    settle();
    EXPECT_EQ(shown(), u"BRUNO, CLIENT 10, CLIENT 2, dora, ÉRIC, ZOÉ (29)"_s);
}

TEST_F(DisplayList, KeepsShowingTheOldContactsUntilItTakesTheNewOnes)
{
    EXPECT_EQ(model().rowCount(), 6);
    store().deleteProspects({alix().id, chloe().id});
    EXPECT_EQ(model().contacts().at(0).label, u"ALIX — BREST (29)"_s);
    settle();
    EXPECT_EQ(shown(), u"BRUNO, CLIENT 10, CLIENT 2, dora"_s);
    ASSERT_FALSE(store().add(u"Éric"_s, u"06 39 98 00 99"_s, {}, u"29"_s, {}));
    store().updateMessage(ProspectStore::defaultMessageID, u"Nouveau titre"_s, {});
    settle();
    EXPECT_EQ(shown(), u"BRUNO, CLIENT 10, CLIENT 2, dora, ÉRIC"_s);
    model().setSearchText(u"nouveau titre"_s);
    EXPECT_EQ(model().rowCount(), 5);
}

TEST_F(DisplayList, CountsTheMarkedContactsWhetherFoundOrNot)
{
    model().setSearchText(u"zzz"_s);
    store().setSent(true, alix());
    store().recordSentNow(chloe());
    store().recordEmailSentNow(chloe());
    store().setSent(false, alix());
    EXPECT_EQ(model().contacts().sentOn(Channel::sms), 1);
    EXPECT_EQ(model().contacts().sentOn(Channel::email), 1);
    store().deleteProspects({chloe().id});
    settle();
    EXPECT_EQ(model().contacts().sentOn(Channel::sms) + model().contacts().sentOn(Channel::email),
              0);
}

/// So many are shared among the cores.
TEST_F(DisplayList, OrdersAndSearchesManyAsItDoesAFew)
{
    constexpr int many = 9'000;
    QStringList names;
    std::vector<Prospect> contacts;
    for (int each = 0; each < many; ++each) {
        names << u"NOM %1"_s.arg((each * 7919) % many, 5, 10, QChar(u'0'));
        contacts.push_back({QString::number(each),
                            names.back(),
                            u"063998%1"_s.arg(each, 4, 10, QChar(u'0')),
                            {},
                            {},
                            true,
                            {}});
    }
    std::string file;
    appendJson(file, contacts, 0);
    desktop.writeFile(u"nouveaux-numeros.json"_s, QByteArray::fromStdString(file));
    const auto all = [this] {
        QStringList labels;
        for (int row = 0; row < model().rowCount(); ++row)
            labels << model().contacts().at(row).label;
        return labels;
    };
    model().setSearchText(u"nom 0"_s);
    names.sort();
    EXPECT_EQ(all(), names);
    model().sort(columnOf(SortColumn::name), Qt::DescendingOrder);
    std::ranges::reverse(names);
    EXPECT_EQ(all(), names);
    const Prospect last = model().contacts().at(many - 1);
    ASSERT_FALSE(store().update(last, {u"zoé"_s, {}, last.phone, {}, u"29"_s, {}}));
    settle();
    model().setSearchText({});
    EXPECT_TRUE(all().first().startsWith(u"ZOÉ"_s)) << "whose key begins as no other";
}

} // namespace
