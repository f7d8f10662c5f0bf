#pragma once

#include "model/id_set.h"

#include <map>

namespace quenoria {

/// Numbers and addresses of people who were erased, known again without being kept. Each stands in
/// the list as "sha256:SALT:HASH", of the salt's bytes and the key. That hides it from a reader;
/// not from somebody who computes the hash of every number there is.
class ErasedKeys {
public:
    /// Whether an entry of the list is of this form; takes it if so.
    bool take(const QString &entry);

    /// The entry for a key, with the salt of the others.
    [[nodiscard]] QString entry(const QString &key) const;

    bool contains(const QString &key) const;
    bool empty() const { return m_hashesBySalt.empty(); }

private:
    std::map<QByteArray, std::set<QByteArray>> m_hashesBySalt; ///< in hexadecimal
};

} // namespace quenoria
