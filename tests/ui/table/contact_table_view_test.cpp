#include "ui/kit/deliberate_input.h"
#include "ui/table/contact_table_view.h"
#include "ui/table/table_fixture.h"

#include <QAccessible>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class TableView : public TableTest {
protected:
    TableView() : view(model())
    {
        view.resize(tableContentWidth() + 200, 500);
        view.show();
    }

    QPoint centre(const QModelIndex &index) { return view.visualRect(index).center(); }
    void click(const QModelIndex &index, QPoint offset = {})
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, centre(index) + offset);
    }
    void press(Qt::Key key) { QTest::keyClick(&view, key); }

    DeliberateInput input{*qApp};
    ContactTableView view;
};

TEST_F(TableView, TheContactTakesTheRoomThatIsLeft)
{
    const int column = columnOf(SortColumn::name);
    const int spare = view.viewport()->width() - tableContentWidth();
    EXPECT_EQ(view.columnWidth(column), 680 + spare);
    view.resize(900, 500);
    EXPECT_EQ(view.columnWidth(column), 260);
    view.resize(1280, 500);
    const int department = columnOf(SortColumn::department);
    EXPECT_EQ(view.columnViewportPosition(department) + view.columnWidth(department),
              view.viewport()->width());
    view.resize(2000, 500);
    EXPECT_EQ(view.horizontalHeader()->length(), tableContentWidth());
    view.setColumnWidth(0, 120);
    view.setColumnWidth(column, 300);

    ContactTableView other(model());
    other.setColumnWidths(view.columnWidths());
    EXPECT_EQ(other.columnWidths(), view.columnWidths());
    other.setColumnWidths(u"1,2,3"_s);
    EXPECT_EQ(other.columnWidth(0), 120);
}

TEST_F(TableView, TheNameStaysInSightAsPartOfItsRow)
{
    view.resize(900, 500);
    const int name = columnOf(SortColumn::name);
    EXPECT_LT(view.indexAt({20, 10}).column(), name);
    QSignalSpy edits(&view, &ContactTableView::editRequested);
    view.setCurrentIndex(at(chloe(), SortColumn::comment));
    const int sideways = view.horizontalScrollBar()->value();
    EXPECT_GE(view.visualRect(view.currentIndex()).left(), 260) << "behind the pinned column";
    EXPECT_EQ(view.visualRect(at(chloe(), name)).left(), 0);
    EXPECT_EQ(view.visualRect(at(chloe(), name)).width(), 260);
    click(at(alix(), name));
    EXPECT_EQ(view.currentIndex(), at(alix(), name));
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, centre(at(alix(), name)));
    EXPECT_EQ(edits.value(0).value(0), alix().id);
    EXPECT_EQ(view.horizontalScrollBar()->value(), sideways) << "it is in sight already";
    QTest::mouseClick(view.horizontalHeader()->viewport()->childAt(20, 10), Qt::LeftButton);
    EXPECT_EQ(shown().section(u',', 0, 0), u"dora"_s) << "its header sorts";
    QAccessibleInterface *table = QAccessible::queryAccessibleInterface(&view);
    EXPECT_EQ(table->tableInterface()->cellAt(0, name)->rect().width(), 260);
    view.horizontalScrollBar()->setValue(0);
    EXPECT_GT(view.visualRect(at(chloe(), name)).left(), 260);
}

TEST_F(TableView, SpaceAndClicksUseTheCell)
{
    view.setCurrentIndex(at(alix(), SortColumn::stopped));
    press(Qt::Key_Space);
    EXPECT_TRUE(store().isStopped(alix()));
    click(at(alix(), SortColumn::stopped));
    EXPECT_FALSE(store().isStopped(alix()));
    click(at(chloe(), SortColumn::emailSelection));
    EXPECT_TRUE(store().emailSendSelection().empty());

    QSignalSpy actions(&view, &ContactTableView::actionRequested);
    click(at(chloe(), 16), QPoint(-60, 0));
    click(at(chloe(), 16), QPoint(60, 0));
    view.setCurrentIndex(at(chloe(), SortColumn::attachment));
    press(Qt::Key_Space);
    ASSERT_EQ(actions.size(), 3);
    EXPECT_EQ(actions[0][0].value<RowAction>(), RowAction::send(Channel::sms));
    EXPECT_EQ(actions[1][0].value<RowAction>(), RowAction::send(Channel::email));
    EXPECT_EQ(actions[2][0].value<RowAction>(), RowAction::chooseAttachment);
    EXPECT_EQ(actions[2][1].toString(), chloe().id);
}

