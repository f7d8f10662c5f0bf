#pragma once

#include <QStackedWidget>

class QAction;

namespace quenoria {

class ContactList;
class ContactTableView;
class EmptyState;

/// The table, or what to do next while it has nothing to show.
class TablePages : public QStackedWidget {
    Q_OBJECT

public:
    /// The first steps are what a window without contacts offers, the most likely one first.
    TablePages(ContactTableView *view, const QList<QAction *> &firstSteps,
               QWidget *parent = nullptr);

    /// The filter is given in words.
    void follow(const ContactList &contacts, const QStringList &filter);

Q_SIGNALS:
    /// Neither filter nor search is to hide any contact.
    void showAllRequested();

private:
    EmptyState *m_noContact;
    EmptyState *m_nothingFound;
};

} // namespace quenoria
