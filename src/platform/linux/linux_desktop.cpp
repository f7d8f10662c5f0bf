#include "platform/linux/linux_desktop.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QString preferencesFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/Quenoria/Quenoria.conf"_s;
}

} // namespace

LinuxDesktop::LinuxDesktop(const QString &dataFolder)
    : Desktop(dataFolder, preferencesFile()), m_drafts(QDBusConnection::sessionBus()),
      m_mail(m_clock, m_drafts, m_handOver), m_sharing(m_drafts, m_log)
{
}

QString LinuxDesktop::standardDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           u"/Quenoria v.7.29"_s;
}

} // namespace quenoria
