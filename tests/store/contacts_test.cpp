#include "store/store_fixture.h"

#include <QDir>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

const QString needsReach = u"Saisissez un numéro de téléphone ou une adresse e-mail valide."_s;
const QString badPhone = u"Le numéro de téléphone n’est pas valide."_s;
const QString known = u"Ce contact existe déjà dans la liste."_s;

struct Addition {
    QString name, phone, email;
    Refusal refusal;
    QString id, label, shownPhone;
};

class Contacts : public StoreTest {
protected:
    Refusal update(const Prospect &prospect, const ProspectStore::ContactEdit &edit)
    {
        return store().update(prospect, edit);
    }
};

TEST_F(Contacts, CreationChecksThenBuildsTheContact)
{
    const Addition additions[] = {
        {u"  "_s,
         u"06 39 98 00 60"_s,
         u"pas bonne"_s,
         {},
         u"0639980060"_s,
         u"NOUVEAU CONTACT — AJOUT MANUEL (29)"_s,
         u"06 39 98 00 60"_s},
        {u"Chez Zoé"_s,
         u"+33 6 39 98 00 61"_s,
         {},
         {},
         u"33639980061"_s,
         u"CHEZ ZOÉ — AJOUT MANUEL (29)"_s,
         u"33639980061"_s},
        {u"x"_s,
         {},
         u" Alix@Example.org "_s,
         {},
         u"email:alix@example.org"_s,
         u"X — AJOUT MANUEL (29)"_s,
         {}},
        {u"x"_s, {}, u"alix@example.org"_s, known, {}, {}, {}},
        {u"x"_s, u"06-39-98-00-10"_s, {}, known, {}, {}, {}},
        {u"x"_s, u"063998006"_s, {}, needsReach, {}, {}, {}},
        {u"x"_s, u"063998006"_s, u"n@example.org"_s, badPhone, {}, {}, {}},
        {u"x"_s, {}, u"n@example"_s, needsReach, {}, {}, {}},
    };
    for (const Addition &addition : additions) {
        const std::size_t before = store().customProspects().size();
        EXPECT_EQ(store().add(addition.name, addition.phone, addition.email, u"29"_s, u" "_s),
                  addition.refusal);
        ASSERT_EQ(store().customProspects().size(), before + (addition.refusal ? 0 : 1));
        if (addition.refusal)
            continue;
        const Prospect &made = store().customProspects().back();
        EXPECT_EQ(made.id, addition.id);
        EXPECT_EQ(made.label, addition.label);
        EXPECT_EQ(made.phone, addition.shownPhone);
        EXPECT_EQ(made.profession, std::nullopt);
    }
}

TEST_F(Contacts, EditingChecksInTheDocumentedOrder)
{
    const QString mail = u"L’adresse e-mail n’est pas valide."_s;
    const QString taken =
        u"Ce mobile ou cette adresse e-mail appartient déjà à un autre contact."_s;
    const std::pair<ProspectStore::ContactEdit, QString> refusals[] = {
        {{u" "_s, {}, {}, {}, {}, {}}, u"Saisissez le nom de l’entreprise ou du contact."_s},
        {{u"C"_s, {}, {}, u"faux"_s, {}, {}}, needsReach},
        {{u"C"_s, {}, u"0639"_s, u"c@example.org"_s, {}, {}}, badPhone},
        {{u"C"_s, {}, u"0639980012"_s, u"faux"_s, {}, {}}, mail},
        {{u"C"_s, {}, u"06.39.98.00.10"_s, {}, {}, {}}, taken},
        {{u"C"_s, {}, {}, u"ALIX@example.org"_s, {}, {}}, taken},
    };
    const QByteArray before = desktop.file(u"contacts-modifies.json"_s);
    for (const auto &[edit, message] : refusals)
        EXPECT_EQ(update(chloe(), edit), message);
    EXPECT_TRUE(store().contactOverrides().empty());
}

TEST_F(Contacts, AnEditIsAnOverrideAndTheIdStays)
{
    desktop.writeFile(u"adresses-mails-completees.json"_s,
                      R"({"0639980012":"vieille@example.org"})");
    ASSERT_EQ(update(chloe(), {u" Chloé "_s, u"lorient"_s, u"06 39 98 00 13"_s, {}, u"56"_s, {}}),
              std::nullopt);
    EXPECT_EQ(chloe().label, u"CHLOÉ — LORIENT (56) — 06 39 98 00 13"_s);
    EXPECT_EQ(chloe().email, std::nullopt) << "the override rules, even without an address";
    EXPECT_TRUE(object(u"adresses-mails-completees.json"_s).isEmpty());
    ASSERT_EQ(update(alix(), {u"Alix"_s, {}, {}, u"alix@example.org"_s, u"29"_s, {}}), std::nullopt)
        << "a contact is no duplicate of itself";
    EXPECT_EQ(alix().label, u"ALIX (29)"_s);
    EXPECT_EQ(alix().profession, u"Fleuriste"_s) << "an absent trade keeps the contact's own";
}

