#pragma once

#include "platform/platform.h"
#include "store/erased_keys.h"
#include "store/refusal.h"

#include <QStringList>

namespace quenoria {

/// Numbers and addresses of people who want no message and are no contacts, in a small file beside
/// the collections. Each is known as an import would know it: ten digits, or "email:" and the
/// address. Those of people who were erased stand there as hashes, and so do those of contacts who
/// were deleted and wanted no message.
class DoNotContact {
public:
    static constexpr const char16_t *fileName = u"numeros-a-ne-pas-contacter.json";

    /// A file that cannot be decoded is renamed aside; one that cannot be opened stays as it is,
    /// and takes nothing.
    explicit DoNotContact(const Platform &platform);

    const IdSet &entries() const { return m_entries; } ///< as add() takes them, hashes too
    const IdSet &keys() const { return m_keys; }
    bool contains(const QString &key) const { return m_keys.contains(key); }

    /// Those whom no import brings back.
    const ErasedKeys &erased() const { return m_erased; }

    /// Says why they are not on the disk; then they are not kept either.
    [[nodiscard]] Refusal add(const IdSet &keys);

    /// The same, each as a hash alone: where it stood in clear before, it does no more.
    [[nodiscard]] Refusal addErased(const IdSet &keys);

    /// Contacts that were deleted after they had asked for no message: an import may bring them
    /// back as new ones, a restore brings them back as they asked.
    const ErasedKeys &deletedStops() const { return m_deletedStops; }

    /// Keeps hashes of these. Where they cannot be written, writeOwed() tries again.
    void addDeletedStops(const IdSet &keys);
    void writeOwed();

    const QStringList &filesSetAside() const { return m_filesSetAside; }

private:
    [[nodiscard]] Refusal keep(IdSet entries);
    void take(IdSet entries);

    Platform m_platform;
    QString m_path;
    IdSet m_entries; ///< as the file has them
    IdSet m_keys;    ///< those in clear
    ErasedKeys m_erased;
    ErasedKeys m_deletedStops;
    bool m_isOwed = false; ///< the file holds less than the entries
    Refusal m_unreadable;  ///< why the file was left as it is
    QStringList m_filesSetAside;
};

} // namespace quenoria
