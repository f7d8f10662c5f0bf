#pragma once

#include "platform/mail_transport.h"
#include "platform/messages_transport.h"
#include "platform/platform.h"
#include "platform/posix/whole_file_writer.h"
#include "platform/qt/built_in_resources.h"
#include "platform/qt/clipboard.h"
#include "platform/qt/data_folder.h"
#include "platform/qt/dialog_panels.h"
#include "platform/qt/journal.h"
#include "platform/qt/settings_preferences.h"
#include "platform/qt/system_clock.h"

namespace quenoria {

/// A family of desktop services. What the toolkit gives is the same in each; the families differ
/// in where a message goes.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// What carries the messages that scripts send.
    [[nodiscard]] virtual MessagesTransport &messages() = 0;
    [[nodiscard]] virtual MailTransport &mail() = 0;
    [[nodiscard]] virtual Carriers &carriers() = 0;

    [[nodiscard]] virtual Workspace &workspace() = 0;
    [[nodiscard]] virtual SharingServices &sharing() = 0;
    [[nodiscard]] virtual Mailbox &mailbox() = 0;

    /// What the window must tell the user about this desktop all the time; empty for a real one.
    [[nodiscard]] virtual QString notice() const { return {}; }

    /// Every service, with the host that runs the scripts.
    [[nodiscard]] Platform platform(ScriptHost &scripts);

protected:
    Desktop(const QString &dataFolder, const QString &preferencesFile);

    Journal m_log;
    WholeFileWriter m_files;
    SystemClock m_clock{m_log};
    SettingsPreferences m_preferences;
    DataFolder m_folders;
    Clipboard m_pasteboard;
    DialogPanels m_panels;
    BuiltInResources m_resources;
    HandOverProgress m_handOver;
};

} // namespace quenoria