TEST_F(TableView, SeveralRowsAreTickedTogetherAndAStrayClickUsesNothing)
{
    QSignalSpy actions(&view, &ContactTableView::actionRequested);
    QSignalSpy ticks(&view, &ContactTableView::tickRequested);
    const auto clickWith = [this](Qt::KeyboardModifier key, const QModelIndex &index, int x = 0) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, key, centre(index) + QPoint(x, 0));
    };
    view.setCurrentIndex(at(alix(), SortColumn::selection));
    clickWith(Qt::ControlModifier, at(chloe(), SortColumn::stopped));
    clickWith(Qt::ControlModifier, at(contact(u"email:dora@example.fr"), 16), 60);
    EXPECT_EQ(view.selectedContacts().size(), 3U);
    EXPECT_FALSE(store().isStopped(chloe()));
    EXPECT_EQ(actions.size(), 0) << "it selects a row, and sends nothing";

    for (int step = 0; step < 11; ++step)
        press(Qt::Key_Left);
    EXPECT_EQ(view.currentIndex().column(), columnOf(SortColumn::stopped));
    press(Qt::Key_Space);
    ASSERT_EQ(ticks.size(), 1);
    EXPECT_EQ(ticks[0], (QVariantList{columnOf(SortColumn::stopped), true}));
    model().tickMany(columnOf(SortColumn::stopped), true, view.selectedContacts());
    EXPECT_TRUE(store().isStopped(alix()) && store().isStopped(chloe()));
    EXPECT_EQ(view.selectedContacts().size(), 3U) << "they stay selected";
    press(Qt::Key_Space);
    EXPECT_EQ(ticks.value(1).value(1), false);
    model().toggleSort(columnOf(SortColumn::name));
    EXPECT_EQ(view.selectedContacts().size(), 3U);

    const QPersistentModelIndex cell = view.currentIndex();
    const QString current = view.currentContact()->id;
    store().createEmailTemplate(u"Rentrée"_s, u"Bonjour"_s, u"Un texte."_s);
    settle();
    EXPECT_FALSE(cell.isValid()) << "all rows are made anew";
    EXPECT_EQ(view.selectedContacts().size(), 3U) << "after a change of the templates too";
    EXPECT_EQ(view.currentContact()->id, current);
    EXPECT_EQ(view.currentIndex().column(), columnOf(SortColumn::stopped));
    store().deleteProspects({current});
    settle();
    EXPECT_EQ(view.selectedContacts().size(), 2U);
    EXPECT_FALSE(view.selectedContacts().contains(view.currentContact()->id))
        << "its neighbour is current, and was not chosen";

    press(Qt::Key_Down);
    EXPECT_EQ(view.selectedContacts().size(), 1U);
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(int(view.selectedContacts().size()), model().rowCount());
}

TEST_F(TableView, WhatIsBeingTypedOutlivesChangesOfTheContactAndOfTheList)
{
    click(at(alix(), SortColumn::comment));
    QTest::keyClicks(view.findChild<QLineEdit *>(), u"rappeler"_s);
    store().recordSentNow(alix());
    settle();
    ASSERT_NE(view.findChild<QLineEdit *>(), nullptr);
    EXPECT_EQ(view.findChild<QLineEdit *>()->text(), u"rappeler"_s);
    store().deleteProspects({chloe().id});
    settle();
    EXPECT_EQ(store().status(alix())->comment, u"rappeler"_s);
}

TEST_F(TableView, AFieldThatWasOnlyOpenedChangesNothing)
{
    for (const SortColumn column : {SortColumn::date, SortColumn::comment}) {
        click(at(alix(), column), QPoint(-40, 0));
        EXPECT_NE(view.indexWidget(at(alix(), column)), nullptr);
        view.setCurrentIndex(at(chloe(), SortColumn::name));
        settle();
    }
    EXPECT_EQ(store().status(alix()), nullptr);
}

TEST_F(TableView, EnterAndADoubleClickBesideControlsEditTheContact)
{
    QSignalSpy edits(&view, &ContactTableView::editRequested);
    view.setCurrentIndex(at(alix(), SortColumn::email));
    press(Qt::Key_Return);
    const auto doubleClick = [this](const QModelIndex &index) {
        click(index);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, centre(index));
    };
    doubleClick(at(chloe(), SortColumn::name));
    doubleClick(at(chloe(), SortColumn::stopped));
    ASSERT_EQ(edits.size(), 2);
    EXPECT_EQ(edits[0][0], alix().id);
    EXPECT_EQ(edits[1][0], chloe().id);
}

