#include "store/intent_file.h"

#include "model/json_decode.h"
#include "model/json_text.h"
#include "platform/system_reason.h"
#include "store/set_aside.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quenoria {

IntentFile::IntentFile(const Platform &platform)
    : m_platform(platform), m_path(QDir(platform.folders.data()).filePath(fileName()))
{
    QFile source(m_path);
    if (!source.exists())
        return;
    auto read = source.open(QIODevice::ReadOnly)
                    ? decodeJson<std::vector<SendIntent>>(source.readAll())
                    : std::nullopt;
    if (read) {
        m_intents = std::move(*read);
        return;
    }
    setAside(m_platform, m_path);
}

QString IntentFile::fileName() { return u".envoi-en-cours"_s; }

Refusal IntentFile::add(const SendIntent &intent)
{
    m_intents.push_back(intent);
    Refusal failure = write();
    if (failure)
        m_intents.pop_back();
    return failure;
}

void IntentFile::remove(const SendIntent &intent)
{
    std::erase(m_intents, intent);
    if (const Refusal failure = write())
        m_platform.log.write(u"Impossible d’enregistrer les envois en cours : "_s + *failure);
}

Refusal IntentFile::write() const
{
    if (m_intents.empty()) {
        QFile file(m_path);
        return file.remove() || !file.exists() ? Refusal() : systemReason(file.errorString());
    }
    std::string text;
    appendJson(text, m_intents, 0);
    text += '\n';
    if (Refusal refusal = m_platform.files.makeFolder(m_platform.folders.data()))
        return refusal;
    return m_platform.files.write(m_path, QByteArrayView(text.data(), qsizetype(text.size())));
}

} // namespace quenoria
