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
      m_smtp(m_clock, m_preferences, m_passwords), m_sendmail(m_clock, m_drafts, m_handOver),
      m_mail(m_smtp, m_sendmail, m_preferences),
      m_mailbox(m_preferences, m_keyring, m_passwords, m_mail), m_workspace(m_mail),
      m_sharing(m_drafts, m_log)
{
}

QString LinuxDesktop::standardDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           u"/Quenoria v.7.29"_s;
}

} // namespace quenoria
