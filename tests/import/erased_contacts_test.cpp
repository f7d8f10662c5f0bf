#include "import/erased_contacts.h"
#include "import/import_report.h"
#include "store/contact_dossier.h"
#include "store/do_not_contact.h"
#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

const QString listFile = u"numeros-a-ne-pas-contacter.json"_s;

class ErasedContacts : public StoreTest {
protected:
    void erase(const QString &id)
    {
        EXPECT_FALSE(store().rememberErased(keysForImports(*contactDossier(store(), id))));
        store().deleteProspects({id});
    }
};

TEST_F(ErasedContacts, StayOutOfEveryLaterImportWithoutBeingNamedAnywhere)
{
    desktop.writeFile(listFile, R"(["0639980010","0639980077"])"); // as an earlier edition wrote it
    ASSERT_FALSE(
        store().add(u"Dina"_s, u"+33 6 39 98 00 20"_s, u"Dina@Example.org"_s, u"29"_s, {}));
    erase(u"33639980020"_s);
    erase(alix().id);
    const QByteArray file = desktop.file(listFile);
    for (const char *known : {"39980020", "dina", "39980010", "alix"})
        EXPECT_FALSE(file.contains(known)) << file.constData();
    IdSet salts;
    for (const QJsonValue &entry : array(listFile))
        salts.insert(entry.toString().section(u':', 0, -2));
    EXPECT_EQ(salts.size(), 2U) << "one salt, and the number that was there in clear";

    restart();
    ProspectImportAnalysis analysis;
    analysis.prospects = {{u"0639980020"_s, u"A"_s, {}, {}, u"29"_s, true, {}},
                          {u"0639980010"_s, u"B"_s, {}, {}, u"29"_s, true, {}},
                          {u"0639980051"_s, u"C"_s, {}, u"dina@example.org"_s, u"29"_s, true, {}},
                          {u"0639980077"_s, u"D"_s, {}, {}, u"29"_s, true, {}}};
    analysis.emailUpdates = {{u"0639980012"_s, u"alix@example.org"_s}};
    EXPECT_EQ(store().merge(std::move(analysis)).message,
              u"1 contact(s) ajouté(s).\n0 doublon(s) déjà présent(s).\n0 ligne(s) sans mobile ni "
              "e-mail ignorée(s).\n4 ligne(s) laissée(s) de côté : données effacées à la demande "
              "du contact.\n1 contact(s) marqué(s) STOP, à ne pas contacter."_s);
    EXPECT_EQ(store().customProspects().size(), 1U);
    EXPECT_EQ(chloe().email, std::nullopt);
    EXPECT_EQ(store().doNotContact().keys(), IdSet{u"0639980077"_s}) << "no hash is exported";
}

TEST_F(ErasedContacts, AListThatCannotBeOpenedTakesNoHash)
{
    const QDir data(desktop.folders.data());
    ASSERT_TRUE(data.mkpath(listFile)); // nothing that can be opened
    EXPECT_NE(store().rememberErased({u"0639980010"_s}), std::nullopt);
    EXPECT_FALSE(store().doNotContact().erased().contains(u"0639980010"_s));
}

} // namespace
