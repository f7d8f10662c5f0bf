#include "export/csv_export.h"
#include "export/export_file.h"
#include "export/export_tables.h"
#include "import/excel_workbook_reader.h"
#include "import/import_error.h"
#include "import/import_report.h"
#include "import/sheets.h"
#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class Export : public StoreTest {
protected:
    Export()
    {
        desktop.writeFile(u"nouveaux-numeros.json"_s, R"json([
            {"id":"0639980020","label":"ÉTÉ\n— LE \"BOURG\" — L’ÎLE (2A) — 06 39 98 00 20",
             "phone":"06 39 98 00 20","department":"2A","isCustom":true},
            {"id":"33639980021","label":"TAPÉ — AJOUT MANUEL (29)","phone":"33639980021",
             "email":"tape@example.org","department":"29","isCustom":true},
            {"id":"0639980021","label":"AUTRE (01)","phone":"06 39 98 00 21","department":"01",
             "isCustom":true},
            {"id":"0298000000","label":"FIXE (29)","phone":"02 98 00 00 00",
             "email":"fixe@example.org","department":"29","isCustom":true},
            {"id":"email:old@example.org","label":"EDITÉ (29)","phone":"",
             "email":"old@example.org","department":"29","isCustom":true},
            {"id":"email:a@b.c-.com","label":"HÔTE (29)","phone":"","email":"a@b.c-.com",
             "department":"","isCustom":true}])json");
        desktop.writeFile(u"contacts-modifies.json"_s, R"json({
            "email:old@example.org":{"label":"=CMD (29)","phone":"","email":"new@example.org",
             "department":"29","profession":"-trade"},
            "0639980012":{"label":"CHLOÉ (56)","phone":"06 39 98 00 99","department":"56"}})json");
        desktop.writeFile(u"adresses-mails-completees.json"_s,
                          R"json({"0639980020":"+complete@example.org"})json");
        desktop.writeFile(u"suivi-envois.json"_s, R"json({"0639980010":{
            "sent":true,"sentAt":"2026-03-31T22:30:00Z","stopped":true,
            "comment":"=1+1;\r\n\u0001\"x\"",
            "sendHistory":["2026-01-01T10:00:00Z","2026-03-31T22:30:00Z"]}})json");
    }

    QString path(const QString &name) const { return desktop.folders.root.filePath(name); }

    std::vector<QStringList> readWorkbook(const QString &name) const
    {
        Sheets sheets;
        ExcelWorkbookReader::readSheets(path(name), sheets);
        return sheets.sheets.front();
    }

    QByteArray readText(const QString &name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    ExportOutcome write(const ExportTable &table, const QString &name,
                        const ImportWatch &watch = {})
    {
        return writeExport(
            table,
            {path(name), name.endsWith(u"csv"_s) ? ExportFormat::csv : ExportFormat::workbook},
            desktop.files, watch);
    }

    const QTimeZone paris{"Europe/Paris"};
};

