#include "ui/table/table_fixture.h"

#include <QDateTime>
#include <QSignalSpy>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class Undo : public TableTest {
protected:
    void edit(const Prospect &contact, SortColumn column, const QVariant &value)
    {
        const bool isCheck = at(contact, column).data(Qt::CheckStateRole).isValid();
        model().setData(at(contact, column),
                        isCheck ? value.toBool() ? Qt::Checked : Qt::Unchecked : value,
                        isCheck ? Qt::CheckStateRole : Qt::EditRole);
    }
    QString undo() { return model().undoList().undoLast(); }
};

TEST_F(Undo, TakesBackTheLastActsOneByOneAndWhatCameWithThem)
{
    const QString reminder = store().createMessage(u"Relance"_s, u"…"_s);
    settle();
    edit(alix(), SortColumn::message, reminder);
    edit(alix(), SortColumn::comment, u"rappeler"_s);
    edit(alix(), SortColumn::attachment, u"/tmp/devis.pdf"_s);
    edit(alix(), SortColumn::selection, true);
    edit(alix(), SortColumn::stopped, true);
    EXPECT_FALSE(store().isSelectedForSending(alix()));

    EXPECT_EQ(undo(), u"Annulé : « STOP » coché : ALIX — BREST (29)"_s);
    EXPECT_FALSE(store().isStopped(alix()));
    EXPECT_TRUE(store().isSelectedForSending(alix())) << "the STOP had unticked it";
    undo();
    EXPECT_FALSE(store().isSelectedForSending(alix()));
    undo();
    EXPECT_EQ(store().attachmentPath(alix()), QString());
    undo();
    EXPECT_EQ(store().status(alix())->comment, QString());
    undo();
    EXPECT_NE(store().assignedMessageID(alix()), reminder);
    EXPECT_EQ(undo(), u"Rien à annuler."_s);
}

TEST_F(Undo, LeavesAloneWhatIsNoLongerSo)
{
    edit(alix(), SortColumn::comment, u"un"_s);
    store().setComment(u"deux"_s, alix());
    EXPECT_TRUE(undo().endsWith(u"ce n’est plus ainsi."_s));
    EXPECT_EQ(store().status(alix())->comment, u"deux"_s);
    edit(chloe(), SortColumn::selection, true);
    store().deleteProspects({chloe().id});
    settle();
    EXPECT_TRUE(undo().endsWith(u"ce n’est plus ainsi."_s));
    const QString reminder = store().createMessage(u"Relance"_s, u"…"_s);
    settle();
    store().assignMessage(reminder, alix());
    edit(alix(), SortColumn::message, ProspectStore::defaultMessageID);
    store().deleteMessage(reminder);
    settle();
    EXPECT_TRUE(undo().endsWith(u"ce n’est plus ainsi."_s)) << "the template is gone";
}

TEST_F(Undo, NeverReachesSendsAndDates)
{
    edit(alix(), SortColumn::sent, true);
    edit(alix(), SortColumn::date, QDateTime(QDate(2026, 7, 1), QTime(8, 30), Qt::UTC));
    EXPECT_EQ(undo(), u"Rien à annuler."_s);
    EXPECT_EQ(store().sendHistory(alix()).size(), 1U);
}

TEST_F(Undo, AStopOfWhichMoreMayBeKnownStays)
{
    for (const bool anotherActFollowed : {true, false}) {
        edit(alix(), SortColumn::stopped, true);
        if (anotherActFollowed) {
            edit(chloe(), SortColumn::comment, u"x"_s);
            undo();
        } else {
            model().undoList().keepStops(); // a list named the contact
        }
        EXPECT_TRUE(undo().contains(u"Décochez STOP vous-même"_s));
        EXPECT_TRUE(store().isStopped(alix()));
        store().setStopped(false, alix());
    }
    edit(alix(), SortColumn::stopped, true);
    edit(alix(), SortColumn::stopped, false);
    model().undoList().keepStops();
    undo();
    EXPECT_TRUE(store().isStopped(alix())) << "to stop again is always right";
}

TEST_F(Undo, ManyAreOneActAndOneChange)
{
    model().tickMany(columnOf(SortColumn::stopped), true, {alix().id, chloe().id});
    store().setStopped(false, chloe());
    QSignalSpy published(&store(), &ProspectStore::published);
    EXPECT_EQ(undo(), u"Annulé pour 1 sur 2 contacts, les autres ont changé depuis : « STOP » "
                      "coché pour 2 contacts"_s);
    EXPECT_EQ(published.size(), 1);
    EXPECT_FALSE(store().isStopped(alix()));
    const QString id = store().createMessage(u"Relance"_s, u"Bonjour"_s);
    published.clear();
    model().pickMany(columnOf(SortColumn::message), id, {alix().id, chloe().id});
    EXPECT_EQ(published.size(), 1);
    EXPECT_EQ(store().assignedMessageID(chloe()), id);
    EXPECT_EQ(undo(), u"Annulé : « Message SMS » modifié pour 2 contacts"_s);
    EXPECT_EQ(store().assignedMessageID(alix()), ProspectStore::defaultMessageID);
}

} // namespace
