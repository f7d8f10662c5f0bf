// Reads, analyses and imports workbooks of 1,000 to 100,000 contacts and compares each time with
// the floor of the same run.

#include "contact_workbook.h"
#include "floor.h"
#include "import/excel_workbook_reader.h"
#include "import/import_report.h"
#include "import/prospect_excel_importer.h"
#include "store/prospect_store.h"
#include "support/fake_desktop.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>

namespace quenoria::bench {
namespace {

struct Outcome {
    double seconds = 0;
    double megabytes = 0; ///< by which the memory grew at its peak
};

constexpr double mega = 1'000'000.0;

double peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) * 1024.0 / mega;
}

/// Runs the work in a process of its own, so that its memory is counted alone.
template <typename Work>
Outcome measureOnce(Work &&work)
{
    int ends[2];
    if (pipe(ends) != 0)
        return {};
    if (const pid_t child = fork(); child != 0) {
        Outcome outcome;
        if (read(ends[0], &outcome, sizeof outcome) != ssize_t(sizeof outcome))
            std::fputs("a measure failed\n", stderr);
        waitpid(child, nullptr, 0);
        close(ends[0]);
        close(ends[1]);
        return outcome;
    }
    const Outcome outcome = work();
    _exit(write(ends[1], &outcome, sizeof outcome) == ssize_t(sizeof outcome) ? 0 : 1);
}

template <typename Work>
Outcome timed(Work &&work)
{
    const double before = peakMegabytes();
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    return {elapsed.count(), peakMegabytes() - before};
}

/// The fastest of several runs.
template <typename Work>
Outcome measure(Work &&work)
{
    constexpr int runs = 7;
    Outcome best = measureOnce(work);
    for (int run = 1; run < runs; ++run) {
        const Outcome next = measureOnce(work);
        best.seconds = std::min(best.seconds, next.seconds);
    }
    return best;
}

struct CountingSink : WorkbookSink {
    std::size_t bytes = 0;

    void beginSheet() override {}
    void row(const WorksheetRow &row) override
    {
        for (const WorksheetCell &cell : row.cells())
            bytes += cell.text.size();
    }
};

Outcome wholeImport(const QString &workbook)
{
    test::FakeDesktop desktop;
    ProspectStore store(desktop.platform());
    return timed([&] { store.importProspects(workbook); });
}

void report(const QString &workbook, int contacts)
{
    measureOnce([&] { return timed([&] { writeContactWorkbook(workbook, contacts); }); });
    const double inflated = double(inflateAndParse(workbook)) / mega;
    const Outcome floor = measure([&] { return timed([&] { inflateAndParse(workbook); }); });
    const Outcome read = measure([&] {
        return timed([&] {
            CountingSink sink;
            ExcelWorkbookReader::readSheets(workbook, sink);
        });
    });
    const Outcome analysed =
        measure([&] { return timed([&] { ProspectExcelImporter::analyze(workbook, {}); }); });
    const Outcome imported = measure([&] { return wholeImport(workbook); });
    std::printf("%8d %9.1f %8.3f  %8.3f %5.2f  %8.3f %5.2f  %8.3f %5.2f  %8.1f %5.2f\n", contacts,
                inflated, floor.seconds, read.seconds, read.seconds / floor.seconds,
                analysed.seconds, analysed.seconds / floor.seconds, imported.seconds,
                imported.seconds / floor.seconds, imported.megabytes,
                imported.megabytes / inflated);
}

} // namespace
} // namespace quenoria::bench

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    std::puts("Seconds, each followed by its ratio to the floor; budgets at 100,000: read 1.3,\n"
              "import 2.2, peak memory 3 times the inflated parts.\n");
    std::puts("contacts  inflated    floor      read     +      analyse     +"
              "      import     +      memory     ×\n"
              "               MB        s         s  ratio         s  ratio"
              "         s  ratio        MB  ratio");
    for (const int contacts : {1'000, 10'000, 100'000})
        quenoria::bench::report(folder.filePath(QStringLiteral("contacts.xlsx")), contacts);
    return 0;
}
