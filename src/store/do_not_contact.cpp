#include "store/do_not_contact.h"

#include "model/json_decode.h"
#include "platform/system_reason.h"
#include "store/set_aside.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString deletedStop = u"stop:"_s; // before the hash

/// The entries of the keys that are not known yet.
QStringList freshEntries(ErasedKeys known, const IdSet &keys)
{
    QStringList entries;
    for (const QString &key : keys) {
        if (known.contains(key))
            continue;
        entries << known.entry(key);
        known.take(entries.back()); // of one salt for all
    }
    return entries;
}

} // namespace

DoNotContact::DoNotContact(const Platform &platform)
    : m_platform(platform),
      m_path(QDir(platform.folders.data()).filePath(QString::fromUtf16(fileName)))
{
    QFile source(m_path);
    if (!source.exists())
        return;
    if (!source.open(QIODevice::ReadOnly)) {
        m_unreadable = systemReason(source.errorString());
        return;
    }
    if (auto read = decodeJson<IdSet>(source.readAll()))
        take(std::move(*read));
    else
        m_filesSetAside = setAside(m_platform, m_path);
}

void DoNotContact::take(IdSet entries)
{
    m_entries = std::move(entries);
    m_keys.clear();
    m_erased = {};
    m_deletedStops = {};
    for (const QString &entry : m_entries) {
        const bool isHash = entry.startsWith(deletedStop)
                                ? m_deletedStops.take(entry.sliced(deletedStop.size()))
                                : m_erased.take(entry);
        if (!isHash)
            m_keys.insert(m_keys.end(), entry);
    }
}

Refusal DoNotContact::add(const IdSet &keys)
{
    IdSet entries = m_entries;
    entries.insert(keys.begin(), keys.end());
    return keep(std::move(entries));
}

Refusal DoNotContact::addErased(const IdSet &keys)
{
    IdSet entries = m_entries;
    for (const QString &key : keys)
        entries.erase(key);
    for (const QString &entry : freshEntries(m_erased, keys))
        entries.insert(entry);
    return keep(std::move(entries));
}

void DoNotContact::addDeletedStops(const IdSet &keys)
{
    IdSet entries = m_entries;
    for (const QString &entry : freshEntries(m_deletedStops, keys))
        entries.insert(deletedStop + entry);
    m_isOwed = m_isOwed || entries != m_entries;
    take(std::move(entries)); // whatever becomes of the file: their contacts go now
    writeOwed();
}

void DoNotContact::writeOwed()
{
    if (!m_isOwed)
        return;
    if (const Refusal refusal = keep(m_entries))
        m_platform.log.write(u"Impossible d’enregistrer les STOP des contacts supprimés : "_s +
                             *refusal);
}

Refusal DoNotContact::keep(IdSet entries)
{
    if (m_unreadable)
        return m_unreadable;
    if (entries == m_entries && !m_isOwed)
        return {};
    std::string text;
    appendJson(text, entries, 0);
    text += '\n';
    Refusal refusal = m_platform.files.write(m_path, {text.data(), qsizetype(text.size())});
    if (!refusal) {
        take(std::move(entries));
        m_isOwed = false;
    }
    return refusal;
}

} // namespace quenoria
