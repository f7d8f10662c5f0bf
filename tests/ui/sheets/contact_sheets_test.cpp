#include "ui/sheets/add_prospect_view.h"
#include "ui/sheets/department_manager_view.h"
#include "ui/sheets/edit_prospect_view.h"
#include "ui/sheets/new_department_view.h"
#include "ui/sheets/sheet_probe.h"

#include <QTreeWidget>

using namespace quenoria;
using namespace quenoria::test;

namespace {

struct LabelCase {
    const char *name;
    QString label;
    QString expectedName;
    QString expectedCommune;
};

class Labels : public testing::TestWithParam<LabelCase> {};

TEST_P(Labels, GiveBackTheNameAndTheCommune)
{
    Prospect contact;
    contact.label = GetParam().label;
    const ContactFields fields = contactFields(contact);
    EXPECT_EQ(fields.name, GetParam().expectedName);
    EXPECT_EQ(fields.commune, GetParam().expectedCommune);
}

INSTANTIATE_TEST_SUITE_P(
    Contacts, Labels,
    testing::Values(
        LabelCase{"Imported", u"ACME — BREST (29) — 06 39 98 00 10"_s, u"ACME"_s, u"BREST"_s},
        LabelCase{"Foreign", u"ACME — BREST (29) — +33 6.39-98"_s, u"ACME"_s, u"BREST"_s},
        LabelCase{"ByHand", u"ACME — AJOUT MANUEL (29)"_s, u"ACME"_s, u""_s},
        LabelCase{"ByHandSmall", u"Acme — ajout manuel (2a) — 0639980010"_s, u"Acme"_s, u""_s},
        LabelCase{"NoCommune", u"ACME (2B) — 06 39 98 00 10"_s, u"ACME"_s, u""_s},
        LabelCase{"Overseas", u"ACME — SAINT-DENIS (974)"_s, u"ACME"_s, u"SAINT-DENIS"_s},
        LabelCase{"DashInCommune", u"A — B — C (56)"_s, u"A"_s, u"B — C"_s},
        LabelCase{"Hyphen", u"AN-ORIANT - PARIS (75)"_s, u"AN-ORIANT - PARIS"_s, u""_s},
        LabelCase{"Free", u"Acme, rue du Port"_s, u"Acme, rue du Port"_s, u""_s},
        LabelCase{"LongCode", u"ACME — BREST (2900)"_s, u"ACME — BREST (2900)"_s, u""_s}),
    [](const auto &test) { return std::string(test.param.name); });

class ContactSheets : public SheetTest {};

TEST_F(ContactSheets, ANewContactNeedsAPhoneOrAnAddress)
{
    AddProspectView sheet(store(), nullptr);
    const Probe probe(sheet);
    EXPECT_EQ(probe.picker(u"Département"_s)->currentText(), u"Finistère (29)"_s);
    probe.type(u"Nom de l’entreprise ou du contact"_s, u"Dora"_s);
    probe.type(u"Numéro de téléphone"_s, u" \t"_s);
    EXPECT_FALSE(probe.button(u"Ajouter"_s)->isEnabled());
    probe.type(u"Numéro de téléphone"_s, u"12"_s);
    sheet.close();
    ASSERT_TRUE(probe.answer(u"Enregistrer"_s)) << "what is typed is not lost unasked";
    EXPECT_EQ(probe.status(), u"Saisissez un numéro de téléphone ou une adresse e-mail valide."_s);
    EXPECT_TRUE(sheet.isVisible());
    probe.type(u"Numéro de téléphone"_s, u"06 39 98 00 55"_s);
    probe.type(u"Adresse e-mail"_s, u"Dora@example.org"_s);
    probe.type(u"Métier"_s, u"Potière"_s);
    probe.press(u"Ajouter"_s);
    EXPECT_EQ(sheet.result(), QDialog::Accepted);
    EXPECT_EQ(store().customProspects()[0],
              (Prospect{u"0639980055"_s, u"DORA — AJOUT MANUEL (29)"_s, u"06 39 98 00 55"_s,
                        u"dora@example.org"_s, u"29"_s, true, u"Potière"_s}));
}

TEST_F(ContactSheets, ADepartmentCreatedFromTheFormIsSelectedInIt)
{
    AddProspectView sheet(store(), nullptr);
    const Probe probe(sheet);
    probe.press(u"Créer un autre département…"_s);
    const Probe inner(*sheet.findChild<NewDepartmentView *>());
    inner.type(u"Code du département, par exemple 75"_s, u" 2a "_s);
    EXPECT_FALSE(inner.button(u"Créer"_s)->isEnabled());
    inner.type(u"Nom du département, par exemple Paris"_s, u"Corse-du-Sud"_s);
    inner.press(u"Créer"_s);
    EXPECT_EQ(probe.picker(u"Département"_s)->currentText(), u"Corse-du-Sud (2A)"_s);
    probe.type(u"Numéro de téléphone"_s, u"06 39 98 00 55"_s);
    probe.press(u"Ajouter"_s);
    EXPECT_EQ(store().customProspects()[0].department, u"2A"_s);
}

TEST_F(ContactSheets, ADepartmentOutsideTheListIsStillTheOneAdded)
{
    desktop.writeFile(u"departements.json"_s, R"([{"code":"56","name":"Morbihan"}])");
    desktop.resources.files.clear();
    AddProspectView sheet(store(), nullptr);
    const Probe probe(sheet);
    EXPECT_EQ(probe.picker(u"Département"_s)->currentIndex(), -1);
    probe.type(u"Adresse e-mail"_s, u"dora@example.org"_s);
    probe.press(u"Ajouter"_s);
    EXPECT_EQ(store().customProspects()[0].department, u"29"_s);
}

TEST_F(ContactSheets, AnEditSavesEveryFieldOrSaysWhyNot)
{
    EditProspectView sheet(store(), alix(), nullptr);
    const Probe probe(sheet);
    EXPECT_EQ(probe.field(u"Nom de l’entreprise ou du contact"_s)->text(), u"ALIX"_s);
    EXPECT_EQ(probe.field(u"Commune"_s)->text(), u"BREST"_s);
    EXPECT_EQ(probe.field(u"Métier"_s)->text(), u"Fleuriste"_s);
    EXPECT_EQ(probe.field(u"Numéro de téléphone"_s)->text(), u"06 39 98 00 10"_s);
    probe.type(u"Adresse e-mail"_s, u"alix@"_s);
    probe.press(u"Enregistrer les modifications"_s);
    EXPECT_EQ(probe.status(), u"L’adresse e-mail n’est pas valide."_s);
    probe.type(u"Adresse e-mail"_s, u""_s);
    probe.type(u"Commune"_s, u"Vannes"_s);
    probe.choose(u"Département"_s, u"Morbihan (56)"_s);
    probe.press(u"Enregistrer les modifications"_s);
    EXPECT_EQ(sheet.result(), QDialog::Accepted);
    EXPECT_EQ(alix().label, u"ALIX — VANNES (56) — 06 39 98 00 10"_s);
    EXPECT_EQ(alix().email, std::nullopt);
}

TEST_F(ContactSheets, TheDepartmentManagerAddsAndShowsTheRow)
{
    DepartmentManagerView sheet(store(), nullptr);
    const Probe probe(sheet);
    const auto rows = [&sheet](const QString &code) {
        return sheet.findChild<QTreeWidget *>()->findItems(code, Qt::MatchExactly).size();
    };
    probe.type(u"Code, ex. 75"_s, u"A1"_s);
    probe.type(u"Nom, ex. Paris"_s, u"Corse-du-Sud"_s);
    probe.press(u"Ajouter"_s);
    EXPECT_EQ(probe.status(), u"Le code doit contenir 2 ou 3 chiffres, ou être 2A/2B."_s);
    EXPECT_EQ(probe.statusRole(), tintRole(Tint::negative));
    EXPECT_EQ(probe.field(u"Nom, ex. Paris"_s)->text(), u"Corse-du-Sud"_s);
    probe.type(u"Code, ex. 75"_s, u"2a"_s);
    probe.press(u"Ajouter"_s);
    EXPECT_EQ(probe.status(), u"Département ajouté."_s);
    EXPECT_EQ(probe.statusRole(), tintRole(Tint::positive));
    EXPECT_EQ(rows(u"2A"_s), 1);
    EXPECT_TRUE(probe.field(u"Nom, ex. Paris"_s)->text().isEmpty());
    EXPECT_FALSE(probe.button(u"Ajouter"_s)->isEnabled());
    EXPECT_TRUE(sheet.isVisible());
}

} // namespace
