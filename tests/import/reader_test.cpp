#include "import/excel_workbook_reader.h"
#include "import/package.h"
#include "import/prospect_excel_importer.h"
#include "import/sheets.h"
#include "support/readable.h"

#include <gtest/gtest.h>

#include <ctime>
#include <new>

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

struct Greedy : Count {
    void row(const WorksheetRow &) override { throw std::bad_alloc(); }
};

/// The error's message, or what came of the reading.
template <typename Read>
QString outcome(Read &&read)
{
    try {
        return read();
    } catch (const ImportFailure &error) {
        return error.message();
    }
}

QString rowsOf(const QString &path)
{
    return outcome([&] {
        Count count;
        ExcelWorkbookReader::readSheets(path, count);
        return QString::number(count.rows) + u" lignes"_s;
    });
}

QString contactsOf(const QString &path)
{
    return outcome([&] {
        const auto found = ProspectExcelImporter::analyze(path, {}).prospects.size();
        return QString::number(found) + u" contacts"_s;
    });
}

#ifdef __SANITIZE_ADDRESS__
constexpr int patience = 4; // slower, and freed memory is kept back
#else
constexpr int patience = 1;
#endif

TEST(WorkbookReader, HostileWorkbooksEndSoonAndInBoundedMemory)
{
    for (const QStringList &fields : dataTable(u"hostile.tsv"_s)) {
        ASSERT_EQ(fields.size(), 3);
        const std::clock_t start = std::clock();
        const QString path = testData(u"hostile/%1.xlsx"_s.arg(fields[0]));
        EXPECT_EQ(rowsOf(path), fields[1]) << fields[0].toStdString();
        EXPECT_EQ(fields[2].isEmpty() ? QString() : contactsOf(path), fields[2])
            << fields[0].toStdString();
        EXPECT_LT(std::clock() - start, patience * 10 * CLOCKS_PER_SEC) << fields[0].toStdString();
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    EXPECT_LT(usage.ru_maxrss, patience * 200'000) << "kB";
}

TEST(WorkbookReader, SaysWhichLimitWasPassed)
{
    constexpr qsizetype mebi = 1024 * 1024;
    const auto value = [](const char *column, qsizetype bytes) {
        return QByteArray("<c r='") + column + "'><v>" + QByteArray(bytes, 'x') + "</v></c>";
    };
    const auto text = [](qsizetype bytes) {
        return "<sst><si><t>" + QByteArray(bytes, 'x') + "</t></si></sst>";
    };
    const QByteArray row = value("A", mebi) + value("B", mebi) + value("C", mebi);
    QByteArray names;
    for (int i = 0; i < 40'000; ++i)
        names += "<a b" + QByteArray::number(i) + QByteArray(1000, 'x') + "=''/>";
    const auto charset = [](const char *name) {
        return QByteArray("<?xml version='1.0' encoding='") + name + "'?><w><row/></w>";
    };
    const auto nested = [](int depth) {
        return QByteArray("<w>").repeated(depth) + QByteArray("</w>").repeated(depth);
    };
    std::vector<QByteArray> paths(10'000);
    Packages::Members many{{sheet1, "<w/>"}};
    for (QByteArray &path : paths) {
        path = "a" + QByteArray::number(many.size());
        many.emplace_back(path.constData(), QByteArray());
    }
    const QString unknownCharset =
        u"Le fichier Excel est écrit dans un jeu de caractères que l’import ne sait pas lire."_s;
    const QString longText = u"Le fichier Excel contient un texte trop long pour être lu."_s;
    const std::pair<Packages::Members, QString> cases[] = {
        {{{sheet1, charset("us-ascii")}}, u"1 lignes"_s},
        {{{sheet1, charset("windows-1252")}}, unknownCharset},
        {{{sheet1, charset("utf-16")}}, unknownCharset}, // and is not
        {{{sheet1, nested(256)}}, u"0 lignes"_s},
        {{{sheet1, nested(257)}},
         u"Le contenu du fichier Excel est imbriqué trop profondément pour être lu."_s},
        {{{sheet1, "<w>" + names + "</w>"}},
         u"Le contenu du fichier Excel a trop de noms différents pour être lu."_s},
        {{{sheet1, worksheet("<row>" + row + value("D", mebi) + "</row>")}}, u"1 lignes"_s},
        {{{sheet1, worksheet("<row>" + row + value("D", mebi + 1) + "</row>")}},
         u"Le fichier Excel contient une ligne trop longue pour être lue."_s},
        {{{sheet1, worksheet("<row>" + value("A", 2 * mebi + 1) + "</row>")}}, longText},
        {{{sheet1, worksheet({})}, {strings, text(2 * mebi)}}, u"0 lignes"_s},
        {{{sheet1, worksheet({})}, {strings, text(2 * mebi + 1)}}, longText},
        {many, u"Le fichier Excel est fait d’un trop grand nombre de parties pour être importé."_s},
        {{{sheet1, "<w/>"}, {"/XL\\worksheets/./Sheet1.xml", "<w/>"}},
         u"Le fichier Excel contient deux parties du même nom."_s},
        {{{"xl/worksheets/../sheet1.xml", "<w/>"}}, unreadable},
    };
    const Packages packages;
    for (const auto &[members, said] : cases)
        EXPECT_EQ(rowsOf(packages.package(members)), said)
            << members.front().second.left(40).data();
    EXPECT_EQ(outcome([&] {
                  Greedy greedy;
                  const auto path = packages.package({{sheet1, worksheet("<row/>")}});
                  ExcelWorkbookReader::readSheets(path, greedy);
                  return QString();
              }),
              u"La mémoire disponible ne suffit pas pour importer ce fichier Excel."_s);
}

TEST(WorkbookReader, KnowsAPartHoweverItsNameIsWritten)
{
    const char *const names[][2] = {{"XL/Worksheets/SHEET1.XML", "xl/SHAREDSTRINGS.xml"},
                                    {"xl\\worksheets\\sheet1.xml", "xl\\sharedStrings.xml"},
                                    {"./xl/./worksheets//sheet1.xml", "/xl/sharedStrings.xml"}};
    const QByteArray cell = worksheet("<row><c t='s'><v>0</v></c></row>");
    const Packages packages;
    for (const auto &[part, table] : names)
        EXPECT_EQ(read(packages.package({{part, cell}, {table, "<sst><si><t>a</t></si></sst>"}})),
                  u"a"_s)
            << part;
}

/// Inputs on which the reader once failed; the sanitizers watch.
TEST(WorkbookReader, SurvivesWhatBrokeIt)
{
    for (const QString &path : workbooks(u"regressions"_s))
        EXPECT_FALSE(rowsOf(path).isEmpty()) << path.toStdString();
}

} // namespace
