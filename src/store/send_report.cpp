#include "store/send_report.h"

#include "model/dictionary.h"
#include "model/text_set.h"
#include "store/month_calendar.h"
#include "store/send_history.h"

#include <algorithm>
#include <functional>
#include <numeric>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr auto soon = std::chrono::days(30);

/// What is known of one contact, looked up once.
struct Recipient {
    const Prospect &contact;
    const SendStatus *status;
    PerChannel<std::span<const Instant>> sends;
    bool isStopped;

    std::span<const Instant> on(Channel channel) const { return sends[std::size_t(channel)]; }

    /// When it asked for no more, if its record was made for that: any other has a send or a
    /// comment.
    std::optional<Instant> stopInstant() const
    {
        if (!isStopped || !recordedSends(status).empty() || status->comment)
            return std::nullopt;
        return status->sentAt;
    }
};

void add(SendCount &count, const Recipient &recipient, Channel channel)
{
    const auto sends = recipient.on(channel);
    count.sends += int(sends.size());
    count.recipients += sends.empty() ? 0 : 1;
    count.stopped += !sends.empty() && recipient.isStopped ? 1 : 0;
}

class Months {
public:
    explicit Months(const QTimeZone &zone) : m_calendar(zone), m_places(MonthCalendar::months, -1)
    {
    }

    void add(const Recipient &recipient, Channel channel)
    {
        ++m_turn; // of one contact on one channel
        for (const Instant instant : recipient.on(channel)) {
            Month &month = at(m_calendar.monthOf(instant));
            SendCount &count = month.line.sends[std::size_t(channel)];
            ++count.sends;
            if (std::exchange(month.lastTurn, m_turn) == m_turn)
                continue;
            ++count.recipients;
            count.stopped += recipient.isStopped ? 1 : 0;
        }
    }

    void addQuota(const QString &key, int recipients)
    {
        const QDate first = QDate::fromString(key, u"yyyy-MM"_s);
        constexpr int monthsOfYear = 12;
        if (first.isValid())
            at(first.year() * monthsOfYear + first.month() - 1).line.quota = recipients;
    }

    std::vector<MonthLine> lines() const
    {
        std::vector<MonthLine> lines;
        lines.reserve(m_months.size());
        for (const Month &month : m_months)
            lines.push_back(month.line);
        std::ranges::sort(lines, {}, &MonthLine::first);
        return lines;
    }

private:
    struct Month {
        MonthLine line;
        int lastTurn = 0;
    };

    Month &at(int month)
    {
        int &place = m_places[std::size_t(month)];
        if (place < 0) {
            place = int(m_months.size());
            m_months.push_back({{MonthCalendar::firstDayOf(month)}});
        }
        return m_months[std::size_t(place)];
    }

    MonthCalendar m_calendar;
    std::vector<int> m_places; ///< of each month of the calendar among the lines
    std::vector<Month> m_months;
    int m_turn = 0;
};

int allSends(const GroupLine &line)
{
    return std::transform_reduce(line.sends.begin(), line.sends.end(), 0, std::plus(),
                                 [](const SendCount &count) { return count.sends; });
}

class Groups {
public:
    void add(const QString &name, const Recipient &recipient)
    {
        GroupLine &line = at(name);
        ++line.contacts;
        line.stopped += recipient.isStopped ? 1 : 0;
        for (const Channel channel : allChannels)
            quenoria::add(line.sends[std::size_t(channel)], recipient, channel);
    }

    std::vector<GroupLine> lines() &&
    {
        std::ranges::sort(m_lines, [](const GroupLine &a, const GroupLine &b) {
            const int left = allSends(a);
            const int right = allSends(b);
            return left != right ? left > right : a.name < b.name;
        });
        return std::move(m_lines);
    }

private:
    GroupLine &at(const QString &name)
    {
        const auto place = m_places.constFind(name);
        if (place != m_places.cend())
            return m_lines[*place];
        m_places.insert(name, m_lines.size());
        return m_lines.emplace_back(GroupLine{name});
    }

    QHash<QString, std::size_t> m_places;
    std::vector<GroupLine> m_lines;
};

/// The templates of one channel.
class Templates {
public:
    Templates(Channel channel, const ProspectStore &store) : m_channel(channel), m_store(store)
    {
        for (const EmailTemplate &each : store.templates(channel)) {
            m_places.insert(each.id, m_lines.size());
            m_lines.push_back({channel, each.title});
        }
    }

    void add(const Recipient &recipient, Instant now)
    {
        const auto sends = recipient.on(m_channel);
        if (sends.empty())
            return;
        const auto place =
            m_places.constFind(m_store.assignedTemplate(m_channel, recipient.contact).id);
        if (place == m_places.cend()) // the list lacks even the default
            return;
        TemplateLine &line = m_lines[*place];
        quenoria::add(line.count, recipient, m_channel);
        if (!recipient.isStopped)
            return;
        const Instant last = *std::ranges::max_element(sends);
        const auto stop = recipient.stopInstant();
        const bool wasSoon = stop.value_or(now) - last <= soon;
        line.stoppedSoon += wasSoon ? 1 : 0;
        line.stoppedSoonAtMost += wasSoon || !stop ? 1 : 0;
    }

    void appendTo(std::vector<TemplateLine> &lines) const
    {
        lines.insert(lines.end(), m_lines.begin(), m_lines.end());
    }

private:
    Channel m_channel;
    const ProspectStore &m_store;
    QHash<QString, std::size_t> m_places; ///< by id
    std::vector<TemplateLine> m_lines;
};

Recipient recipientOf(const ProspectStore &store, const Prospect &contact)
{
    Recipient recipient{contact, store.status(contact), {}, store.isStopped(contact)};
    for (const Channel channel : allChannels)
        recipient.sends[std::size_t(channel)] = store.sends(channel, contact);
    return recipient;
}

} // namespace

SendReport sendReport(const ProspectStore &store, const QTimeZone &zone, Instant now)
{
    Months months(zone);
    Groups departments;
    Groups trades;
    std::vector<Templates> templates;
    templates.reserve(allChannels.size());
    for (const Channel channel : allChannels)
        templates.emplace_back(channel, store);
    for (const Prospect &contact : store.allProspects()) {
        const Recipient recipient = recipientOf(store, contact);
        departments.add(contact.department, recipient);
        trades.add(contact.profession.value_or(QString()), recipient);
        for (const Channel channel : allChannels) {
            months.add(recipient, channel);
            templates[std::size_t(channel)].add(recipient, now);
        }
    }
    store.smsMonthlyRecipientsByMonth().forEach(
        [&](const QString &month, const TextSet &recipients) {
            months.addQuota(month, int(recipients.size()));
        });
    SendReport report{
        months.lines(), std::move(departments).lines(), std::move(trades).lines(), {}};
    for (const Templates &each : templates)
        each.appendTo(report.templates);
    return report;
}

} // namespace quenoria
