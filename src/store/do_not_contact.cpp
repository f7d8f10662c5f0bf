#include "store/do_not_contact.h"

#include "model/json_decode.h"
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
        m_unreadable = source.errorString();
        return;
    }
    if (auto read = decodeJson<IdSet>(source.readAll()))
        m_keys = std::move(*read);
    else
        m_filesSetAside = setAside(m_platform, m_path);
}

Refusal DoNotContact::add(const IdSet &keys)
{
    if (m_unreadable)
        return m_unreadable;
    IdSet all = m_keys;
    all.insert(keys.begin(), keys.end());
    if (all == m_keys)
        return {};
    std::string text;
    appendJson(text, all, 0);
    text += '\n';
    Refusal refusal = m_platform.files.write(m_path, {text.data(), qsizetype(text.size())});
    if (!refusal)
        m_keys = std::move(all);
    return refusal;
}

} // namespace quenoria
