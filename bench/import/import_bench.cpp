// Reads, analyses and imports workbooks of 1,000 to 100,000 contacts and compares each time with
// the floor of the same run.

#include "contact_workbook.h"
#include "floor.h"
#include "import/excel_workbook_reader.h"
#include "import/import_report.h"
#include "import/prospect_excel_importer.h"
#include "report.h"
#include "store/prospect_store.h"
#include "support/fake_desktop.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include <array>
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

Outcome readAlone(const QString &workbook)
{
    CountingSink sink;
    return timed([&] { ExcelWorkbookReader::readSheets(workbook, sink); });
}

Outcome analyseAlone(const QString &workbook)
{
    ProspectImportAnalysis analysis;
    return timed([&] { analysis = ProspectExcelImporter::analyze(workbook, {}); });
}

Outcome floorAlone(const QString &workbook)
{
    return timed([&] { inflateAndParse(workbook); });
}

/// What is measured, in the order of the table.
constexpr std::array measures{&floorAlone, &readAlone, &analyseAlone, &wholeImport};
using Outcomes = std::array<Outcome, measures.size()>;

/// The fastest of several runs each, by turns, so that a busy machine slows all alike.
Outcomes measureAll(const QString &workbook)
{
    constexpr int rounds = 9;
    Outcomes best;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < measures.size(); ++i) {
            const Outcome next = measureOnce([&] { return measures[i](workbook); });
            if (round == 0 || next.seconds < best[i].seconds)
                best[i] = next;
        }
    }
    return best;
}

/// Measures the work on a workbook of so many contacts; the budgets are those of a large one.
Outcomes reportOn(Report &report, const QString &workbook, int contacts)
{
    const bool isLarge = contacts >= 100'000;
    measureOnce([&] { return timed([&] { writeContactWorkbook(workbook, contacts); }); });
    const double inflated = double(inflateAndParse(workbook)) / mega;
    const Outcomes outcomes = measureAll(workbook);
    const auto ratio = [&](const char *what, std::size_t measure, double budget) {
        report.ratio(what, contacts, outcomes[0].seconds, outcomes[measure].seconds,
                     isLarge ? budget : 0);
    };
    ratio("read, s", 1, 1.2);
    ratio("read and analysed, s", 2, 0);
    ratio("read, analysed and merged, s", 3, 1.6);
    report.ratio("memory of it, to inflated parts, MB", contacts, inflated,
                 outcomes.back().megabytes, isLarge ? 2.4 : 0);
    return outcomes;
}

} // namespace
} // namespace quenoria::bench

int main(int argc, char **argv)
{
    using namespace quenoria::bench;
    QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString workbook = folder.filePath(QStringLiteral("contacts.xlsx"));
    Report report;
    report.heading("floor");
    reportOn(report, workbook, 1'000);
    const Outcomes tenThousand = reportOn(report, workbook, 10'000);
    const Outcomes hundredThousand = reportOn(report, workbook, 100'000);
    report.figure("growth of the import from 10,000", 100'000,
                  hundredThousand[3].seconds / tenThousand[3].seconds, 11);
    return report.exitStatus();
}
