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
const QString tooLarge = u"Le fichier Excel est trop volumineux pour être importé."_s;

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
    for (const QList<QByteArray> &fields : dataTable(u"cells.tsv"_s))
        EXPECT_EQ(read(packages.package({{sheet1, worksheet(fields[1])}, {strings, table}})),
                  QString::fromUtf8(fields[2]))
            << fields[0].toStdString();
    EXPECT_EQ(read(packages.package({{"xl/worksheets/sheet10.xml", "<w><row/></w>"},
                                     {"xl/worksheets/sheet2.XML", "<w/>"},
                                     {sheet1, worksheet("<row><c r='XFD1'><v>z</v></c></row>")}})),
              QString(16'383, u'|') + u"z=="_s);
}

TEST(WorkbookReader, ReadsEveryWayOfPackingAndRefusesWhatIsNoWorkbook)
{
    const QDir folder(QStringLiteral(QUENORIA_TEST_DATA "/packages"));
    const Packages packages;
    for (const auto &[name, expected] :
         {std::pair(u"read"_s, u"Zoé 😀"_s), {u"refused"_s, unreadable}}) {
        for (const QFileInfo &file : QDir(folder.filePath(name)).entryInfoList({u"*.xlsx"_s}))
            EXPECT_EQ(read(file.filePath()), expected) << file.fileName().toStdString();
    }
    const QByteArray whole = packages.bytes({{sheet1, worksheet({})}});
    for (const auto &name : {u"c.xls"_s, u"c.csv"_s, u"xlsx"_s})
        EXPECT_EQ(read(packages.file(whole, name)),
                  u"Choisissez un fichier Excel au format .xlsx."_s);
    EXPECT_EQ(read(packages.file(whole, u"Contacts.XLSX"_s)), QString());
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

QByteArray manyNames()
{
    QByteArray names;
    for (int i = 0; i < 1'000'000; ++i)
        names += "<c n" + QByteArray::number(i) + "='' m" + QByteArray::number(i) + "=''/>";
    return names;
}

TEST(WorkbookReader, HostileWorkbooksEndSoonAndInBoundedMemory)
{
    const Packages packages;
    const auto sheet = [&packages](const QByteArray &rows) {
        return packages.bytes({{sheet1, worksheet(rows)}});
    };
    const auto withSize = [&sheet](const QByteArray &rows, const QByteArray &littleEndian) {
        QByteArray bytes = sheet(rows);
        return bytes.replace(bytes.indexOf("PK\1\2") + 24, 4, littleEndian);
    };
    QByteArray entities = "<!DOCTYPE w [<!ENTITY a0 'aaaaaaaaaa'>";
    for (char i = '1'; i <= '9'; ++i)
        entities += QByteArray("<!ENTITY a") + i + " '" +
                    (QByteArray("&a") + char(i - 1) + ';').repeated(10) + "'>";
    const std::tuple<const char *, QByteArray, QString> files[] = {
        {"a bomb that says so", withSize("", "\xFF\xFF\xFF\xEF"), tooLarge},
        {"a bomb that does not",
         withSize(QByteArray(" ").repeated(100'000'000), QByteArray(4, '\1')), unreadable},
        {"entities",
         packages.bytes({{sheet1, entities + "]><worksheet><row><c><v>&a9;</v></c>"
                                             "</row></worksheet>"}}),
         invalid},
        {"a column past the last", sheet("<row><c r='ZZZZZZ1'><v>1</v></c></row>"),
         u"Le fichier Excel contient une cellule au-delà de la dernière colonne possible (XFD)."_s},
        {"depth", sheet(QByteArray("<c>").repeated(20'000'000)), invalid},
        {"an endless tag", sheet("<c r='" + QByteArray(100'000'000, 'A') + "'/>"), invalid},
        {"names", sheet(manyNames()), invalid},
        {"empty rows", sheet(QByteArray("<row/>").repeated(10'000'000)), u"10000000"_s},
        {"wide rows", sheet(QByteArray("<row><c r='XFD1'><v>1</v></c></row>").repeated(500'000)),
         u"500000"_s},
        {"unused strings",
         packages.bytes(
             {{strings, "<sst>" + QByteArray("<si><t/></si>").repeated(10'000'000) + "</sst>"},
              {sheet1, worksheet("<row/>")}}),
         u"1"_s},
    };
    const auto peak = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss;
    };
    const long before = peak();
    for (const auto &[name, bytes, expected] : files) {
        const QString path = packages.file(bytes);
        const std::clock_t start = std::clock();
        const QString result = outcome(path);
        EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC) << name;
        EXPECT_TRUE(result.startsWith(expected)) << name << ": " << result.toStdString();
    }
    EXPECT_LT(peak() - before, 300'000) << "kB";
}

/// Inputs on which the reader once failed; the sanitizers watch.
TEST(WorkbookReader, SurvivesWhatBrokeIt)
{
    const QDir folder(QStringLiteral(QUENORIA_TEST_DATA "/regressions"));
    for (const QString &name : folder.entryList({u"*.xlsx"_s}))
        EXPECT_FALSE(outcome(folder.filePath(name)).isEmpty()) << name.toStdString();
}

} // namespace
