#include "ui/sheets/report_pages.h"

#include "model/text_order.h"
#include "store/channel_records.h"

#include <QLocale>

#include <algorithm>
#include <iterator>
#include <memory>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr auto number = ExportKind::number;
constexpr auto share = ExportKind::share;
constexpr int narrow = 12;
constexpr int wide = 34;

const QString ofContacts =
    u"Sont comptés les envois enregistrés des contacts de la liste : ceux d’un contact supprimé "
    "sont partis avec lui."_s;

/// Columns that every channel has, with the quota after those of the one that has it.
void addChannelColumns(ReportPage &page, bool byMonth)
{
    for (const Channel channel : allChannels) {
        const ChannelRecords &records = channelRecords(channel);
        const ChannelWords &words = records.words;
        const int width = narrow + 6 + words.extraWidth;
        page.columns.push_back({words.many, narrow, number});
        page.columns.push_back({u"Destinataires "_s + words.inText, width, number});
        page.bars.push_back({page.columns.size() - (byMonth ? 1 : 2), words.many});
        if (byMonth)
            page.columns.push_back({u"STOP depuis (%1)"_s.arg(words.inText), width, number});
        if (byMonth && records.monthly)
            page.columns.push_back({u"Quota compté"_s, narrow, number});
    }
}

std::vector<ExportCell> monthRow(const MonthLine &month)
{
    std::vector<ExportCell> row{displayLocale().toString(month.first, u"MMM yyyy"_s)};
    for (const Channel channel : allChannels) {
        const SendCount &count = month.sends[std::size_t(channel)];
        row.insert(row.end(), {count.sends, count.recipients, count.stopped});
        if (channelRecords(channel).monthly)
            row.emplace_back(month.quota);
    }
    return row;
}

ReportPage byMonth(const SendReport &report)
{
    ReportPage page{.name = u"Par mois"_s,
                    .note =
                        ofContacts +
                        u" « STOP depuis » : destinataires du mois qui ne veulent plus de message "
                        "aujourd’hui. Le quota compte chaque numéro une fois par mois, sur 250."_s,
                    .columns = {{u"Mois"_s, narrow + 6}},
                    .rows = {},
                    .chartTitle = u"Destinataires distincts"_s,
                    .bars = {},
                    .newestFirst = true,
                    .limit = ProspectStore::standardSMSMonthlyRecipientLimit,
                    .limitName = u"Quota SMS"_s};
    addChannelColumns(page, true);
    std::transform(report.months.rbegin(), report.months.rend(), std::back_inserter(page.rows),
                   monthRow);
    return page;
}

std::vector<ExportCell> groupRow(const QString &name, const GroupLine &line)
{
    std::vector<ExportCell> row{name, line.contacts};
    for (const SendCount &count : line.sends)
        row.insert(row.end(), {count.sends, count.recipients});
    row.emplace_back(line.stopped);
    return row;
}

ReportPage byGroup(const QString &name, const QString &column)
{
    ReportPage page{.name = name,
                    .note = ofContacts + u" Les plus nombreux d’abord."_s,
                    .columns = {{column, wide}, {u"Contacts"_s, narrow, number}},
                    .rows = {},
                    .chartTitle = u"Envois"_s,
                    .bars = {},
                    .limit = {},
                    .limitName = {}};
    addChannelColumns(page, false);
    page.columns.push_back({u"Contacts STOP"_s, narrow, number});
    return page;
}

ReportPage byDepartment(const SendReport &report, const ProspectStore &store)
{
    ReportPage page = byGroup(u"Par département"_s, u"Département"_s);
    for (const GroupLine &line : report.departments) {
        const QString name = line.name.isEmpty()
                                 ? u"Sans département"_s
                                 : line.name + u" – "_s + store.departmentName(line.name);
        page.rows.push_back(groupRow(name, line));
    }
    return page;
}

ReportPage byTrade(const SendReport &report)
{
    ReportPage page = byGroup(u"Par métier"_s, u"Métier"_s);
    for (const GroupLine &line : report.trades)
        page.rows.push_back(groupRow(line.name.isEmpty() ? u"Sans métier"_s : line.name, line));
    return page;
}

ExportCell shareOf(int part, int whole)
{
    return whole == 0 ? ExportCell() : ExportCell(Share{double(part) / whole});
}

std::vector<ExportCell> templateRow(const TemplateLine &line)
{
    const SendCount &count = line.count;
    return {u"%1 : %2"_s.arg(channelRecords(line.channel).words.one, line.title),
            count.sends,
            count.recipients,
            count.stopped,
            line.stoppedSoon,
            shareOf(line.stoppedSoon, count.recipients),
            shareOf(line.stoppedSoonAtMost, count.recipients)};
}

ReportPage byTemplate(const SendReport &report)
{
    ReportPage page{
        .name = u"Par modèle"_s,
        .note =
            u"Le modèle d’un envoi passé et la date d’un STOP ne sont pas enregistrés. Un contact "
            "est donc compté sous le modèle qui lui est attribué aujourd’hui, et son STOP après "
            "son dernier envoi. « Au moins » : STOP sûrement venus dans les 30 jours ; « au "
            "plus » : y compris ceux dont le délai reste inconnu."_s,
        .columns = {{u"Modèle"_s, wide},
                    {u"Envois"_s, narrow, number},
                    {u"Destinataires"_s, narrow + 2, number},
                    {u"STOP"_s, narrow, number},
                    {u"STOP en 30 jours"_s, narrow + 5, number},
                    {u"Part, au moins"_s, narrow + 2, share},
                    {u"Part, au plus"_s, narrow + 2, share}},
        .rows = {},
        .chartTitle = u"STOP en 30 jours, part des destinataires"_s,
        .bars = {{5, u"Au moins"_s}, {6, u"Au plus"_s}},
        .limit = {},
        .limitName = {}};
    std::ranges::transform(report.templates, std::back_inserter(page.rows), templateRow);
    return page;
}

ExportTable tableOf(const ReportPage &page, const QTimeZone &zone)
{
    const auto rows = std::make_shared<std::vector<std::vector<ExportCell>>>(page.rows);
    return {
        .name = page.name,
        .columns = page.columns,
        .rows = rows->size(),
        .fill = [rows](std::size_t row, std::vector<ExportCell> &cells) { cells = (*rows)[row]; },
        .zone = zone};
}

struct ShownCell {
    QString operator()(std::monostate) const { return u"–"_s; }
    QString operator()(const QString &text) const { return text; }
    QString operator()(int count) const { return displayLocale().toString(count); }
    QString operator()(Share part) const
    {
        constexpr int hundred = 100;
        return displayLocale().toString(hundred * part.value, 'f', 1) + u" %"_s;
    }
    QString operator()(Instant) const { return {}; } // there is none in a report
};

} // namespace

std::vector<ReportPage> reportPages(const SendReport &report, const ProspectStore &store)
{
    return {byMonth(report), byDepartment(report, store), byTrade(report), byTemplate(report)};
}

QString shownCell(const ExportCell &cell) { return std::visit(ShownCell(), cell); }

ExportTable reportTable(const std::vector<ReportPage> &pages, const QTimeZone &zone)
{
    ExportTable table = tableOf(pages.front(), zone);
    std::transform(pages.begin() + 1, pages.end(), std::back_inserter(table.next),
                   [&zone](const ReportPage &page) { return tableOf(page, zone); });
    return table;
}

} // namespace quenoria
