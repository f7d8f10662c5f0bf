#include "platform/qt/desktop.h"

namespace quenoria {

Desktop::Desktop(const QString &dataFolder, const QString &preferencesFile)
    : m_preferences(preferencesFile, m_files), m_folders(dataFolder), m_panels(m_preferences)
{
}

Platform Desktop::platform(ScriptHost &scripts)
{
    return {m_clock,  m_preferences, m_folders, scripts, workspace(), sharing(), m_pasteboard,
            m_panels, m_resources,   m_log,     m_files, m_handOver,  mailbox(), carriers()};
}

} // namespace quenoria
