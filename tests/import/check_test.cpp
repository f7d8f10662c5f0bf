#include "import/import_report.h"
#include "import/package.h"
#include "import/prospect_excel_importer.h"
#include "import/workbook_check.h"
#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

/// Rows of a sheet, of which the cells stand from column A on.
QByteArray sheetOf(const std::vector<QStringList> &rows)
{
    QByteArray xml;
    for (std::size_t number = 0; number < rows.size(); ++number) {
        xml += "<row r='" + QByteArray::number(10 + 2 * number) + "'>";
        for (qsizetype column = 0; column < rows[number].size(); ++column)
            xml += QByteArray("<c r='") + char('A' + column) + "9'><v>" +
                   rows[number][column].toHtmlEscaped().toUtf8() + "</v></c>";
        xml += "</row>";
    }
    return worksheet(xml);
}

class Check : public StoreTest {
protected:
    /// What is said of each row, with its number, under a header of six titles.
    std::string outcomes(std::vector<QStringList> rows)
    {
        rows.insert(rows.begin(), {u"Raison sociale"_s, u"Portable"_s, u"Mail"_s, u"Département"_s,
                                   u"CP"_s, u"Nom"_s});
        const QString path = packages.package(
            {{"xl/worksheets/1.xml", sheetOf(rows)}, {"xl/worksheets/2.xml", worksheet("<row/>")}});
        WorkbookChecker checker(KnownContacts::of(store()));
        analysis = ProspectExcelImporter::analyze(path, store().duplicateKeys(), {}, &checker);
        check = checker.take();
        QStringList said;
        for (const CheckedRow &row : check.rows)
            said << u"%1 %2"_s.arg(QString::number(row.number), row.outcome);
        return said.join(u'\n').toStdString();
    }

    const Packages packages;
    ProspectImportAnalysis analysis;
    WorkbookCheck check;
};

TEST_F(Check, EachRowIsToldWhatBecomesOfIt)
{
    ASSERT_FALSE(store().addToDoNotContact({u"0639980050"_s}));
    EXPECT_EQ(outcomes({{u"Neuf"_s, u"639980040"_s, {}, {}, u"29200"_s},
                        {u"Encore"_s, u"06 39 98 00 40"_s, u"a@example.org"_s, {}, u"29"_s},
                        {u"Encore"_s, u"06 39 98 00 40"_s, u"b@example.org"_s, {}, u"29"_s},
                        {u"Alix"_s, u"06 39 98 00 10"_s, u"ALIX@example.org"_s, {}, u"29"_s},
                        {u"Chloé"_s, u"06 39 98 00 12"_s, u"chloe@example.org"_s, {}, u"56"_s},
                        {u"Stop"_s, u"06 39 98 00 50"_s, {}, {}, u"29"_s},
                        {{}, u"06 39 98 00 41"_s},
                        {{}, {}, {}, {}, u"29"_s},
                        {u"Muet"_s},
                        {u"Fixe"_s, u"02 98 00 00 01"_s, u"fixe@"_s, {}, u"29"_s},
                        {u"Fixe"_s, {}, u"fixe@"_s, {}, u"29"_s},
                        {u"Loin"_s, u"06 39 98 00 42"_s},
                        {u"Loin"_s, u"06 39 98 00 42"_s, {}, u"Bretagne"_s, u"7"_s}}),
              "12 Nouveau contact\n"
              "14 Adresse ajoutée : contact de la ligne 12\n"
              "16 Adresse remplacée (avant : a@example.org) : contact de la ligne 12\n"
              "18 Déjà présent : ALIX — BREST (29)\n"
              "20 Adresse ajoutée : CHLOÉ — VANNES (56)\n"
              "22 Nouveau contact, à ne pas contacter : marqué STOP\n"
              "24 Pas de nom\n"
              "28 Ni mobile ni adresse e-mail\n"
              "30 Pas de mobile français dans « 02 98 00 00 01 », pas d’adresse e-mail valide dans "
              "« fixe@ »\n"
              "32 Pas de mobile, pas d’adresse e-mail valide dans « fixe@ »\n"
              "34 Ni département ni code postal\n"
              "36 Pas de numéro de département dans « Bretagne » ni dans le code postal « 7 »");
    EXPECT_EQ(check.counts, (std::array{2, 3, 1, 1, 3, 2, 0}));
    EXPECT_EQ(check.headers.front().used,
              (QStringList{u"Nom (« Raison sociale »)"_s, u"Mobile (« Portable »)"_s,
                           u"E-mail (« Mail »)"_s, u"Département"_s, u"Code postal (« CP »)"_s}));
    EXPECT_EQ(check.headers.front().unused, QStringList{u"Nom"_s});
    EXPECT_EQ(check.sheets - check.sheetsWithHeader, 1);
    EXPECT_TRUE(store().customProspects().empty()) << "a look changes nothing";
    EXPECT_TRUE(store().merge(std::move(analysis)).message.startsWith(u"2 contact(s) ajouté(s)."_s))
        << "what was shown is what is imported";
}

TEST_F(Check, RowsOfErasedPeopleAreToldAsTheImportLeavesThemOut)
{
    ASSERT_FALSE(store().rememberErased({u"0639980060"_s, u"email:dina@example.org"_s}));
    const auto row = [](const QString &mobile, const QString &email) {
        return QStringList{u"Dina"_s, mobile, email, {}, u"29"_s};
    };
    const std::string erased = " Laissé de côté : données effacées à la demande du contact\n";
    EXPECT_EQ(outcomes({row(u"0639980060"_s, {}), row(u"0639980060"_s, u"d@example.org"_s),
                        row(u"0639980061"_s, u"dina@example.org"_s), row(u"0639980061"_s, {}),
                        row(u"0639980012"_s, u"dina@example.org"_s), row(u"0639980062"_s, {})}),
              "12" + erased + "14" + erased + "16" + erased + "18" + erased +
                  "20 Adresse laissée de côté, effacée à la demande de son titulaire : CHLOÉ — "
                  "VANNES (56)\n22 Nouveau contact");
    EXPECT_EQ(check.rejected->rows(), 0U) << "a file to correct names nobody who was erased";
    std::ignore = store().merge(std::move(analysis));
    EXPECT_EQ(store().customProspects().size(), 1U);
    EXPECT_TRUE(store().emailOverrides().empty()) << "of nobody";
}

TEST_F(Check, OfManyRowsTheFirstOfEachEndAreKept)
{
    std::vector<QStringList> rows(1'500, {u"Muet"_s});
    rows.push_back({u"Neuf"_s, u"639980040"_s, {}, {}, u"29200"_s});
    (void)outcomes(std::move(rows));
    EXPECT_EQ(check.rows.size(), 1'001U);
    EXPECT_EQ(check.rows.back().end, CheckedEnd::added);
    EXPECT_EQ(check.count(CheckedEnd::unreachable), 1'500);
    EXPECT_EQ(check.rejected->rows(), 1'500U);
}

} // namespace
