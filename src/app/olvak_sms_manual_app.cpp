#include "app/olvak_sms_manual_app.h"

namespace quenoria {

OlvakSMSManualApp::OlvakSMSManualApp(Desktop &desktop)
    : m_messages(desktop.messages()), m_mail(desktop.mail()), m_scripts({&m_messages, &m_mail}),
      m_platform(desktop.platform(m_scripts)), m_switches(m_platform.preferences)
{
}

ProspectStore &OlvakSMSManualApp::store()
{
    if (!m_store)
        m_store = std::make_unique<ProspectStore>(m_platform, FirstReading::contacts);
    return *m_store;
}

void OlvakSMSManualApp::completeStore()
{
    store().complete();
    store().separateTwins();
}

SendDesk &OlvakSMSManualApp::desk()
{
    if (!m_desk)
        m_desk = std::make_unique<SendDesk>(store(), m_platform);
    return *m_desk;
}

void OlvakSMSManualApp::closeStore()
{
    m_desk.reset();
    m_store.reset();
}

} // namespace quenoria
