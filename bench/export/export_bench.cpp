// Exports 100,000 contacts and compares the time with that of the library alone, which is given the
// same texts.

#include "export/export_file.h"
#include "export/export_tables.h"
#include "model/contact_rules.h"
#include "report.h"
#include "support/fake_desktop.h"

#include <xlsxwriter.h>

#include <QCoreApplication>

#include <chrono>

namespace quenoria::bench {
namespace {

constexpr int contacts = 100'000;
constexpr int rounds = 3;

double seconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

QByteArray contactFile()
{
    QByteArray json = "[";
    for (int each = 0; each < contacts; ++each) {
        const QByteArray number = "0639" + QByteArray::number(100'000 + each);
        json += (each > 0 ? "," : "") + ("{\"id\":\"" + number) +
                "\",\"label\":\"BOULANGERIE MARTIN " + QByteArray::number(each) +
                " — QUIMPER (29) — " + formatPhone(QString::fromLatin1(number)).toLatin1() +
                "\",\"phone\":\"" + number + "\",\"email\":\"contact." + QByteArray::number(each) +
                "@example.org\",\"department\":\"29\",\"isCustom\":true,"
                "\"profession\":\"Boulangerie\"}";
    }
    return json + "]";
}

using Rows = std::vector<std::vector<std::string>>;

Rows textsOf(const ExportTable &table)
{
    Rows rows(table.rows);
    std::vector<ExportCell> cells;
    for (std::size_t row = 0; row < table.rows; ++row) {
        table.fill(row, cells);
        for (const ExportCell &cell : cells) {
            const auto *text = std::get_if<QString>(&cell);
            rows[row].push_back(text ? text->toStdString() : std::string());
        }
    }
    return rows;
}

void writeAlone(const QString &path, const Rows &rows)
{
    lxw_workbook *workbook = workbook_new(path.toUtf8().constData());
    lxw_worksheet *sheet = workbook_add_worksheet(workbook, "Contacts");
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < rows[row].size(); ++column)
            worksheet_write_string(sheet, lxw_row_t(row), lxw_col_t(column),
                                   rows[row][column].c_str(), nullptr);
    }
    workbook_close(workbook);
}

int run()
{
    test::FakeDesktop desktop;
    desktop.writeFile(QStringLiteral("nouveaux-numeros.json"), contactFile());
    const ProspectStore store(desktop.platform());
    const QString path = desktop.folders.root.filePath(QStringLiteral("export.xlsx"));
    const Rows rows = textsOf(contactTable(store, store.allProspects(), QTimeZone::utc()));
    double floor = 1e9, whole = 1e9, copied = 1e9;
    for (int round = 0; round < rounds; ++round) {
        floor = std::min(floor, seconds([&] { writeAlone(path, rows); }));
        ExportTable table;
        const double copying =
            seconds([&] { table = contactTable(store, store.allProspects(), QTimeZone::utc()); });
        copied = std::min(copied, copying);
        whole = std::min(
            whole, copying + seconds([&] {
                       (void)writeExport(table, {path, ExportFormat::workbook}, desktop.files);
                   }));
    }
    Report report;
    report.heading("library");
    report.ratio("contacts exported, s", contacts, floor, whole, 2);
    report.figure("of which before the window is free, s", contacts, copied, 0);
    return report.exitStatus();
}

} // namespace
} // namespace quenoria::bench

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return quenoria::bench::run();
}