TEST_F(Export, ContactsThatAreImportedAgainAddNothing)
{
    store().setComment(QString(40'000, u'é'), *store().prospect(u"0639980020"_s));
    ProspectStore::ContactEdit edit{
        QString(10'000, u'ß'), u"Brest"_s, u"0639980010"_s, {}, u"29"_s, {}};
    ASSERT_FALSE(store().update(alix(), edit));
    const std::vector<Prospect> before = store().allProspects();
    const ExportOutcome outcome = write(contactTable(store(), before, paris), u"c.xlsx"_s);
    EXPECT_FALSE(outcome.failure);
    EXPECT_EQ(outcome.cutTexts, 1U);
    for (const bool again : {false, true}) {
        EXPECT_EQ(store().importProspects(path(u"c.xlsx"_s)).title, u"Aucun nouveau contact"_s);
        EXPECT_EQ(store().allProspects(), before) << again;
        restart();
    }
    const std::vector<QStringList> rows = readWorkbook(u"c.xlsx"_s);
    const auto cell = [&rows](const QString &name, const QString &title) {
        for (const QStringList &row : rows) {
            if (row.value(1).startsWith(name))
                return row.value(int(rows.front().indexOf(title)));
        }
        return u"no row"_s;
    };
    for (const auto &[name, title, value] : std::vector<std::tuple<QString, QString, QString>>{
             {u"ÉTÉ"_s, u"Commune"_s, u"LE \"BOURG\" — L’ÎLE"_s},
             {u"ÉTÉ"_s, u"Adresse e-mail"_s, u"+complete@example.org"_s},
             {u"ÉTÉ"_s, u"Commentaire"_s, QString(32'766, u'é') + u'…'},
             {u"TAPÉ"_s, u"Téléphone mobile"_s, {}},
             {u"TAPÉ"_s, u"Autre numéro"_s, u"33639980021"_s},
             {u"AUTRE"_s, u"Téléphone mobile"_s, u"06 39 98 00 21"_s},
             {u"AUTRE"_s, u"Département"_s, u"01 - Département 01"_s},
             {u"FIXE"_s, u"Autre adresse"_s, u"fixe@example.org"_s},
             {u"HÔTE"_s, u"Autre adresse"_s, u"a@b.c-.com"_s},
             {u"=CMD"_s, u"Adresse e-mail"_s, u"new@example.org"_s},
             {u"CHLOÉ"_s, u"Téléphone mobile"_s, u"06 39 98 00 99"_s},
             {u"SS"_s, u"Commentaire"_s, u"=1+1;\n\"x\""_s},
             {u"SS"_s, u"Nombre de SMS"_s, u"2"_s},
             {u"SS"_s, u"Dernier SMS"_s, u"46113.02083333333"_s}})
        EXPECT_EQ(cell(name, title), value) << (name + u' ' + title).toStdString();
}

TEST_F(Export, AFieldIsWhatASpreadsheetMakesOfIt)
{
    for (const auto &[text, field] :
         std::vector<std::pair<QString, QString>>{{u"é"_s, u"é"_s},
                                                  {u"a;b"_s, u"\"a;b\""_s},
                                                  {u"a\"b\nc"_s, u"\"a\"\"b\nc\""_s},
                                                  {u"=1+1"_s, u"\"\t=1+1\""_s},
                                                  {u" @x"_s, u"\"\t @x\""_s},
                                                  {u"-5"_s, u"\"\t-5\""_s},
                                                  {u"+33 6"_s, u"\"\t+33 6\""_s},
                                                  {u"0033639980001"_s, u"\"\t0033639980001\""_s},
                                                  {u"06 39 98 00 01"_s, u"06 39 98 00 01"_s},
                                                  {u"0"_s, u"0"_s}})
        EXPECT_EQ(csvField(text), field);
}

TEST_F(Export, SendsOfAPeriodAreThoseOfItsDaysInTheUsersZone)
{
    store().recordEmailSent(alix(), *instantFromText("2026-03-31T21:59:59Z"));
    const auto day = [](int month, int number) { return QDate(2026, month, number); };
    ASSERT_FALSE(write(sendTable(store(), day(3, 31), day(4, 1), paris), u"e.csv"_s).failure);
    EXPECT_EQ(readText(u"e.csv"_s),
              "\xEF\xBB\xBF"
              "Date d’envoi;Canal;Nom;Lieu;Département;Téléphone;Adresse;Métier\r\n"
              "31/03/2026 23:59:59;E-mail;ALIX;BREST;29 - Finistère;06 39 98 00 10;"
              "alix@example.org;Fleuriste\r\n"
              "01/04/2026 00:30:00;SMS;ALIX;BREST;29 - Finistère;06 39 98 00 10;"
              "alix@example.org;Fleuriste\r\n");
    EXPECT_EQ(sendTable(store(), day(3, 31), day(3, 31), paris).rows, 1U);
    ASSERT_FALSE(write(stopTable(store(), paris), u"s.csv"_s).failure);
    EXPECT_TRUE(readText(u"s.csv"_s)
                    .endsWith("\r\n06 39 98 00 10;alix@example.org;ALIX;BREST;29 - Finistère\r\n"));
}

TEST_F(Export, WhatFailsOrIsStoppedLeavesTheOldFile)
{
    const ExportTable table = contactTable(store(), store().allProspects(), paris);
    for (const QString &name : {u"a.xlsx"_s, u"a.csv"_s}) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("old") == 3 && file.flush());
        std::stop_source stop;
        stop.request_stop();
        EXPECT_TRUE(write(table, name, {stop.get_token(), {}}).stopped);
        desktop.files.refusal = u"plein"_s;
        EXPECT_EQ(write(table, name).failure, u"plein"_s);
        desktop.files.refusal.reset();
        EXPECT_EQ(readText(name), "old");
        EXPECT_EQ(QDir(desktop.folders.root.path()).entryList(QDir::Files | QDir::Hidden).size(),
                  name.endsWith(u"csv"_s) ? 2 : 1);
        EXPECT_FALSE(write(table, name).failure);
        EXPECT_NE(readText(name), "old");
    }
}

} // namespace
