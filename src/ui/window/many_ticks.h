#pragma once

#include "store/many_contacts.h"
#include "ui/table/contact_columns.h"

#include <QObject>

class QWidget;

namespace quenoria {

class ContactTableModel;

/// Ticks of many contacts at once, and one line on what became of them. Those that would write
/// dates into as many histories are asked about first.
class ManyTicks : public QObject {
    Q_OBJECT

public:
    ManyTicks(ContactTableModel &model, QWidget *window);

    void tick(int column, bool on, const IdSet &ids);
    void tickShown(SortColumn column, bool on); ///< every displayed contact

Q_SIGNALS:
    void done(const QString &line, bool canBeUndone);

private:
    void ask(int column, bool on, const IdSet &ids);
    void perform(int column, bool on, const IdSet &ids);

    ContactTableModel &m_model;
    QWidget *m_window;
};

/// "« Envoyer SMS » : 9 contacts cochés, 3 de côté (2 STOP, 1 sans numéro)".
[[nodiscard]] QString lineOn(const ManyContacts &outcome, const ContactColumn &column, bool on);

} // namespace quenoria
