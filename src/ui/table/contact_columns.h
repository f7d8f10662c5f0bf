#pragma once

#include "platform/clock.h"
#include "store/many_contacts.h"
#include "store/prospect_store.h"
#include "ui/table/cell_roles.h"

#include <QHash>
#include <QSet>
#include <QTimeZone>

#include <functional>
#include <map>
#include <set>
#include <span>
#include <variant>

namespace quenoria {

/// What the table can be sorted by. Those of messages stand once for each channel.
struct SortColumn {
    enum class Kind {
        selection, ///< of a channel
        sent,      ///< of a channel
        message,   ///< of a channel
        stopped,
        name,
        department,
        profession,
        attachment,
        email,
        phone,
        date,
        comment,
    };
    using enum Kind;
    Kind kind;
    Channel channel;

    constexpr SortColumn(Kind which, Channel on = {}) : kind(which), channel(on) {}
    bool operator==(const SortColumn &) const = default;

    static const SortColumn emailSelection, emailSent, emailMessage;
};

inline constexpr SortColumn SortColumn::emailSelection{selection, Channel::email};
inline constexpr SortColumn SortColumn::emailSent{sent, Channel::email};
inline constexpr SortColumn SortColumn::emailMessage{message, Channel::email};

/// What two contacts are compared by in one column: false before true, texts in dictionary order,
/// earlier before later.
using SortValue = std::variant<bool, QString, Instant>;

/// What the table shows or decides by itself, without the store.
struct TableState {
    const Clock &clock;
    IdSet deleteSelection = {};                 ///< contacts ticked for deletion
    std::set<Channel> automatic = {};           ///< the channels that send by themselves
    std::map<Channel, IdSet> underWay = {};     ///< contacts to whom a message is being sent
    QTimeZone zone = clock.zone();              ///< dates are shown and typed in it
    QHash<QString, bool> attachmentsFound = {}; ///< by contact: what the last look at the disk gave
    QSet<QString> arrived = {};                 ///< came a moment ago, which is shown
};

/// One contact, as a column sees it.
struct Cell {
    ProspectStore &store;
    TableState &state;
    const Prospect &contact;
};

/// Everything about one column. A member that is empty is something the column does not have.
struct ContactColumn {
    const char16_t *header;
    int width; ///< in points
    CellKind kind = CellKind::text;
    std::optional<SortColumn> sort = {};
    std::function<QString(const Cell &)> text = {};                ///< what is shown
    std::function<QVariant(const Cell &)> value = {};              ///< edited; bool when ticked
    std::function<void(const Cell &, const QVariant &)> edit = {}; ///< takes an edited value
    std::function<SortValue(const Cell &)> key = {};  ///< none: the tick, else the text
    std::function<bool(const Cell &)> available = {}; ///< none: it can always be ticked
    std::function<ManyContacts(ProspectStore &, TableState &, bool on, const IdSet &)> tickMany =
        {};
    const char16_t *unreachable = u""; ///< why one of many could not be ticked
    std::function<CellChoices(const ProspectStore &)> choices = {}; ///< of a picker
    std::function<CellButtons(const Cell &)> buttons = {};
    std::function<ContactMark(const Cell &)> mark = {};
    std::function<QString(const Cell &)> warning = {};
    const char16_t *placeholder = u"";
    std::function<QString(const Cell &)> searched = {}; ///< what a search looks in

    // What sets the column apart. The rest of the table knows a column by these, never by where
    // it stands.
    bool namesContact = false;    ///< read aloud with every other cell; takes the spare width
    bool keptByTable = false;     ///< its ticks are the table's own, and its header ticks all
    bool followsSwitches = false; ///< what it offers depends on the switches
    bool followsDisk = false;     ///< what it shows depends on files of other programs
    bool undoable = false;        ///< what a hand does in it can be taken back
    bool tellsOfSends = false;    ///< shows nothing before the store has read the histories
    bool recordsDates = false;    ///< its ticks stay in the history, so that many are asked about
};

/// Whether its attached file is gone, as far as the last look at the disk tells.
[[nodiscard]] bool attachmentIsMissing(const Cell &cell);

/// Parts two texts that a search looks in: no character, so that no search runs over it.
inline constexpr QChar textSeparator(0xFFFF);

/// Width of the table's content when nobody has resized a column; the contact's column takes what
/// the others leave.
[[nodiscard]] int tableContentWidth();

/// The columns from left to right.
[[nodiscard]] std::span<const ContactColumn> contactColumns();

/// Where the column stands that sorts so.
[[nodiscard]] int columnOf(SortColumn column);

/// Where the columns stand that have the property.
[[nodiscard]] std::vector<int> columnsThat(bool ContactColumn::*property);

/// What the column compares its contacts by.
[[nodiscard]] SortValue sortValue(const ContactColumn &column, const Cell &cell);

} // namespace quenoria
