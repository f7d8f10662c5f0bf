#include "import/import_error.h"
#include "import/import_report.h"
#include "import/package.h"
#include "import/prospect_excel_importer.h"
#include "import/stop_list.h"
#include "store/do_not_contact.h"
#include "store/many_contacts.h"
#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

QString joined(const IdSet &keys) { return QStringList(keys.begin(), keys.end()).join(u' '); }

TEST(StopListTexts, NameWhomeverTheyNameInAnyShape)
{
    for (const auto &[text, keys, others] : std::vector<std::array<const char *, 3>>{
             {"06.39.98.00.01;+33 (0)6 39 98 00 02", "0639980001 0639980002", ""},
             {"+33 6 39 98 00 01 / 0033639980002", "0639980001 0639980002", ""},
             {"06 39 98 00 01 06 39 98 00 02", "0639980001 0639980002", ""},
             {"639980001", "0639980001", ""},
             {"\t\"06 39 98 00 01\"", "0639980001", ""},
             {"Anne <Anne@Example.org>, b@example.org/c@example.org",
              "email:anne@example.org email:b@example.org email:c@example.org", ""},
             {"+33 2 98 00 00 01", "", "0298000001"},
             {"12/03/2026;29200;n° 12", "", ""}}) {
        StopList list;
        takeStops(text, list);
        EXPECT_EQ(joined(list.keys), QString::fromUtf8(keys)) << text;
        EXPECT_EQ(joined(list.otherNumbers), QString::fromUtf8(others)) << text;
    }
}

class StopListFiles : public StoreTest {
protected:
    QString write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(desktop.folders.root.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }
};

TEST_F(StopListFiles, AreReadInEveryEncodingAndRefusedWithAReason)
{
    const Packages packages;
    EXPECT_EQ(joined(readStopList(packages.package({{"xl/worksheets/1.xml",
                                                     worksheet("<row><c><v>639980001</v></c>"
                                                               "</row>")}}))
                         .keys),
              u"0639980001"_s);
    for (const QByteArray &bytes :
         {QByteArray("\xEF\xBB\xBFnum\xC3\xA9ro\r\n0639980001"), QByteArray("num\xE9ro;0639980001"),
          QByteArray("\xFF\xFE"
                     "0\0006\0003\0009\0009\0008\0000\0000\0000\0001\0",
                     22)})
        EXPECT_EQ(joined(readStopList(write(u"l.csv"_s, bytes)).keys), u"0639980001"_s);
    for (const auto &[name, bytes, message] : std::vector<std::tuple<QString, QByteArray, QString>>{
             {u"l.pdf"_s, "06", u"Choisissez un fichier .csv, .xlsx ou .txt."_s},
             {u"l.txt"_s, QByteArray("a\0b", 3), u"Le fichier n’est pas un texte."_s},
             {u"l.xlsx"_s, "PK", UnreadableWorkbook().message()}}) {
        try {
            (void)readStopList(write(name, bytes));
            ADD_FAILURE() << name.toStdString();
        } catch (const ImportFailure &failure) {
            EXPECT_EQ(failure.message(), message);
        }
    }
}

TEST_F(StopListFiles, StopWhomTheyNameAndKeepTheOthersFromLaterImports)
{
    store().setStopped(true, chloe());
    store().setSelectedForSending(true, alix());
    StopList list;
    takeStops("alix@example.org;0639980012;0639980050;z@example.org", list);
    const StopMatches matches = matchStops(list, store());
    EXPECT_EQ(joined(matches.contacts), u"0639980010"_s);
    EXPECT_EQ(joined(matches.alreadyStopped), u"0639980012"_s);
    EXPECT_EQ(joined(matches.unknown), u"0639980050 email:z@example.org"_s);

    listen();
    EXPECT_EQ(store().setStopped(true, matches.contacts).changed.size(), 1U);
    EXPECT_EQ(announced.filter(u"suivi-envois"_s).size(), 1) << "one write";
    EXPECT_TRUE(store().sendSelection().empty());
    desktop.files.refusal = u"plein"_s;
    EXPECT_EQ(store().addToDoNotContact(matches.unknown), u"plein"_s);
    EXPECT_TRUE(store().doNotContact().keys().empty());
    desktop.files.refusal.reset();
    EXPECT_FALSE(store().addToDoNotContact(matches.unknown));

    restart();
    ProspectImportAnalysis analysis;
    analysis.prospects = {{u"0639980050"_s, u"A"_s, {}, {}, u"29"_s, true, {}},
                          {u"0639980051"_s, u"B"_s, {}, u"z@example.org"_s, u"29"_s, true, {}},
                          {u"0639980052"_s, u"C"_s, {}, {}, u"29"_s, true, {}}};
    analysis.emailUpdates = {{u"0639980010"_s, u"z@example.org"_s}};
    EXPECT_TRUE(store()
                    .merge(std::move(analysis))
                    .message.endsWith(u"\n2 contact(s) marqué(s) STOP, à ne pas contacter."_s));
    for (const auto &[id, stopped] : {std::pair(u"0639980050"_s, true),
                                      {u"0639980051"_s, true},
                                      {u"0639980052"_s, false},
                                      {u"0639980010"_s, true}})
        EXPECT_EQ(store().isStopped(*store().prospect(id)), stopped) << id.toStdString();
    restart();
    desktop.writeFile(u"numeros-a-ne-pas-contacter.json"_s, "[1");
    EXPECT_EQ(store().filesSetAside().size(), 1);
    restart();
    const QDir data(desktop.folders.data());
    ASSERT_TRUE(data.mkdir(u"numeros-a-ne-pas-contacter.json"_s)); // nothing that can be opened
    EXPECT_TRUE(store().filesSetAside().empty());
    EXPECT_NE(store().addToDoNotContact({u"0639980050"_s}), std::nullopt);
}

} // namespace
