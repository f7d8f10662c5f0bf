#include "export/export_tables.h"

#include "export/contact_cells_out.h"
#include "store/channel_records.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const std::vector<ExportColumn> sendColumns{
    {u"Date d’envoi"_s, 18, ExportKind::moment},
    {u"Canal"_s, 10},
    {u"Nom"_s, 36},
    {u"Lieu"_s, 24},
    {u"Département"_s, 24},
    {u"Téléphone"_s, 18},
    {u"Adresse"_s, 34},
    {u"Métier"_s, 20},
};

struct Send {
    Instant instant;
    Channel channel;
    std::size_t contact; ///< where it stands in the list
};

struct Sends {
    std::vector<Prospect> contacts;
    std::vector<QString> departments;
    std::vector<Send> sends;
};

/// Up to its end, which is no part of it.
struct Period {
    Instant from, end;
};

Instant startOf(QDate day, const QTimeZone &zone)
{
    return Instant(std::chrono::milliseconds(day.startOfDay(zone).toMSecsSinceEpoch()));
}

/// Those of the contact that comes next in the list.
void takeSends(Sends &all, Channel channel, std::span<const Instant> history, const Period &period)
{
    for (const Instant instant : history) {
        if (instant >= period.from && instant < period.end)
            all.sends.push_back({instant, channel, all.contacts.size()});
    }
}

void fillRow(const Sends &all, const Send &send, std::vector<ExportCell> &cells)
{
    const Prospect &contact = all.contacts[send.contact];
    const auto [name, town] = labelParts(contact.label);
    cells = {send.instant,
             channelRecords(send.channel).words.one,
             name,
             town,
             all.departments[send.contact],
             shownPhone(contact),
             contact.email.value_or(QString()),
             contact.profession.value_or(QString())};
}

} // namespace

ExportTable sendTable(const ProspectStore &store, QDate first, QDate last, const QTimeZone &zone)
{
    const auto all = std::make_shared<Sends>();
    const Period period{startOf(first, zone), startOf(last.addDays(1), zone)};
    for (const Prospect &contact : store.allProspects()) {
        const std::size_t before = all->sends.size();
        for (const Channel channel : allChannels)
            takeSends(*all, channel, store.sends(channel, contact), period);
        if (all->sends.size() == before)
            continue;
        all->contacts.push_back(contact);
        all->departments.push_back(
            departmentCell(contact.department, store.departmentName(contact.department)));
    }
    std::ranges::stable_sort(all->sends, {}, &Send::instant);
    return {
        .name = u"Envois"_s,
        .columns = sendColumns,
        .rows = all->sends.size(),
        .fill = [all](std::size_t row,
                      std::vector<ExportCell> &cells) { fillRow(*all, all->sends[row], cells); },
        .zone = zone};
}

} // namespace quenoria
