#include "import/import_error.h"
#include "import/import_report.h"
#include "import/package.h"
#include "import/prospect_excel_importer.h"
#include "store/store_fixture.h"

#include <atomic>
#include <cstdlib>
#include <new>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

constexpr long never = -1;
std::atomic<long> allocationsLeft = never; ///< until one fails, on any thread
std::atomic<std::size_t> smallest = 0;     ///< that is counted

void *allocate(std::size_t size)
{
    if (size >= smallest && allocationsLeft >= 0 && allocationsLeft-- == 0)
        return nullptr;
    return std::malloc(size == 0 ? 1 : size);
}

} // namespace

void *operator new(std::size_t size)
{
    void *const block = allocate(size);
    return block ? block : throw std::bad_alloc();
}
// Those who ask in this way do not always look at what they get.
void *operator new(std::size_t size, const std::nothrow_t &) noexcept { return std::malloc(size); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept
{
    return std::malloc(size);
}
void *operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void *block) noexcept { std::free(block); }
void operator delete[](void *block, std::size_t) noexcept { std::free(block); }
void operator delete(void *block) noexcept { std::free(block); }
void operator delete(void *block, std::size_t) noexcept { std::free(block); }

namespace {

class OutOfMemoryTest : public StoreTest {
protected:
    static QByteArray row(const QList<QByteArray> &cells)
    {
        QByteArray row = "<row>";
        for (qsizetype column = 0; column < cells.size(); ++column)
            row += "<c r='" + QByteArray(1, char('A' + column)) + "1'><v>" + cells[column] +
                   "</v></c>";
        return row + "</row>";
    }

    Packages packages;
};

TEST_F(OutOfMemoryTest, NeverEndsAnImportAndARepeatAddsWhatIsMissing)
{
    const QString workbook = packages.package(
        {{"xl/worksheets/sheet1.xml",
          worksheet(row({"Nom", "Mobile", "CP", "E-mail"}) + row({"D", "0639980020", "29", ""}) +
                    row({"E", "0639980021", "29", ""}) +
                    row({"C", "0639980012", "56", "c@example.org"}))}});
    ASSERT_EQ(store().addToDoNotContact({u"0639980021"_s}), std::nullopt);
    int refused = 0;
    // One after the other at first, then fewer: each costs two imports with all their files.
    for (long failing = 0, left = never; left == never; failing += 1 + failing / 20) {
        for (const Collection filled : {Collection::customProspects, Collection::statuses})
            QFile::remove(store().file(filled));
        restart();
        (void)store().allProspects();
        allocationsLeft = failing;
        try {
            (void)store().importProspects(workbook);
        } catch (const ImportFailure &failure) {
            ++refused;
            EXPECT_EQ(failure.message(), OutOfMemory().message());
        }
        left = allocationsLeft.exchange(never);
        (void)store().importProspects(workbook);
        const auto unsaved = store().unsaved(); // as the window offers
        for (const auto &[collection, reason] : unsaved)
            store().save(collection);
        EXPECT_EQ(array(u"nouveaux-numeros.json"_s).size(), 2) << failing;
        EXPECT_TRUE(store().isStopped(*store().prospect(u"0639980021"_s))) << failing;
    }
    EXPECT_GT(refused, 20);
}

TEST_F(OutOfMemoryTest, NeverEndsAStartAndIsNoBrokenFile)
{
    (void)store().importProspects(testData(u"workbooks/openpyxl.xlsx"_s));
    store().recordSentNow(alix());
    restart();
    const Platform platform = desktop.platform();
    smallest = 512; // the toolkit's own objects do without a way out
    int refused = 0;
    for (long failing = 0, left = never; left == never; ++failing) {
        allocationsLeft = failing;
        try {
            const ProspectStore started(platform);
        } catch (const std::bad_alloc &) {
            ++refused;
        }
        left = allocationsLeft.exchange(never);
    }
    smallest = 0;
    EXPECT_GT(refused, 10);
    EXPECT_EQ(QDir(desktop.folders.data()).entryList({u"*illisible*"_s}), QStringList());
    EXPECT_EQ(store().sendHistory(alix()).size(), 1U);
}

} // namespace
