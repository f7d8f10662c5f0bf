#include "import/excel_workbook_reader.h"
#include "import/import_error.h"
#include "import/package.h"
#include "import/sheets.h"

#include <QStringEncoder>

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

/// Sheets apart by "=", rows by line feeds, cells by "|"; or the error's message.
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
        sheets << rows.join(u'\n');
    }
    return sheets.join(u'=');
}

struct Case {
    const char *name;
    QByteArray rows;
    QString expected;
};

TEST(WorkbookReader, GivesEachCellTheTextThatItHolds)
{
    const QByteArray table = "<sst><si><t>zéro</t></si><si><r><t>un</t></r><r><t> et </t></r><r>"
                             "<t>demi</t></r><rPh><t>phon</t></rPh></si><si/><t>dehors</t>"
                             "<si><t>a&amp;b&#233;<![CDATA[<c>]]></t></si></sst>";
    const Case cases[] = {
        {"shared, rich and phonetic", "<row><c t='s'><v>1</v></c></row>", u"un et demiphon"_s},
        {"escapes", "<row><c t='s'><v>3</v></c></row>", u"a&bé<c>"_s},
        {"an empty item keeps its place", "<row><c t='s'><v>2</v></c></row>", u""_s},
        {"signs", "<row><c t='s'><v>+0</v></c><c r='B1' t='s'><v>-0</v></c></row>", u"zéro|zéro"_s},
        {"no index",
         "<row><c t='s'><v>4</v></c><c r='B1' t='s'><v> 1</v></c><c r='C1' t='s'>"
         "<v>-1</v></c><c r='D1' t='s'><v>+-0</v></c><c r='E1' t='s'>"
         "<v>99999999999999999999</v></c></row>",
         u"4| 1|-1|+-0|99999999999999999999"_s},
        {"inline", "<row><c t='inlineStr'><is><r><t>x</t></r><t> y</t></is><v>1</v></c></row>",
         u"x y"_s},
        {"raw values", "<row><c><f>1+1</f><v>4.5E-2</v></c><c r='B1' t='b'><v>1</v></c></row>",
         u"4.5E-2|1"_s},
        {"gaps",
         "<row><c r='A1'><v>a</v></c><c r='D1'><v>d</v></c></row><row r='9'/>"
         "<row><c r='C3'><v>c</v></c><c r='E3'><v></v></c></row>",
         u"a|||d\n\n||c"_s},
        {"references", "<row><c r='$B$3'><v>b</v></c><c><v>a</v></c><c r='AA7'><v>aa</v></c></row>",
         u"a|b"_s + QString(25, u'|') + u"aa"_s},
        {"the last one counts",
         "<row><c r='B1'><v>x</v></c><c r='B2' t='s'><v>0</v></c>"
         "<c r='b1'><v>1</v></c><c r='A1'><v>2</v></c></row>",
         u"2|zéro"_s},
        {"prefixes", "<x:row xmlns:x='u'><x:c r='B1'><x:v>p</x:v></x:c></x:row>", u"|p"_s},
        {"the last column", "<row><c r='XFD1'><v>z</v></c></row>", QString(16'383, u'|') + u"z"_s},
        {"an empty cell past it", "<row><c r='ZZZZZZ1'><v></v></c></row>", u""_s},
    };
    const Packages packages;
    for (const Case &c : cases)
        EXPECT_EQ(read(packages.package({{sheet1, worksheet(c.rows)}, {strings, table}})),
                  c.expected)
            << c.name;
}

TEST(WorkbookReader, RefusesWhatIsNoWorkbook)
{
    const Packages packages;
    const QByteArray whole = packages.bytes({{sheet1, worksheet("<row><c><v>1</v></c></row>")}});
    QByteArray wrongChecksum = whole;
    wrongChecksum[wrongChecksum.indexOf("PK\1\2") + 16] ^= 1;
    const std::pair<QByteArray, QString> files[] = {
        {whole, u"1"_s},
        {whole.first(whole.size() - 30), unreadable},
        {wrongChecksum, unreadable},
        {"nom;mobile\n", unreadable},
        {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 locked by a password", unreadable},
        {{}, unreadable},
        {packages.bytes({{"xl/workbook.xml", "<w/>"}}), unreadable},
        {packages.bytes({{"xl/worksheets/_rels/a.xml", "<a/>"},
                         {"xl/worksheets/.a.xml", "<a/>"},
                         {"xl/worksheets/a.txt", "<a/>"},
                         {"XL/worksheets/a.xml", "<a/>"}}),
         unreadable},
        {packages.bytes({{sheet1, "<worksheet>\n<row>"}}),
         u"Le contenu du fichier Excel n’est pas valide (ligne 2, colonne 6)."_s},
        {packages.bytes({{sheet1, worksheet("")}, {strings, "?"}}),
         u"Le contenu du fichier Excel n’est pas valide (ligne 1, colonne 1)."_s},
    };
    for (const auto &[bytes, expected] : files)
        EXPECT_EQ(read(packages.file(bytes)), expected) << bytes.left(20).toStdString();
    for (const auto &name : {u"c.xls"_s, u"c.csv"_s, u"xlsx"_s})
        EXPECT_EQ(read(packages.file(whole, name)),
                  u"Choisissez un fichier Excel au format .xlsx."_s);
    EXPECT_EQ(read(packages.file(whole, u"Contacts.XLSX"_s)), u"1"_s);
    EXPECT_EQ(read(u"missing.xlsx"_s), unreadable);
}

TEST(WorkbookReader, ReadsEveryWayOfPacking)
{
    const auto cell = [](const QByteArray &text) {
        return worksheet("<row><c><v>" + text + "</v></c></row>");
    };
    const auto utf16 = [](const QByteArray &xml) {
        QStringEncoder encode(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
        return QByteArray(encode(QString::fromUtf8(xml)));
    };
    const Packages packages;
    const auto readParts = [&](const std::vector<Member> &parts) {
        return read(packages.package(parts));
    };
    EXPECT_EQ(readParts({{"xl/worksheets/sheet10.xml", cell("10")},
                         {"xl/worksheets/sheet2.XML", cell("2")},
                         {sheet1, cell("1")},
                         {"xl/worksheets/hidden/", {}}}),
              u"1=2=10"_s);
    EXPECT_EQ(readParts({{sheet1, utf16("<?xml version='1.0' encoding='UTF-16'?>" +
                                        cell("Zoé \xF0\x9F\x98\x80"))}}),
              u"Zoé 😀"_s);
    EXPECT_EQ(readParts({{sheet1, "\xEF\xBB\xBF" + cell("Zoé")}}), u"Zoé"_s);
    EXPECT_EQ(readParts({{sheet1, "<?xml version='1.0' encoding='ISO-8859-1'?>" + cell("\xE9")}}),
              u"é"_s);
    for (const auto &name : {u"data_descriptors"_s, u"zip64"_s})
        EXPECT_EQ(read(QStringLiteral(QUENORIA_TEST_DATA "/packages/%1.xlsx").arg(name)), u"Zoé"_s);
    EXPECT_EQ(read(QStringLiteral(QUENORIA_TEST_DATA "/packages/encrypted.xlsx")), unreadable);
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
    const QString invalid = u"Le contenu du fichier Excel n’est pas valide (ligne 1, colonne "_s;
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
