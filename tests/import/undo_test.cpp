#include "import/import_undo.h"
#include "import/prospect_excel_importer.h"
#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

const QString brought = u"0639980020"_s;

/// A store into which an import brought two contacts, one of them not to be contacted, the address
/// of two others, and a department.
class UndoTest : public StoreTest {
protected:
    UndoTest()
    {
        desktop.writeFile(u"contacts-modifies.json"_s, R"({"0639980012":{"label":"CHLOÉ","phone":
            "06 39 98 00 12","email":"vieille@example.org","department":"56"}})");
        desktop.writeFile(u"suivi-envois.json"_s, R"({"0639980020":{"sent":true,
            "sentAt":"2026-03-31T22:30:00Z"}})"); // of one who was deleted
        m_undo = std::make_unique<ImportUndo>(store());
        EXPECT_FALSE(store().addToDoNotContact({u"0639980021"_s, u"email:alix2@example.org"_s}));
        EXPECT_FALSE(store().add(u"Dina"_s, u"06 39 98 00 30"_s, {}, u"44"_s, {}));
        before = files();
        import();
        EXPECT_TRUE(store().isStopped(alix()));
        EXPECT_NE(files(), before);
    }

    void import()
    {
        ProspectImportAnalysis analysis;
        analysis.prospects.push_back({brought, u"NEUF"_s, {}, {}, u"974"_s, true, {}});
        analysis.prospects.push_back({u"0639980021"_s, u"STOP"_s, {}, {}, u"44"_s, true, {}});
        analysis.emailUpdates = {{u"0639980010"_s, u"alix2@example.org"_s},
                                 {u"0639980012"_s, u"chloe2@example.org"_s},
                                 {brought, u"neuf@example.org"_s}};
        analysis.departments = {{u"974"_s, u"La Réunion"_s}};
        undo().merge(std::move(analysis));
    }

    std::map<QString, QByteArray> files()
    {
        std::map<QString, QByteArray> contents;
        for (const CollectionDescriptor &row : collections()) {
            const QString name = QString::fromUtf16(row.fileName);
            contents[name] = desktop.file(name);
        }
        return contents;
    }

    ImportUndo &undo() { return *m_undo; }

    std::map<QString, QByteArray> before;

private:
    std::unique_ptr<ImportUndo> m_undo;
};

TEST_F(UndoTest, PutsEveryFileBackToTheByteInOneWriteEach)
{
    store().setSelectedForEmailSending(true, *store().prospect(brought));
    EXPECT_TRUE(undo().isOffered());
    listen();
    EXPECT_TRUE(undo().undo());
    EXPECT_EQ(files(), before);
    EXPECT_EQ(announced.size(), 6) << announced.join(u'\n').toStdString();
    EXPECT_EQ(announced.removeDuplicates(), 0);
    EXPECT_TRUE(store().emailSendSelection().empty());
    EXPECT_FALSE(undo().isOffered());
    EXPECT_FALSE(undo().undo());
}

struct Act {
    const char *name;
    void (*perform)(ProspectStore &store, const Prospect &contact);
    bool endsIt; ///< when it is done to a contact of the import
};

class UndoAfter : public UndoTest, public testing::WithParamInterface<Act> {};

TEST_P(UndoAfter, IsOfferedUntilAContactOfTheImportIsTouched)
{
    const auto perform = [this](const QString &id) {
        const Prospect contact = *store().prospect(id);
        GetParam().perform(store(), contact);
    };
    perform(u"0639980030"_s);
    EXPECT_TRUE(undo().isOffered()) << "another contact";
    perform(u"0639980021"_s);
    EXPECT_EQ(undo().isOffered(), !GetParam().endsIt);
    const auto contacts = store().allProspects();
    EXPECT_EQ(undo().undo(), !GetParam().endsIt);
    EXPECT_EQ(store().allProspects() == contacts, GetParam().endsIt);
}

INSTANTIATE_TEST_SUITE_P(
    Store, UndoAfter,
    testing::Values(
        Act{"Sms", [](auto &store, const auto &contact) { store.recordSentNow(contact); }, true},
        Act{"Email", [](auto &store, const auto &contact) { store.setEmailSent(true, contact); },
            true},
        Act{"Stop", [](auto &store, const auto &contact) { store.setStopped(true, contact); },
            true},
        Act{"Comment", [](auto &store, const auto &contact) { store.setComment(u"x"_s, contact); },
            true},
        Act{"Template",
            [](auto &store, const auto &contact) { store.assignMessage(u"id"_s, contact); }, true},
        Act{"File", [](auto &store, const auto &contact) { store.setAttachment(u"/f"_s, contact); },
            true},
        Act{"Edit",
            [](auto &store, const auto &contact) {
                EXPECT_FALSE(store.update(contact, {u"É"_s, {}, contact.id, {}, u"44"_s, {}}));
            },
            true},
        Act{"Deletion",
            [](auto &store, const auto &contact) { store.deleteProspects({contact.id}); }, true},
        Act{"Tick",
            [](auto &store, const auto &contact) { store.setSelectedForSending(true, contact); },
            false}),
    [](const auto &test) { return std::string(test.param.name); });

TEST_F(UndoTest, EndsWithASendUnderWay)
{
    undo().noteSend(u"0639980030"_s);
    EXPECT_TRUE(undo().isOffered());
    undo().noteSend(alix().id); // who was given an address
    EXPECT_FALSE(undo().isOffered());
}

TEST_F(UndoTest, LeavesADepartmentThatSomebodyElseHasByNow)
{
    ASSERT_FALSE(store().add(u"Même"_s, u"06 39 98 00 40"_s, {}, u"974"_s, {}));
    EXPECT_TRUE(undo().undo());
    EXPECT_EQ(store().departmentName(u"974"_s), u"La Réunion"_s);
}

TEST_F(UndoTest, IsOfTheLastImportAlone)
{
    undo().merge({});
    EXPECT_FALSE(undo().isOffered());
}

} // namespace
