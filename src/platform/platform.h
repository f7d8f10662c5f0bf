#pragma once

#include "platform/carriers.h"
#include "platform/clock.h"
#include "platform/file_panels.h"
#include "platform/folders.h"
#include "platform/hand_over_progress.h"
#include "platform/mailbox.h"
#include "platform/pasteboard.h"
#include "platform/preferences.h"
#include "platform/resources.h"
#include "platform/script_host.h"
#include "platform/sharing_services.h"
#include "platform/system_log.h"
#include "platform/whole_file.h"
#include "platform/workspace.h"

namespace quenoria {

/// Everything that the desktop must offer. The services are owned by main(), which keeps them
/// alive longer than any object or task that uses them.
struct Platform {
    Clock &clock;
    Preferences &preferences;
    Folders &folders;
    ScriptHost &scripts;
    Workspace &workspace;
    SharingServices &sharing;
    Pasteboard &pasteboard;
    FilePanels &panels;
    Resources &resources;
    SystemLog &log;
    FileWriter &files;
    HandOverProgress &handOver;
    Mailbox &mailbox;
    Carriers &carriers;
};

} // namespace quenoria
