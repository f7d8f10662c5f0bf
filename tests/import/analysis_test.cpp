#include "import/contact_cells.h"
#include "import/department_details.h"
#include "import/header_text.h"
#include "import/package.h"
#include "import/prospect_excel_importer.h"

#include <QRegularExpression>
#include <QTextStream>

#include <gtest/gtest.h>

#include <ctime>
#include <random>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

/// The whole analysis as a table.
QByteArray table(const ProspectImportAnalysis &analysis)
{
    QByteArray out;
    QTextStream text(&out);
    text << "headerRows\t" << analysis.headerRows << "\nduplicates\t" << analysis.duplicates
         << "\nrowsWithoutMobile\t" << analysis.rowsWithoutMobile << "\ninvalidRows\t"
         << analysis.invalidRows << '\n';
    for (const auto &[id, address] : analysis.emailUpdates)
        text << "update\t" << id << '\t' << address << '\n';
    for (const DepartmentInfo &department : analysis.departments)
        text << "department\t" << department.code << '\t' << department.name << '\n';
    for (const Prospect &p : analysis.prospects) {
        EXPECT_TRUE(p.isCustom);
        text << "contact\t" << p.id << '\t' << p.label << '\t' << p.phone << '\t'
             << p.email.value_or(u"-"_s) << '\t' << p.department << '\t'
             << p.profession.value_or(u"-"_s) << '\n';
    }
    text.flush();
    return out;
}

TEST(ImportAnalysis, FindsTheContactsOfRealWorkbooks)
{
    EXPECT_EQ(workbooks(u"workbooks"_s).size(), 5);
    for (QString path : workbooks(u"workbooks"_s)) {
        const auto analysis = ProspectExcelImporter::analyze(path, {u"0639980001"_s});
        QFile expected(path.replace(u".xlsx"_s, u".tsv"_s));
        ASSERT_TRUE(expected.open(QFile::ReadOnly)) << path.toStdString();
        EXPECT_EQ(table(analysis).toStdString(), expected.readAll().toStdString());
    }
}

