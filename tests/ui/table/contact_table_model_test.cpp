#include "ui/table/table_fixture.h"

#include <QDateTime>
#include <QSignalSpy>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class TableModel : public TableTest {
protected:
    QString text(const Prospect &contact, SortColumn column)
    {
        return at(contact, column).data().toString();
    }
    bool check(const Prospect &contact, SortColumn column, Qt::CheckState state)
    {
        model().setData(at(contact, column), state, Qt::CheckStateRole);
        return at(contact, column).data(Qt::CheckStateRole).toInt() == state;
    }
    QStringList captions(const Prospect &contact, int column)
    {
        QStringList names;
        for (const CellButton &button : at(contact, column).data(ButtonsRole).value<CellButtons>())
            names << button.name;
        return names;
    }
};

TEST_F(TableModel, CellsShowTheContactAndItsRecords)
{
    EXPECT_EQ(text(alix(), SortColumn::department), u"Finistère (29)"_s);
    EXPECT_EQ(text(alix(), SortColumn::phone), u"06 39 98 00 10"_s);
    EXPECT_EQ(text(alix(), SortColumn::date), QString());
    store().setStopped(true, chloe());
    store().setComment(u"rappeler"_s, chloe());
    EXPECT_EQ(text(chloe(), SortColumn::date), QString()) << "nothing was sent";
    const int actions = columnsThat(&ContactColumn::followsSwitches).front();
    EXPECT_EQ(captions(alix(), actions), (QStringList{u"Préparer SMS"_s, u"Préparer mail"_s}));
    switches().setAutoValidateEmail(true);
    switches().setAutoValidateSMS(true);
    EXPECT_EQ(captions(alix(), actions), (QStringList{u"Préparer SMS"_s, u"Envoyer mail"_s}));

    const auto mark = [this] {
        return ContactMark(at(alix(), SortColumn::name).data(MarkRole).toInt());
    };
    EXPECT_EQ(mark(), ContactMark::none);
    store().setEmailSent(true, alix());
    EXPECT_EQ(mark(), ContactMark::sent);
    store().setStopped(true, alix());
    EXPECT_EQ(mark(), ContactMark::stopped);
}

TEST_F(TableModel, DatesAreShownAndTypedInTheUsersZone)
{
    store().recordSentNow(alix()); // 09:00 UTC, in winter
    EXPECT_EQ(text(alix(), SortColumn::date), u"10/03/2026 10:00"_s);
    const QDateTime typed(QDate(2026, 7, 1), QTime(8, 30), Qt::UTC);
    EXPECT_TRUE(model().setData(at(alix(), SortColumn::date), typed));
    EXPECT_EQ(instantText(store().status(alix())->sentAt), "2026-07-01T06:30:00Z");
    EXPECT_EQ(text(alix(), SortColumn::date), u"01/07/2026 08:30"_s);
}

TEST_F(TableModel, PickersAssignTemplates)
{
    const QString id = store().createMessage(u"Relance"_s, u"…"_s);
    settle();
    const auto choices = at(alix(), SortColumn::message).data(ChoicesRole).value<CellChoices>();
    EXPECT_EQ(choices.size(), qsizetype(store().messageTemplates().size()));
    EXPECT_EQ(choices.last().title, u"Relance"_s);
    EXPECT_TRUE(model().setData(at(alix(), SortColumn::message), id));
    EXPECT_EQ(text(alix(), SortColumn::message), u"Relance"_s);
    EXPECT_EQ(store().assignedMessageID(alix()), id);
}

TEST_F(TableModel, AMissingAttachmentIsNoticedWhenTheTableLooksAgain)
{
    const QString choose = u"Choisir un fichier joint"_s;
    const QString remove = u"Retirer le fichier joint"_s;
    const int column = columnOf(SortColumn::attachment);
    const auto warning = [&] { return at(alix(), column).data(WarningRole).toString(); };
    EXPECT_EQ(captions(alix(), column), QStringList{choose});

    desktop.writeFile(u"tarif.pdf"_s, "x");
    const QString path = desktop.folders.data() + u"/tarif.pdf"_s;
    desktop.panels.answer = path;
    store().chooseAttachment(alix());
    EXPECT_EQ(text(alix(), SortColumn::attachment), u"tarif.pdf"_s);
    EXPECT_EQ(captions(alix(), column), QStringList{remove});
    EXPECT_EQ(warning(), QString());

    QFile::remove(path);
    EXPECT_EQ(warning(), QString()) << "the disk is not asked each time";
    model().lookForAttachments();
    EXPECT_EQ(warning(), u"Le fichier a été déplacé ou supprimé. Choisissez-le à nouveau."_s);
    EXPECT_EQ(captions(alix(), column), (QStringList{choose, remove}));
    store().removeAttachment(alix());
    EXPECT_EQ(captions(alix(), column), QStringList{choose});
}

