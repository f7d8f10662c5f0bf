#include "ui/sheets/report_pages.h"

#include "model/text_order.h"

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

std::vector<ExportCell> monthRow(const MonthLine &month)
{
    return {displayLocale().toString(month.first, u"MMM yyyy"_s),
            month.sms.sends,
            month.sms.recipients,
            month.sms.stopped,
            month.quota,
            month.email.sends,
            month.email.recipients,
            month.email.stopped};
}

ReportPage byMonth(const SendReport &report)
{
    ReportPage page{.name = u"Par mois"_s,
                    .note =
                        ofContacts +
                        u" « STOP depuis » : destinataires du mois qui ne veulent plus de message "
                        "aujourd’hui. Le quota compte chaque numéro une fois par mois, sur 250."_s,
                    .columns = {{u"Mois", narrow + 6},
                                {u"SMS", narrow, number},
                                {u"Destinataires SMS", narrow + 6, number},
                                {u"STOP depuis (SMS)", narrow + 6, number},
                                {u"Quota compté", narrow, number},
                                {u"E-mails", narrow, number},
                                {u"Destinataires e-mail", narrow + 8, number},
                                {u"STOP depuis (e-mail)", narrow + 8, number}},
                    .rows = {},
                    .chartTitle = u"Destinataires distincts"_s,
                    .bars = {{2, u"SMS"_s}, {6, u"E-mails"_s}},
                    .newestFirst = true,
                    .limit = ProspectStore::standardSMSMonthlyRecipientLimit,
                    .limitName = u"Quota SMS"_s};
    std::transform(report.months.rbegin(), report.months.rend(), std::back_inserter(page.rows),
                   monthRow);
    return page;
}

std::vector<ExportCell> groupRow(const QString &name, const GroupLine &line)
{
    return {name,
            line.contacts,
            line.sms.sends,
            line.sms.recipients,
            line.email.sends,
            line.email.recipients,
            line.stopped};
}

ReportPage byGroup(const QString &name, const char16_t *column)
{
    return {.name = name,
            .note = ofContacts + u" Les plus nombreux d’abord."_s,
            .columns = {{column, wide},
                        {u"Contacts", narrow, number},
                        {u"SMS", narrow, number},
                        {u"Destinataires SMS", narrow + 6, number},
                        {u"E-mails", narrow, number},
                        {u"Destinataires e-mail", narrow + 8, number},
                        {u"Contacts STOP", narrow, number}},
            .rows = {},
            .chartTitle = u"Envois"_s,
            .bars = {{2, u"SMS"_s}, {4, u"E-mails"_s}},
            .limit = {},
            .limitName = {}};
}

ReportPage byDepartment(const SendReport &report, const ProspectStore &store)
{
    ReportPage page = byGroup(u"Par département"_s, u"Département");
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
    ReportPage page = byGroup(u"Par métier"_s, u"Métier");
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
    const QString channel = line.channel == Channel::sms ? u"SMS : "_s : u"E-mail : "_s;
    const SendCount &count = line.count;
    return {channel + line.title,
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
        .columns = {{u"Modèle", wide},
                    {u"Envois", narrow, number},
                    {u"Destinataires", narrow + 2, number},
                    {u"STOP", narrow, number},
                    {u"STOP en 30 jours", narrow + 5, number},
                    {u"Part, au moins", narrow + 2, share},
                    {u"Part, au plus", narrow + 2, share}},
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
