#include "store/do_not_contact.h"

#include "model/json_decode.h"
#include "platform/system_reason.h"
#include "store/set_aside.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quenoria {

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
    for (const QString &entry : m_entries) {
        if (!m_erased.take(entry))
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
    ErasedKeys erased = m_erased;
    for (const QString &key : keys) {
        entries.erase(key);
        if (erased.contains(key))
            continue;
        const QString entry = erased.entry(key); // of one salt for all
        erased.take(entry);
        entries.insert(entry);
    }
    return keep(std::move(entries));
}

Refusal DoNotContact::keep(IdSet entries)
{
    if (m_unreadable)
        return m_unreadable;
    if (entries == m_entries)
        return {};
    std::string text;
    appendJson(text, entries, 0);
    text += '\n';
    Refusal refusal = m_platform.files.write(m_path, {text.data(), qsizetype(text.size())});
    if (!refusal)
        take(std::move(entries));
    return refusal;
}

} // namespace quenoria
