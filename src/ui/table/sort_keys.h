#pragma once

#include "ui/table/contact_columns.h"
#include "ui/table/text_buffer.h"

namespace quenoria {

/// What the contacts are compared by in one column, as bytes. A comparison seldom looks beyond one
/// number: to sort a hundred thousand contacts takes some two million of them.
class SortKeys {
public:
    /// What the column shows of a contact; on any thread.
    using ValueOf = std::function<SortValue(std::size_t contact)>;

    void setAll(std::size_t contacts, const ValueOf &valueOf);
    void set(std::size_t contact, const ValueOf &valueOf);

    int compare(std::size_t a, std::size_t b) const; ///< below, above or 0

    /// Decides what compare() would, unless two contacts have the same.
    quint64 head(std::size_t contact) const { return m_heads[contact]; }

private:
    static void appendKey(std::string &out, const SortValue &value);
    quint64 headOf(std::string_view key) const;
    void cutHeads();

    TextBuffer m_keys;
    std::vector<quint64> m_heads; ///< the first bytes in which keys differ
    std::string m_common;         ///< with which all begin
};

} // namespace quenoria
