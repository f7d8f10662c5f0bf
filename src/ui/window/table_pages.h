#pragma once

#include <QStackedWidget>

namespace quenoria {

class ContactList;
class ContactTableView;
class EmptyState;

/// The table, or what to do next while it has nothing to show.
class TablePages : public QStackedWidget {
    Q_OBJECT

public:
    explicit TablePages(ContactTableView *table, QWidget *parent = nullptr);

    /// The filter is given in words.
    void follow(const ContactList &contacts, const QStringList &filter);

Q_SIGNALS:
    /// Neither filter nor search is to hide any contact.
    void showAllRequested();

private:
    QWidget *m_table;
    QWidget *m_noContact;
    EmptyState *m_nothingFound;
};

} // namespace quenoria
