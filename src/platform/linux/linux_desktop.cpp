#include "platform/linux/linux_desktop.h"

#include "platform/linux/modem_road.h"
#include "platform/linux/phone_road.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QString preferencesFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/Quenoria/Quenoria.conf"_s;
}

/// Every way for an SMS to leave this desktop, in the order in which the user sees them.
SmsCarriers::Roads smsRoads()
{
    SmsCarriers::Roads roads;
    roads.push_back(std::make_unique<ModemRoad>(QDBusConnection::systemBus()));
    roads.push_back(std::make_unique<PhoneRoad>(QDBusConnection::sessionBus()));
    return roads;
}

} // namespace

LinuxDesktop::LinuxDesktop(const QString &dataFolder)
    : Desktop(dataFolder, preferencesFile()), m_drafts(QDBusConnection::sessionBus()),
      m_carriers(m_preferences, m_keyring, smsRoads()), m_copies(m_preferences, m_passwords, m_log),
      m_smtp(m_clock, m_preferences, m_passwords, m_copies, {.progress = &m_handOver}),
      m_sendmail(m_clock, m_drafts, m_handOver), m_mail(m_smtp, m_sendmail, m_preferences),
      m_mailbox(m_preferences, m_keyring, m_passwords, m_mail, m_copies),
      m_workspace(m_mail, m_carriers), m_sharing(m_drafts, m_carriers, m_log)
{
}

QString LinuxDesktop::standardDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           u"/Quenoria v.7.29"_s;
}

} // namespace quenoria
