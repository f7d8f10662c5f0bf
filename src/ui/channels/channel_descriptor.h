#pragma once

#include "messaging/send_desk.h"
#include "ui/kit/switches.h"
#include "ui/kit/theme.h"

#include <QSize>

#include <span>

namespace quenoria {

/// A switch of the window, and what is said of it there.
struct SwitchText {
    Switch which;
    QString text;
    QString help;
};

/// How a channel sends by itself.
struct AutomaticSending {
    SwitchText turnedOn;
    QString note;  ///< in the queue, while it is on
    QString start; ///< the queue's primary button then
};

/// How many recipients a month allows.
struct Allowance {
    SwitchText lifted; ///< the contract that has no limit
    QString queueHelp; ///< of that switch in the queue
    int limit;
    int (ProspectStore::*used)() const; ///< this month
    bool isReached(const ProspectStore &store) const { return (store.*used)() >= limit; }
};

/// How fast an automatic run goes.
struct ChannelPace {
    std::chrono::milliseconds expected; ///< for one contact
    bool isMeasured = false;            ///< the sends of a run tell it better, once there are some
    /// What a run waits for, of more than the pause between two contacts.
    std::optional<Instant> (*nextTurn)(SendDesk &desk, Instant now) = nullptr;
    QString (*notice)(SendDesk &desk) = nullptr; ///< of that wait
    /// Before when so many contacts cannot be done, where more than their time decides.
    std::optional<Instant> (*lastTurn)(SendDesk &desk, Preferences &preferences, Instant now,
                                       int contacts) = nullptr;
};

/// The lines of the panel that shows one contact and its message.
struct QueuedMessage {
    QString address;
    QString heading; ///< which template, or which subject
    QString body;
};

/// The sheet that walks through the selected contacts.
struct ChannelQueue {
    QString role; ///< by which a window manager knows it
    QString title;
    QString note;
    QString prepare;
    QString confirm;
    QString preparedNote;
    QString finishedNote;
    QString errorSymbol;
    QSize size;
    bool (*holds)(const ProspectStore &, const Prospect &); ///< selected, with an address
    QString (*recipient)(const Prospect &); ///< the same for all who share a number or an address
    QueuedMessage (*message)(const ProspectStore &, const Prospect &);
};

/// What is typed of a template; an SMS has no subject.
struct TemplateDraft {
    QString title;
    QString subject;
    QString body;
    bool operator==(const TemplateDraft &) const = default;
};

/// The sheet that manages the templates.
struct ChannelTemplates {
    QString role;  ///< by which a window manager knows it
    QString newID; ///< of a template not created yet, in the picker
    Refusal (*check)(const TemplateDraft &trimmed); ///< what is missing
    QSize size;
    QString heading;
    QString note;
    QString newEntry;
    QString titleField;
    QString subjectField; ///< empty: no subject
    QString bodyLabel;
    QString saveButton;
    QString saved;
    Tint savedTint;
};

/// The columns of the table, and the button in each of its rows.
struct ChannelColumns {
    const char16_t *selection;
    int selectionWidth;
    const char16_t *unreachable; ///< why one of many could not be ticked
    const char16_t *sent;
    int sentWidth;
    const char16_t *message;
    int messageWidth;
    QString prepare;
    QString send; ///< the same button while the channel sends by itself
};

/// What a command of the window is called; symbol and shortcut may be empty.
struct CommandText {
    const char16_t *text;
    const char16_t *symbol = u"";
    const char16_t *shortcut = u"";
};

struct ChannelCommands {
    CommandText openQueue;
    const char16_t *sendQueue; ///< the same while the channel sends by itself
    CommandText tickShown;
    CommandText untickShown;
    CommandText manageTemplates;
};

/// All that sets a channel apart from the others: rows, queues, template managers, table and menus
/// know it by this and by nothing else.
struct ChannelDescriptor {
    Channel channel;
    QString noun;                  ///< as in "prochain SMS"
    QString plural;                ///< at the start of a line
    QString impossible;            ///< title, when a row's message cannot be prepared
    bool countsCharacters = false; ///< the length of a text is its price
    bool keepsUsualHours = false;  ///< custom has none sent in the evening or on a Sunday

    ChannelPace pace;
    std::optional<AutomaticSending> automatic; ///< none: messages are only prepared
    std::optional<Allowance> allowance;
    ChannelQueue queue;
    ChannelTemplates templates;
    ChannelColumns columns;
    ChannelCommands commands;

    [[nodiscard]] bool isAutomatic(const Switches &switches) const;
};

[[nodiscard]] const ChannelDescriptor &smsChannel();
[[nodiscard]] const ChannelDescriptor &emailChannel();

inline constexpr std::array describedChannels{smsChannel, emailChannel};
static_assert(describedChannels.size() == allChannels.size());

/// All of them, in the order in which they are shown.
[[nodiscard]] std::span<const ChannelDescriptor *const> channels();

[[nodiscard]] const ChannelDescriptor &channelDescriptor(Channel channel);

} // namespace quenoria
