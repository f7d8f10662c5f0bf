#pragma once

#include "model/id_set.h"
#include "platform/platform.h"
#include "store/refusal.h"

#include <QStringList>

namespace quenoria {

/// Numbers and addresses of people who want no message and are no contacts, in a small file beside
/// the collections. Each is known as an import would know it: ten digits, or "email:" and the
/// address.
class DoNotContact {
public:
    /// A file that cannot be read is renamed aside.
    explicit DoNotContact(const Platform &platform);

    const IdSet &keys() const { return m_keys; }
    bool contains(const QString &key) const { return m_keys.contains(key); }

    /// Says why they are not on the disk; then they are not kept either.
    [[nodiscard]] Refusal add(const IdSet &keys);

    const QStringList &filesSetAside() const { return m_filesSetAside; }

private:
    Platform m_platform;
    QString m_path;
    IdSet m_keys;
    QStringList m_filesSetAside;
};

} // namespace quenoria
