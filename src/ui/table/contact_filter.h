#pragma once

#include "ui/table/contact_columns.h"

#include <bitset>
#include <span>

namespace quenoria {

/// A question about a contact that the table can be filtered by.
struct ContactTrait {
    const char16_t *name;
    bool (*holds)(const Cell &);
    bool followsDisk = false; ///< asked when it is needed, since other programs change the answer
};

[[nodiscard]] std::span<const ContactTrait> contactTraits();

inline constexpr std::size_t traitCount = 5;
using Traits = std::bitset<traitCount>; ///< in the order of contactTraits()

/// What a contact is filtered by, kept until it changes.
struct FilteredBy {
    Traits traits; ///< those that do not follow the disk
    std::optional<Instant> lastContact;

    static FilteredBy of(const Cell &cell);
};

/// What a contact must be to be displayed, beside what the search finds in it: everything that is
/// asked for here, and one of the departments and of the trades where some are named.
struct ContactFilter {
    Traits traits = {};
    IdSet departments = {}; ///< codes
    IdSet professions = {};
    std::optional<Instant> contactedSince = {};

    bool operator==(const ContactFilter &) const = default;
    bool isEmpty() const { return *this == ContactFilter(); }
    bool accepts(const Cell &cell, const FilteredBy &known) const;

    /// Every condition in words: "Sans mobile", "Finistère (29)", "contactés depuis le 01/11/2026".
    QStringList inWords(const ProspectStore &store, const QTimeZone &zone) const;
};

} // namespace quenoria
