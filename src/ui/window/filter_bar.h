#pragma once

#include "model/id_set.h"

#include <QWidget>

#include <map>

class QAction;
class QPushButton;

namespace quenoria {

class Clock;
class CommandBar;
struct ContactFilter;
class ContactTableModel;
class ProspectStore;
class TextLabel;

/// The filters of the table as chips, and how many of the contacts they and the search leave.
class FilterBar : public QWidget {
    Q_OBJECT

public:
    FilterBar(ContactTableModel &model, const ProspectStore &store, const Clock &clock,
              QWidget *parent = nullptr);

    QSize sizeHint() const override;

    /// Says again what is filtered, and how many contacts are left.
    void refresh();

Q_SIGNALS:
    /// Neither filter nor search is to hide any contact.
    void showAllRequested();

private:
    QAction *addChip(const QString &text);
    void addTraits();
    void offer(const QString &name, QAction *chip, IdSet ContactFilter::*chosen,
               const std::map<QString, int> &counts);
    void offerDepartments();
    void offerProfessions();
    void offerDays();
    void offerCalendar();
    void since(const QDate &day);
    QPoint below(const QAction *chip) const;

    ContactTableModel &m_model;
    const ProspectStore &m_store;
    const Clock &m_clock;
    QList<QAction *> m_traits;
    QAction *m_departments = nullptr;
    QAction *m_professions = nullptr;
    QAction *m_since = nullptr;
    CommandBar *m_chips = nullptr;
    TextLabel *m_count;
    QPushButton *m_all;
};

} // namespace quenoria
