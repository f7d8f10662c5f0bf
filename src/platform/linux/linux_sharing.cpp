#include "platform/linux/linux_sharing.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

ComposeService *LinuxSharing::composeEmail() { return m_drafts.isAvailable() ? this : nullptr; }

bool LinuxSharing::canPerform(const Composition &composition) const
{
    const QFileInfo file(composition.file.toLocalFile());
    return file.isFile() && file.isReadable();
}

void LinuxSharing::perform(const Composition &composition)
{
    if (const TransportResult failure = m_drafts.open(composition))
        m_log.write(u"Impossible d’ouvrir l’e-mail préparé : "_s +
                    failure->message.value_or(QString()));
}

} // namespace quenoria
