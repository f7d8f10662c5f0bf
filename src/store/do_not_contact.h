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
    static constexpr const char16_t *fileName = u"numeros-a-ne-pas-contacter.json";

    /// A file that cannot be decoded is renamed aside; one that cannot be opened stays as it is,
    /// and takes nothing.
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
    Refusal m_unreadable; ///< why the file was left as it is
    QStringList m_filesSetAside;
};

} // namespace quenoria
