#pragma once

#include "model/channel.h"
#include "store/many_contacts.h"
#include "ui/table/contact_list.h"
#include "ui/table/undo_list.h"

#include <QAbstractTableModel>
#include <QTimer>

namespace quenoria {

class Clock;
class Switches;

/// The table's contacts for a view. Follows the store: a change of one contact refreshes its row
/// at once, a change of more is taken over when control returns to the event loop.
class ContactTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    ContactTableModel(ProspectStore &store, Switches &switches, const Clock &clock,
                      QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order) override;

    /// What a click on a header does: the current column turns round, another one starts
    /// ascending. Nothing where the column does not sort.
    void toggleSort(int column);

    void setSearchText(const QString &text);
    void setFilter(const ContactFilter &filter);

    /// The displayed contacts; rowOf() gives ContactList::none for one that is not.
    const ContactList &contacts() const { return m_list; }

    /// Ticks or unticks a column of check boxes for many contacts at once.
    ManyContacts tickMany(int column, bool ticked, const IdSet &ids);

    /// Chooses the same for many contacts in a column of pickers.
    void pickMany(int column, const QString &choice, const IdSet &ids);

    /// The last acts on the cells.
    UndoList &undoList() { return m_undo; }

    IdSet shownContacts() const;
    const QTimeZone &zone() const { return m_state.zone; } ///< of the dates

    // Contacts ticked for deletion. A search hides ticked contacts without unticking them.
    const IdSet &deleteSelection() const { return m_state.deleteSelection; }
    void clearDeleteSelection();
    bool allAreTicked() const; ///< every displayed contact, and at least one
    void tickAll(bool ticked); ///< every displayed contact

    /// Whether a message is being sent to the contact: its button says so and waits.
    void setUnderWay(Channel channel, const QString &contactId, bool isUnderWay);

    /// Looks again for the attached files, which other programs move and delete.
    void lookForAttachments();

Q_SIGNALS:
    /// The contacts, their marks or one of the selections changed.
    void changed();

    /// All rows are about to be made anew: what is being typed in one must be kept now.
    void aboutToReplaceRows();

    /// These contacts are new in the list, though a search or a filter may hide them.
    void arrived(const QSet<QString> &ids);

private:
    void follow(const Change &change);
    void refreshContacts(const IdSet &ids);
    void refreshMany(const IdSet &ids);
    void refreshSoon();
    void refresh();
    void announce(bool ContactColumn::*property);
    Cell cell(const QModelIndex &index) const;
    bool mayAsk(const ContactColumn &column) const;
    QVariant headerTick(int section) const;
    QString accessibleText(const QModelIndex &index) const;

    ProspectStore &m_store;
    mutable TableState m_state;
    UndoList m_undo;
    ContactList m_list;
    bool m_refreshIsDue = false;
    QTimer m_arrival;                           ///< runs while new contacts are marked
    mutable std::optional<bool> m_allAreTicked; ///< known until something changes
};

} // namespace quenoria
