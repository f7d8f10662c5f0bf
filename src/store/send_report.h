#pragma once

#include "store/prospect_store.h"

#include <QDate>

namespace quenoria {

/// Sends of one channel, and to whom they went.
struct SendCount {
    int sends = 0;
    int recipients = 0; ///< contacts, each once
    int stopped = 0;    ///< recipients who want no more messages today
    bool operator==(const SendCount &) const = default;
};

struct MonthLine {
    QDate first; ///< day
    PerChannel<SendCount> sends = {};
    int quota = 0; ///< numbers that the monthly quota counts, those of deleted contacts included
    bool operator==(const MonthLine &) const = default;
};

/// The contacts of a department or a trade.
struct GroupLine {
    QString name; ///< code of the department, or the trade; empty for those without one
    int contacts = 0;
    int stopped = 0; ///< of all contacts
    PerChannel<SendCount> sends = {};
    bool operator==(const GroupLine &) const = default;
};

/// The contacts that a template is assigned to today, and what was sent to them on its channel:
/// with which template a message was written is recorded nowhere.
struct TemplateLine {
    Channel channel = {};
    QString title;
    SendCount count = {};
    // Recipients who asked for no more within thirty days of their last message. The day of a STOP
    // is known only where it made the contact's record, else no more than that it came after the
    // last message: so there is a least number and a greatest.
    int stoppedSoon = 0;
    int stoppedSoonAtMost = 0;
    bool operator==(const TemplateLine &) const = default;
};

/// What was sent to those who are contacts today.
struct SendReport {
    std::vector<MonthLine> months;      ///< earliest first, without those in which nothing was sent
    std::vector<GroupLine> departments; ///< most sends first, like the trades
    std::vector<GroupLine> trades;
    std::vector<TemplateLine>
        templates; ///< in their order, channel by channel; contacts written to
};

[[nodiscard]] SendReport sendReport(const ProspectStore &store, const QTimeZone &zone, Instant now);

} // namespace quenoria
