#pragma once

#include <QStackedWidget>

namespace quenoria {

class ContactList;
class ContactTableView;

/// The table, or what to do next while it has nothing to show.
class TablePages : public QStackedWidget {
    Q_OBJECT

public:
    explicit TablePages(ContactTableView *table, QWidget *parent = nullptr);

    void follow(const ContactList &contacts);

private:
    QWidget *m_table;
    QWidget *m_noContact;
    QWidget *m_nothingFound;
};

} // namespace quenoria
