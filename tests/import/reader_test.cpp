#include "import/excel_workbook_reader.h"
#include "import/import_error.h"
#include "import/package.h"
#include "import/sheets.h"

#include <gtest/gtest.h>

#include <ctime>

#include <sys/resource.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

const char *const sheet1 = "xl/worksheets/sheet1.xml";
const char *const strings = "xl/sharedStrings.xml";
const QString unreadable =
    u"Le fichier Excel n’a pas pu être lu. Vérifiez qu’il n’est pas endommagé."_s;
const QString invalid = u"Le contenu du fichier Excel n’est pas valide (ligne "_s;

/// Sheets apart by "=", rows by "/", cells by "|"; or the error's message.
QString read(const QString &path)
{
    Sheets result;
    try {
        ExcelWorkbookReader::readSheets(path, result);
    } catch (const ReaderError &error) {
        return error.message();
    }
    QStringList sheets;
    for (const auto &sheet : result.sheets) {
        QStringList rows;
        for (const QStringList &row : sheet)
            rows << row.join(u'|');
        sheets << rows.join(u'/');
    }
    return sheets.join(u'=');
}

TEST(WorkbookReader, GivesEachCellTheTextThatItHolds)
{
    const QByteArray table = "<sst><si><t>zéro</t></si><si><r><t>un</t></r><r><t> et </t></r><r>"
                             "<t>demi</t></r><rPh><t>phon</t></rPh></si><si/><t>dehors</t>"
                             "<si><t>a&amp;b&#233;<![CDATA[<c>]]></t></si></sst>";
    const Packages packages;
    for (const QStringList &fields : dataTable(u"cells.tsv"_s))
        EXPECT_EQ(
            read(packages.package({{sheet1, worksheet(fields[1].toUtf8())}, {strings, table}})),
            fields[2])
            << fields[0].toStdString();
    EXPECT_EQ(read(packages.package({{"xl/worksheets/sheet10.xml", "<w><row/></w>"},
                                     {"xl/worksheets/sheet2.XML", "<w/>"},
                                     {sheet1, worksheet("<row><c r='XFD1'><v>z</v></c></row>")}})),
              QString(16'383, u'|') + u"z=="_s);
}

TEST(WorkbookReader, ReadsEveryWayOfPackingAndRefusesWhatIsNoWorkbook)
{
    for (const QString &path : workbooks(u"packages/read"_s))
        EXPECT_EQ(read(path), u"Zoé 😀"_s) << path.toStdString();
    for (const QString &path : workbooks(u"packages/refused"_s))
        EXPECT_EQ(read(path), unreadable) << path.toStdString();
    const Packages packages;
    for (const auto &name : {u"c.xls"_s, u"c.csv"_s, u"xlsx"_s})
        EXPECT_EQ(read(packages.package({{sheet1, "<w/>"}}, name)),
                  u"Choisissez un fichier Excel au format .xlsx."_s);
    EXPECT_EQ(read(packages.package({{sheet1, "<w/>"}}, u"Contacts.XLSX"_s)), QString());
    EXPECT_EQ(read(u"missing.xlsx"_s), unreadable);
    EXPECT_EQ(read(packages.package({{sheet1, "<worksheet>\n<row>"}})),
              invalid + u"2, colonne 6)."_s);
    EXPECT_EQ(read(packages.package({{sheet1, worksheet({})}, {strings, "?"}})),
              invalid + u"1, colonne 1)."_s);
}

struct Count : WorkbookSink {
    int rows = 0;
    void beginSheet() override {}
    void row(const WorksheetRow &) override { ++rows; }
};

/// The error's message, or how many rows came.
QString outcome(const QString &path)
{
    Count count;
    try {
        ExcelWorkbookReader::readSheets(path, count);
    } catch (const ReaderError &error) {
        return error.message();
    }
    return QString::number(count.rows);
}

#ifdef __SANITIZE_ADDRESS__
constexpr int patience = 3; // slower, and freed memory is kept back
#else
constexpr int patience = 1;
#endif

TEST(WorkbookReader, HostileWorkbooksEndSoonAndInBoundedMemory)
{
    for (const QStringList &fields : dataTable(u"hostile.tsv"_s)) {
        const std::clock_t start = std::clock();
        const QString result = outcome(testData(u"hostile/%1.xlsx"_s.arg(fields[0])));
        EXPECT_TRUE(result.startsWith(fields[1])) << result.toStdString();
        EXPECT_LT(std::clock() - start, patience * 5 * CLOCKS_PER_SEC) << fields[0].toStdString();
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    EXPECT_LT(usage.ru_maxrss, patience * 200'000) << "kB";
}

/// Inputs on which the reader once failed; the sanitizers watch.
TEST(WorkbookReader, SurvivesWhatBrokeIt)
{
    for (const QString &path : workbooks(u"regressions"_s))
        EXPECT_FALSE(outcome(path).isEmpty()) << path.toStdString();
}

} // namespace
