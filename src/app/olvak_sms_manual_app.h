#pragma once

#include "messaging/send_desk.h"
#include "platform/applescript/apple_script_host.h"
#include "platform/applescript/mail_application.h"
#include "platform/applescript/messages_application.h"
#include "platform/qt/desktop.h"
#include "store/prospect_store.h"
#include "ui/kit/switches.h"

namespace quenoria {

/// What lives as long as the process: the applications that scripts can tell, the one store, the
/// desk that sends and the three switches. The desktop outlives it.
class OlvakSMSManualApp {
public:
    explicit OlvakSMSManualApp(Desktop &desktop);

    const Platform &platform() const { return m_platform; }
    Switches &switches() { return m_switches; }

    /// Created when it is first asked for, since that reads the files: of the contacts at first,
    /// so that they can be shown, of the rest by completeStore().
    ProspectStore &store();
    void completeStore();
    SendDesk &desk();

    /// Lets go of both, so that the files can be read anew.
    void closeStore();

private:
    MessagesApplication m_messages;
    MailApplication m_mail;
    AppleScriptHost m_scripts;
    Platform m_platform;
    Switches m_switches;
    std::unique_ptr<ProspectStore> m_store;
    std::unique_ptr<SendDesk> m_desk;
};

} // namespace quenoria
