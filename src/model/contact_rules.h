#pragma once

#include "model/id_set.h"

#include <QString>

#include <optional>

namespace quenoria {

struct Prospect;

/// Keeps the numeric user-perceived characters of a text, in order; no country-code handling.
/// "Numeric" is Unicode's numeric property, so digits of any script count.
///
///   "06.39.98.00.10"       -> "0639980010"
///   "+33 (0)6 39 98 00 10" -> "330639980010"
///   "aucun"                -> ""
[[nodiscard]] QString normalizePhone(const QString &text);

/// Cuts a text of exactly ten user-perceived characters into pairs; any other is returned as is.
///
///   "0639980010"  -> "06 39 98 00 10"
///   "33639980010" -> "33639980010"
[[nodiscard]] QString formatPhone(const QString &text);

/// Number of user-perceived characters: an accented letter or an emoji counts as one.
[[nodiscard]] qsizetype characterCount(const QString &text);

/// The stored form of a typed address (trimmed, lower case), or nothing when it is not valid.
///
///   " Anne@Example.org " -> "anne@example.org"
///   "anne@example"       -> nothing
[[nodiscard]] std::optional<QString> validEmail(const QString &text);

/// How a contact is called in the lists: "BOULANGERIE — QUIMPER (29) — 06 39 98 00 01". Without a
/// town or a phone, their part is left out.
[[nodiscard]] QString contactLabel(const QString &name, const QString &town,
                                   const QString &department, const QString &shownPhone);

/// What a label was made of.
struct LabelParts {
    QString name;
    QString town; ///< empty when there is none
};

/// Reads back the name and the town from a label that adding, editing or importing built:
///
///   "ACME — BREST (29) — 06 39 98 00 10" -> "ACME", "BREST"
///   "ACME — AJOUT MANUEL (29)"           -> "ACME", ""
///   "ACME (2A)"                          -> "ACME", ""
///   "ACME, rue du Port"                  -> "ACME, rue du Port", ""
[[nodiscard]] LabelParts labelParts(QString label);

/// Whether adding a contact by hand built the label, which editing it may have replaced since.
[[nodiscard]] bool isLabelOfAdding(const QString &label);

/// Key under which two contacts count as one: the mobile's digits, else "email:" and the valid
/// address, else the contact's id.
[[nodiscard]] QString duplicateKey(const Prospect &prospect);

/// Every key by which the contact may be met again: its id, its duplicate key, its address.
[[nodiscard]] IdSet keysOf(const Prospect &contact);

} // namespace quenoria
