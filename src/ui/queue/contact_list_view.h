#pragma once

#include "ui/kit/sheet.h"
#include "ui/kit/theme.h"

#include <vector>

namespace quenoria {

struct RunReport;

/// A contact and what there is to say about it.
struct ContactLine {
    QString label;
    QString words;
    QString symbolName = {};
    Tint tint = Tint::text;
};

struct NamedContacts {
    QString title;
    QString note;
    QString wordsHeader; ///< what the words of a line are about
    std::vector<ContactLine> lines;
};

/// Contacts that a count stands for, each with its word.
class ContactListView : public Sheet {
    Q_OBJECT

public:
    ContactListView(const NamedContacts &list, QWidget *parent);
};

/// What became of each contact of a run.
[[nodiscard]] NamedContacts listOf(const RunReport &report);

} // namespace quenoria
