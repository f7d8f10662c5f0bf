#include "store/do_not_contact.h"

#include "model/json_decode.h"
#include "store/set_aside.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quenoria {

DoNotContact::DoNotContact(const Platform &platform)
    : m_platform(platform),
      m_path(QDir(platform.folders.data()).filePath(u"numeros-a-ne-pas-contacter.json"_s))
{
    QFile source(m_path);
    if (!source.exists())
        return;
    auto read =
        source.open(QIODevice::ReadOnly) ? decodeJson<IdSet>(source.readAll()) : std::nullopt;
    if (read)
        m_keys = std::move(*read);
    else
        m_filesSetAside = setAside(m_platform, m_path);
}

Refusal DoNotContact::add(const IdSet &keys)
{
    IdSet all = m_keys;
    all.insert(keys.begin(), keys.end());
    if (all == m_keys)
        return {};
    std::string text;
    appendJson(text, all, 0);
    text += '\n';
    Refusal refusal = m_platform.files.makeFolder(m_platform.folders.data());
    if (!refusal)
        refusal = m_platform.files.write(m_path, {text.data(), qsizetype(text.size())});
    if (!refusal)
        m_keys = std::move(all);
    return refusal;
}

} // namespace quenoria
