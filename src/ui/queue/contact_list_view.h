#pragma once

#include "ui/kit/sheet.h"
#include "ui/kit/theme.h"

#include <vector>

class QTreeWidget;

namespace quenoria {

struct RunReport;

/// A contact and what there is to say about it.
struct ContactLine {
    QString label;
    QString words;
    QString symbolName = {};
    Tint tint = Tint::text;
    QString id = {};
};

struct NamedContacts {
    QString title;
    QString note;
    QString wordsHeader; ///< what the words of a line are about
    std::vector<ContactLine> lines;
    QString action = {}; ///< text of a button for those that the user chooses; none when empty
};

/// Contacts that a count stands for, each with its word and, where something can be done about
/// them, with a box.
class ContactListView : public Sheet {
    Q_OBJECT

public:
    ContactListView(const NamedContacts &list, QWidget *parent);

Q_SIGNALS:
    /// The user pressed the button; the sheet goes.
    void chosen(const QStringList &ids);

private:
    void addButton(const QString &text);
    QStringList ticked() const;

    QTreeWidget *m_tree;
};

/// What became of each contact of a run.
[[nodiscard]] NamedContacts listOf(const RunReport &report);

} // namespace quenoria