TEST_F(TableModel, TickingAllReachesWhatIsDisplayedOnly)
{
    const int deletion = columnsThat(&ContactColumn::keptByTable).front();
    EXPECT_FALSE(model().allAreTicked());
    model().setData(at(chloe(), deletion), Qt::Checked, Qt::CheckStateRole);
    model().setSearchText(u"client"_s);
    EXPECT_FALSE(model().allAreTicked());
    model().tickAll(true);
    EXPECT_TRUE(model().allAreTicked());
    EXPECT_EQ(model().deleteSelection(), (IdSet{chloe().id, u"0639980020"_s, u"0639980021"_s}));
    EXPECT_EQ(model().headerData(deletion, Qt::Horizontal, Qt::CheckStateRole).toInt(),
              Qt::Checked);
    model().setData(model().index(0, deletion), Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_FALSE(model().allAreTicked());
    model().tickAll(false);
    EXPECT_EQ(model().deleteSelection(), IdSet{chloe().id});
    model().setSearchText(u"personne"_s);
    EXPECT_FALSE(model().allAreTicked()) << "there is nobody to tick";
    model().setSearchText(u"chloé"_s);
    EXPECT_TRUE(model().allAreTicked());
}

TEST_F(TableModel, AClickOnAHeaderTurnsItRoundOrStartsAscending)
{
    const auto direction = [this](SortColumn column) {
        return model().headerData(columnOf(column), Qt::Horizontal, SortDirectionRole);
    };
    EXPECT_EQ(direction(SortColumn::name), int(Qt::AscendingOrder));
    model().toggleSort(columnOf(SortColumn::name));
    EXPECT_EQ(direction(SortColumn::name), int(Qt::DescendingOrder));
    model().toggleSort(columnOf(SortColumn::date));
    EXPECT_EQ(direction(SortColumn::date), int(Qt::AscendingOrder));
    EXPECT_FALSE(direction(SortColumn::name).isValid());
    model().toggleSort(0);
    model().toggleSort(16);
    EXPECT_EQ(direction(SortColumn::date), int(Qt::AscendingOrder));
}

TEST_F(TableModel, EveryCellCanBeReadAloud)
{
    store().setStopped(true, alix());
    const auto spoken = [this](int column) {
        return at(alix(), column).data(Qt::AccessibleTextRole).toString();
    };
    EXPECT_EQ(spoken(0), u"Supprimer : non coché, ALIX — BREST (29)"_s);
    EXPECT_EQ(spoken(5), u"STOP : coché, ALIX — BREST (29)"_s);
    EXPECT_EQ(spoken(6), u"Contact : ALIX — BREST (29), STOP"_s);
    EXPECT_EQ(spoken(15), u"Commentaire : Ajouter un commentaire, ALIX — BREST (29)"_s);
    EXPECT_EQ(spoken(16), u"Actions : Préparer SMS, Préparer mail, ALIX — BREST (29)"_s);
}

TEST_F(TableModel, OneTickTouchesOneRow)
{
    QSignalSpy data(&model(), &QAbstractItemModel::dataChanged);
    QSignalSpy reset(&model(), &QAbstractItemModel::modelReset);
    check(alix(), SortColumn::sent, Qt::Checked);
    settle();
    EXPECT_EQ(data.size(), 1);
    EXPECT_EQ(reset.size(), 0);
}

TEST_F(TableModel, ShowsTheContactsBeforeTheirHistoriesAreRead)
{
    reading = FirstReading::contacts;
    desktop.writeFile(u"suivi-envois.json"_s, R"({"0639980010": {"sent": true, "stopped": true,
        "comment": "À rappeler", "sentAt": "2026-08-01T10:00:00Z"}})");
    const auto texts = [this] {
        QStringList seen;
        for (int column = 0; column < model().columnCount(); ++column) {
            const QModelIndex cell = at(alix(), column);
            for (int role = 0; role < Qt::UserRole + 16; ++role)
                (void)cell.data(role);
            (void)cell.flags();
            seen << cell.data(Qt::DisplayRole).toString();
        }
        return seen;
    };
    EXPECT_TRUE(texts().contains(u"ALIX — BREST (29)"_s));
    EXPECT_FALSE(texts().contains(u"À rappeler"_s));
    ASSERT_FALSE(store().isReady()) << "a cell has asked for what is not there yet";
    store().complete();
    EXPECT_TRUE(texts().contains(u"À rappeler"_s));
    settle();
    EXPECT_EQ(model().contacts().sentOn(Channel::sms), 1);
}

} // namespace