TEST_F(Contacts, DeletionTakesEverythingAttached)
{
    ASSERT_EQ(store().add(u"D"_s, u"06 39 98 00 70"_s, {}, u"29"_s, {}), std::nullopt);
    const Prospect custom = store().customProspects().back();
    for (const Prospect &prospect : {custom, alix()}) {
        store().recordSentNow(prospect);
        store().recordEmailSentNow(prospect);
        store().setSelectedForSending(true, prospect);
        store().assignMessage(u"x"_s, prospect);
    }
    EXPECT_EQ(store().deleteProspects({custom.id, u"0639980010"_s, u"inconnu"_s}), 2);
    EXPECT_EQ(array(u"contacts-supprimes.json"_s), QJsonArray{u"0639980010"_s});
    EXPECT_TRUE(array(u"nouveaux-numeros.json"_s).isEmpty());
    EXPECT_FALSE(object(u"suivi-envois.json"_s).contains(custom.id));
    EXPECT_TRUE(object(u"suivi-envois-mails.json"_s).isEmpty());
    EXPECT_TRUE(object(u"associations-messages.json"_s).isEmpty());
    EXPECT_TRUE(store().sendSelection().empty());
    EXPECT_EQ(store().smsRecipientsSentThisMonth(), 2) << "recipients stay counted";

    ASSERT_TRUE(QDir(desktop.folders.data()).removeRecursively());
    EXPECT_EQ(store().deleteProspects({u"inconnu"_s}), 0);
    EXPECT_FALSE(QDir(desktop.folders.data()).exists()) << "nothing to delete, nothing to write";
}

TEST_F(Contacts, DeletionForgetsInEveryFileThatKnowsTheContact)
{
    const QStringList names{u"associations-messages"_s, u"associations-mails"_s,
                            u"adresses-mails-completees"_s, u"fichiers-joints"_s};
    for (const QString &name : names)
        desktop.writeFile(name + u".json"_s, R"({"0639980010":"x","0639980012":"x"})");
    const QByteArray sent = R"({"sent":true,"sentAt":"2026-02-01T10:00:00Z"})";
    for (const QString &name : {u"suivi-envois.json"_s, u"suivi-envois-mails.json"_s})
        desktop.writeFile(name, R"({"0639980010":)" + sent + R"(,"0639980012":)" + sent + '}');
    const QByteArray edited = R"({"label":"E","phone":"","department":"29"})";
    desktop.writeFile(u"contacts-modifies.json"_s,
                      R"({"0639980010":)" + edited + R"(,"0639980012":)" + edited + '}');
    EXPECT_EQ(store().assignedMessageID(alix()), u"olvak-premier-envoi"_s) << "\"x\" is none";
    EXPECT_EQ(store().assignedEmailTemplateID(alix()), u"email-premier-envoi"_s);
    EXPECT_EQ(store().messageAssignments().size() + store().emailAssignments().size(), 4U);
    EXPECT_EQ(store().deleteProspects({u"0639980010"_s}), 1);
    for (const QString &name :
         names + QStringList{u"suivi-envois"_s, u"suivi-envois-mails"_s, u"contacts-modifies"_s}) {
        EXPECT_FALSE(desktop.file(name + u".json"_s).contains("0639980010")) << name.toStdString();
        EXPECT_TRUE(desktop.file(name + u".json"_s).contains("0639980012")) << name.toStdString();
    }
}

TEST_F(Contacts, DepartmentsAreCheckedNamedAndSorted)
{
    const QString needs = u"Saisissez le code et le nom du département."_s;
    const QString invalid = u"Le code doit contenir 2 ou 3 chiffres, ou être 2A/2B."_s;
    const std::tuple<QString, QString, Refusal> additions[] = {
        {u" 44 "_s, u" Loire-Atlantique "_s, {}},
        {u"44"_s, u"x"_s, u"Ce département existe déjà."_s},
        {u"2b"_s, u"Haute-Corse"_s, {}},
        {u"971"_s, u"Guadeloupe"_s, {}},
        {u"1"_s, u"x"_s, invalid},
        {u"2C"_s, u"x"_s, invalid},
        {u"1234"_s, u"x"_s, invalid},
        {u"7A"_s, u"x"_s, invalid},
        {u"75\n76"_s, u"x"_s, invalid},
        {u"33"_s, u"  "_s, needs},
        {u" "_s, u"x"_s, needs},
    };
    for (const auto &[code, name, refusal] : additions)
        EXPECT_EQ(store().addDepartment(code, name), refusal) << code.toStdString();
    QStringList codes;
    for (const DepartmentInfo &department : store().sortedDepartments())
        codes << department.code;
    EXPECT_EQ(codes.join(u' '), u"2B 22 29 35 44 56 75 971"_s);
    EXPECT_EQ(store().departmentName(u"44"_s), u"Loire-Atlantique"_s);
    EXPECT_EQ(store().departmentName(u"99"_s), u"Département 99"_s);
}

} // namespace
