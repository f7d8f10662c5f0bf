#include "platform/demo/demo_desktop.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quenoria {

DemoDesktop::DemoDesktop(const QString &folder)
    : Desktop(folder, folder + u"/preferences.ini"_s),
      m_outbox(folder + u"/envois"_s, m_clock, m_files), m_messages(m_outbox), m_mail(m_outbox),
      m_carriers(m_messages, m_clock), m_workspace(m_outbox), m_sharing(m_outbox, m_log)
{
}

QString DemoDesktop::standardFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           u"/Quenoria v.7.29 (démonstration)"_s;
}

QString DemoDesktop::notice() const
{
    return u"Démonstration : contacts fictifs, rien ne quitte cet ordinateur. Les messages sont "
           "classés dans « %1 »."_s.arg(outboxFolder());
}

} // namespace quenoria