TEST(ImportAnalysis, CanBeFollowedAndAbandoned)
{
    const Packages packages;
    const QByteArray sheet = worksheet(QByteArray("<row/>").repeated(100'000));
    const QString path = packages.package({{"xl/worksheets/1.xml", sheet}});
    constexpr double mostBetweenLooks = 64 * 1024; // bytes of a part
    std::stop_source stop;
    std::vector<double> shares;
    const auto progress = [&](double share) {
        EXPECT_FALSE(stop.stop_requested()) << "nothing is read any more";
        EXPECT_LE((share - (shares.empty() ? 0 : shares.back())) * double(sheet.size()),
                  mostBetweenLooks + 1);
        shares.push_back(share);
        if (share > 0.5)
            stop.request_stop();
    };
    EXPECT_THROW(ProspectExcelImporter::analyze(path, {}, {stop.get_token(), progress}),
                 ImportAbandoned);
    EXPECT_TRUE(std::ranges::is_sorted(shares));
    EXPECT_GT(shares.front(), 0);
    EXPECT_LT(shares.back(), 1);
}

TEST(ImportAnalysis, StopsAtOnceAmongTextsThatTakeLong)
{
    for (const QString &name : {u"slow_mobiles"_s, u"long_names"_s, u"shared_megabyte"_s}) {
        std::stop_source stop;
        std::clock_t asked = 0; // the time of our own processor: others do not count
        const auto progress = [&](double share) {
            if (share > 0.5 && !stop.stop_requested()) {
                asked = std::clock();
                stop.request_stop();
            }
        };
        EXPECT_THROW((void)ProspectExcelImporter::analyze(testData(u"hostile/%1.xlsx"_s.arg(name)),
                                                          {}, {stop.get_token(), progress}),
                     ImportAbandoned);
        EXPECT_LT(std::clock() - asked, CLOCKS_PER_SEC / 4) << name.toStdString();
    }
    std::stop_source before;
    before.request_stop();
    EXPECT_THROW((void)ProspectExcelImporter::analyze(testData(u"hostile/bomb_declared.xlsx"_s), {},
                                                      {before.get_token(), {}}),
                 ImportAbandoned);
}

TEST(ImportAnalysis, DepartmentsAreReadInAllTheirSpellings)
{
    for (const QStringList &fields : dataTable(u"departments.tsv"_s)) {
        const auto found = departmentDetails(fields[0].toStdString(), fields[1].toStdString());
        EXPECT_EQ(found ? found->code : QString(), fields[2]) << fields[0].toStdString();
        EXPECT_EQ(found ? found->name : QString(), fields[3]) << fields[0].toStdString();
    }
}

// What the import does without a regular expression, done with one, for the comparison below.
QString plainHeader(const QString &text)
{
    QString folded = text.normalized(QString::NormalizationForm_D).toCaseFolded();
    folded.remove(QRegularExpression(u"\\p{Mn}"_s));
    return folded.replace(QRegularExpression(u"[^a-z0-9]+"_s), u" "_s).trimmed();
}

QString plainEmail(const QString &cell)
{
    static const QRegularExpression pattern(
        uR"([a-z0-9.!#$%&'*+/=?^_`{|}~-]+@[a-z0-9](?:[a-z0-9-]{0,61}[a-z0-9])?)"
        uR"((?:\.[a-z0-9](?:[a-z0-9-]{0,61}[a-z0-9])?)+)"_s);
    return pattern.match(cell.trimmed().toLower()).captured();
}

QString plainMobile(const QString &cell)
{
    static const QRegularExpression other(u"\\D"_s), prefix(u"^(0033|33)"_s),
        lostZero(u"^[67]\\d{8}$"_s), mobile(u"^0[67]\\d{8}$"_s),
        within(uR"((?:(?:\+|00)33[ .-]?[67]|0[67])(?:[ .-]?\d{2}){4})"_s);
    QString digits = QString(cell).remove(other);
    if (lostZero.match(digits).hasMatch())
        digits.prepend(u'0');
    else if (!prefix.match(digits).hasMatch() && digits.size() != 10)
        digits = within.match(cell).captured().remove(other);
    return mobile.match(digits.replace(prefix, u"0"_s)).captured();
}

QString plainCode(const QString &text)
{
    static const QRegularExpression pattern(u"(?<![0-9A-Z])(?:2A|2B|\\d{2,3})(?![0-9A-Z])"_s);
    return pattern.match(text.toUpper()).captured();
}

TEST(ImportAnalysis, ShortCutsGiveWhatRegularExpressionsGive)
{
    const QStringList pieces{u"a"_s,      u"Z"_s,       u"@"_s,      u"."_s,     u"-"_s,
                             u"06"_s,     u" "_s,       u"+33"_s,    u"0033 "_s, u"7"_s,
                             u"12"_s,     u"é"_s,       u"Œ"_s,      u"ß"_s,     u"’"_s,
                             u"İ"_s,      u"e\u0301"_s, u"\u212A"_s, u"2A"_s,    u"b@b.fr"_s,
                             u"_"_s,      u"ÿ"_s,       u"\u00A0"_s, u"/"_s,     QString(62, u'x'),
                             u"345678"_s, u"😀"_s};
    std::mt19937 random(3);
    for (int round = 0; round < 20'000; ++round) {
        QString cell;
        for (auto count = random() % 12; count > 0; --count)
            cell += pieces[qsizetype(random()) % pieces.size()];
        const std::string utf8 = cell.toStdString();
        ASSERT_EQ(normalizedHeader(utf8), plainHeader(cell).toStdString()) << utf8;
        ASSERT_EQ(emailIn(utf8).value_or(QString()), plainEmail(cell)) << utf8;
        ASSERT_EQ(mobileIn(utf8).value_or(QString()), plainMobile(cell)) << utf8;
        const auto department = departmentDetails(utf8, "");
        ASSERT_EQ(department ? department->code : QString(), plainCode(cell)) << utf8;
    }
    for (const char *title : {"Nom :", "NOM", "Raison  sociale", "Nom de l’Entreprise", "OLVAK"})
        EXPECT_EQ(columnRole(title), ColumnRole::name) << title;
    EXPECT_EQ(columnRole("Courriel"), ColumnRole::email);
    EXPECT_EQ(columnRole("Nom du contact principal"), std::nullopt);
}

} // namespace