TEST_F(TableView, ASecondPressOrAHeldKeyDoesNothingMore)
{
    QSignalSpy actions(&view, &ContactTableView::actionRequested);
    QSignalSpy edits(&view, &ContactTableView::editRequested);
    const auto send = [this](QEvent::Type type, QPoint point) {
        QMouseEvent event(type, point, view.viewport()->mapToGlobal(point), Qt::LeftButton,
                          Qt::LeftButton, {});
        QCoreApplication::sendEvent(view.viewport(), &event);
    };
    for (const QPoint point :
         {centre(at(chloe(), SortColumn::stopped)), centre(at(chloe(), 16)) + QPoint(60, 0)}) {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                        QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease})
            send(type, point);
    }
    EXPECT_TRUE(store().isStopped(chloe())) << "ticked once";
    EXPECT_EQ(actions.size(), 1) << "one order";
    send(QEvent::MouseButtonDblClick, centre(at(alix(), SortColumn::name)));
    EXPECT_EQ(edits.size(), 0) << "its first press closed a sheet over the table";

    view.setCurrentIndex(at(alix(), SortColumn::sent));
    for (const bool repeated : {false, true, true}) {
        QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, {}, u" "_s, repeated);
        QCoreApplication::sendEvent(&view, &space);
    }
    EXPECT_EQ(store().sendHistory(alix()).size(), 1U);
    EXPECT_TRUE(store().status(alix())->sent);
}

TEST_F(TableView, TheCurrentCellStaysOnItsContact)
{
    view.setCurrentIndex(at(chloe(), SortColumn::stopped));
    model().sort(columnOf(SortColumn::stopped), Qt::DescendingOrder);
    const int row = view.currentIndex().row();
    press(Qt::Key_Space);
    EXPECT_EQ(view.currentContact()->id, chloe().id);
    EXPECT_EQ(view.currentIndex().row(), row);
    model().setSearchText(u"(56)"_s);
    model().setSearchText({});
    store().deleteProspects({alix().id});
    settle();
    EXPECT_EQ(view.currentContact()->id, chloe().id);
    EXPECT_EQ(view.currentIndex().column(), columnOf(SortColumn::stopped));
}

TEST_F(TableView, ComingAndGoingContactsLeaveThePlaceAndANewOneIsShown)
{
    const auto add = [this](int number) {
        const QString name = QString::number(number);
        EXPECT_FALSE(store().add(u"N"_s + name, u"063998"_s + name, {}, u"35"_s, {}));
    };
    for (int number = 2000; number < 2060; ++number)
        add(number);
    settle();
    QScrollBar &bar = *view.verticalScrollBar();
    bar.setValue(view.rowHeight(0) * 30 + 7);
    const int first = view.rowAt(0);
    const QModelIndex current = model().index(first + 3, columnOf(SortColumn::stopped));
    view.setCurrentIndex(current);
    const QString id = view.currentContact()->id;
    const int y = view.visualRect(current).y();
    store().deleteProspects({alix().id, model().contacts().at(first).id});
    add(1000);
    add(1001);
    settle();
    EXPECT_EQ(view.currentContact()->id, id);
    EXPECT_EQ(view.visualRect(view.currentIndex()).y(), y);
    EXPECT_EQ(view.currentIndex().column(), current.column());

    const auto isInSight = [this](const QModelIndex &index) {
        return view.viewport()->rect().contains(view.visualRect(index));
    };
    add(9000);
    settle();
    const QModelIndex added = model().index(model().contacts().rowOf(u"0639989000"_s), 0);
    EXPECT_TRUE(isInSight(added));
    EXPECT_TRUE(added.data(ArrivedRole).toBool());
    EXPECT_FALSE(at(chloe(), 0).data(ArrivedRole).toBool());
    EXPECT_EQ(view.currentContact()->id, id);

    bar.setValue(0);
    const int row = view.currentIndex().row();
    ASSERT_FALSE(isInSight(view.currentIndex()));
    store().deleteProspects({id});
    settle();
    EXPECT_EQ(view.currentIndex().row(), row) << "its neighbour is current";
    EXPECT_EQ(bar.value(), 0);

    view.setCurrentIndex({});
    bar.setValue(bar.maximum());
    model().setSearchText(u"N20"_s);
    EXPECT_GT(bar.maximum(), 0);
    EXPECT_EQ(bar.value(), 0) << "what was found is seen from its beginning";
    view.setCurrentIndex(model().index(view.rowAt(view.viewport()->height() - 1) - 1, 0));
    ASSERT_TRUE(isInSight(view.currentIndex()));
    view.resize(view.width(), view.height() - 100);
    EXPECT_TRUE(isInSight(view.currentIndex())) << "when something comes under the table";
}

TEST_F(TableView, AScreenReaderGetsCellsWithTheirState)
{
    store().setStopped(true, alix());
    QAccessibleInterface *table = QAccessible::queryAccessibleInterface(&view);
    QAccessibleInterface *cell = table->tableInterface()->cellAt(0, 5);
    EXPECT_EQ(cell->text(QAccessible::Name), u"STOP : coché, ALIX — BREST (29)"_s);
    EXPECT_EQ(cell->role(), QAccessible::Cell);
    EXPECT_TRUE(cell->state().checkable);
    EXPECT_TRUE(cell->state().checked);
    QAccessibleInterface *header = table->child(1 + columnOf(SortColumn::name));
    EXPECT_EQ(header->text(QAccessible::Name), u"Contact, tri croissant"_s);
}

} // namespace
