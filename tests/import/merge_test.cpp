#include "import/import_error.h"
#include "import/import_report.h"
#include "import/package.h"
#include "import/prospect_excel_importer.h"
#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class Merge : public StoreTest {
protected:
    Merge()
    {
        desktop.writeFile(u"departements.json"_s, R"([{"code":"44","name":"Chez nous"}])");
        desktop.writeFile(u"nouveaux-numeros.json"_s, R"([{"id":"email:old","label":"DINA",
            "phone":"","email":"Dina@Example.org","department":"44","isCustom":true}])");
        desktop.writeFile(u"contacts-modifies.json"_s, R"({"0639980012":{"label":"CHLOÉ","phone":
            "06 39 98 00 12","email":"vieille@example.org","department":"56"}})");
    }
};

TEST_F(Merge, ASecondImportOfAWorkbookAddsNothing)
{
    const ImportReport first = store().importProspects(testData(u"workbooks/openpyxl.xlsx"_s));
    EXPECT_EQ(first.title, u"Import terminé"_s);
    EXPECT_EQ(first.message, u"13 contact(s) ajouté(s).\n0 doublon(s) déjà présent(s).\n"
                             u"0 ligne(s) sans mobile ni e-mail ignorée(s)."_s);
    EXPECT_EQ(array(u"nouveaux-numeros.json"_s).size(), 14);
    EXPECT_EQ(array(u"nouveaux-numeros.json"_s).at(1)[u"id"_s], u"0639980101"_s);
    restart();
    const ImportReport second = store().importProspects(testData(u"workbooks/openpyxl.xlsx"_s));
    EXPECT_EQ(second.title, u"Aucun nouveau contact"_s);
    EXPECT_EQ(second.message, u"0 contact(s) ajouté(s).\n13 doublon(s) déjà présent(s).\n"
                              u"0 ligne(s) sans mobile ni e-mail ignorée(s)."_s);
    EXPECT_NE(first.id, second.id);
}

TEST_F(Merge, AnEditedContactIsFoundByWhatItWasAndByWhatItIs)
{
    const auto import = [this] {
        return store().importProspects(testData(u"workbooks/openpyxl.xlsx"_s)).title;
    };
    import();
    const auto correct = [this](const QString &id, const QString &phone, const QString &email) {
        ASSERT_FALSE(
            store().update(*store().prospect(id), {u"X"_s, {}, phone, email, u"44"_s, {}}));
    };
    correct(u"0639980101"_s, u"06 39 98 01 99"_s, {});
    EXPECT_EQ(import(), u"Aucun nouveau contact"_s);
    restart();
    EXPECT_EQ(import(), u"Aucun nouveau contact"_s);
    EXPECT_TRUE(store().duplicateKeys().contains(u"0639980199"_s));

    correct(u"email:old"_s, {}, u"dina2@example.org"_s);
    ProspectImportAnalysis analysis;
    analysis.emailUpdates = {{u"email:old"_s, u"old"_s}};
    analysis.duplicates = 1;
    EXPECT_FALSE(store().merge(std::move(analysis)).message.contains(u"mise(s) à jour"_s));
    EXPECT_EQ(store().prospect(u"email:old"_s)->email, u"dina2@example.org"_s)
        << "what an address was before it was corrected is no news";
}

TEST_F(Merge, ARepeatedContactGetsTheAddress)
{
    ProspectImportAnalysis analysis;
    analysis.prospects.push_back({u"0639980020"_s, u"NEUF"_s, {}, {}, u"44"_s, true, {}});
    analysis.emailUpdates = {{u"0639980010"_s, u"alix2@example.org"_s},
                             {u"0639980012"_s, u"chloe2@example.org"_s},
                             {u"0639980020"_s, u"neuf@example.org"_s},
                             {u"email:dina@example.org"_s, u"dina@example.org"_s}};
    analysis.departments = {{u"44"_s, u"Loire-Atlantique"_s}, {u"974"_s, u"La Réunion"_s}};
    analysis.duplicates = 4;
    analysis.rowsWithoutMobile = 2;
    analysis.invalidRows = 1;
    EXPECT_EQ(
        store().duplicateKeys(),
        (IdSet{u"0639980010"_s, {}, u"0639980012"_s, u"email:dina@example.org"_s, u"email:old"_s}));

    listen();
    EXPECT_EQ(
        store().merge(std::move(analysis)).message,
        u"1 contact(s) ajouté(s).\n4 doublon(s) déjà présent(s).\n4 adresse(s) e-mail "
        u"ajoutée(s) ou mise(s) à jour sur des contacts existants.\n2 ligne(s) sans mobile ni "
        u"e-mail ignorée(s).\n1 ligne(s) avec département invalide ignorée(s)."_s);
    EXPECT_EQ(
        announced,
        (QStringList{u"list"_s, u"adresses-mails-completees.json 0639980010,0639980020,email:old"_s,
                     u"contacts-modifies.json 0639980012"_s, u"departments"_s}))
        << "once per file";
    EXPECT_EQ(object(u"adresses-mails-completees.json"_s),
              (QJsonObject{{u"0639980010"_s, u"alix2@example.org"_s},
                           {u"0639980020"_s, u"neuf@example.org"_s},
                           {u"email:old"_s, u"dina@example.org"_s}}));
    EXPECT_EQ(object(u"contacts-modifies.json"_s)[u"0639980012"_s],
              (QJsonObject{{u"label"_s, u"CHLOÉ"_s},
                           {u"phone"_s, u"06 39 98 00 12"_s},
                           {u"email"_s, u"chloe2@example.org"_s},
                           {u"department"_s, u"56"_s}}));
    EXPECT_EQ(store().departmentName(u"44"_s), u"Chez nous"_s);
    EXPECT_EQ(store().departments().back(), (DepartmentInfo{u"974"_s, u"La Réunion"_s}));
}

TEST_F(Merge, AFailedImportChangesNothing)
{
    const Packages packages;
    const QByteArray town = worksheet("<row><c><v>Nom</v></c><c r='B1'><v>Ville</v></c></row>");
    const QByteArray contact = worksheet(
        "<row><c><v>Nom</v></c><c r='B1'><v>Mobile</v></c><c r='C1'><v>CP</v></c></row>"
        "<row><c><v>A</v></c><c r='B2'><v>639980050</v></c><c r='C2'><v>29</v></c></row>");
    listen();
    for (const auto &[first, second, message] :
         {std::tuple(town, town,
                     u"Impossible de trouver la colonne « Nom de l’entreprise » avec une colonne "
                     u"« Téléphone mobile » ou « Adresse e-mail » dans ce fichier."_s),
          {contact, "<w>",
           u"Le contenu du fichier Excel n’est pas valide (ligne 1, colonne 4)."_s}}) {
        const QString workbook =
            packages.package({{"xl/worksheets/1.xml", first}, {"xl/worksheets/2.xml", second}});
        try {
            store().importProspects(workbook);
            ADD_FAILURE() << message.toStdString();
        } catch (const ImportFailure &failure) {
            EXPECT_EQ(failure.message(), message);
        }
    }
    EXPECT_EQ(announced, QStringList());
}

} // namespace
