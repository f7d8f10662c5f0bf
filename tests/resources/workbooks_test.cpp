#include "import/prospect_excel_importer.h"
#include "resources/resources.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

ProspectImportAnalysis analysed(const QString &name)
{
    initResources();
    QTemporaryDir folder;
    const QString path = folder.filePath(u"copy.xlsx"_s);
    EXPECT_TRUE(QFile::copy(u":/resources/%1.xlsx"_s.arg(name), path));
    return ProspectExcelImporter::analyze(path, {});
}

TEST(Workbooks, TheTemplateIsRecognisedAndNeitherItsExampleNorItsGuideIsTakenForAContact)
{
    const ProspectImportAnalysis analysis = analysed(u"Modele_Import_Contacts_Quenoria"_s);
    EXPECT_EQ(analysis.headerRows, 1);
    EXPECT_TRUE(analysis.prospects.empty());
    EXPECT_EQ(analysis.rowsWithoutMobile, 1);
    EXPECT_TRUE(analysis.departments.empty());
}

TEST(Workbooks, EveryContactOfTheDemonstrationCanBeImported)
{
    const ProspectImportAnalysis analysis = analysed(u"Contacts_Demonstration"_s);
    EXPECT_EQ(analysis.prospects.size(), 42U);
    EXPECT_EQ(analysis.rowsWithoutMobile + analysis.invalidRows + analysis.duplicates, 0);
    EXPECT_EQ(analysis.departments.size(), 6U);
    for (const Prospect &prospect : analysis.prospects) {
        EXPECT_TRUE(prospect.phone.isEmpty() || prospect.phone.startsWith(u"06 39 98 "_s));
        EXPECT_TRUE(prospect.email.value_or(u"@example.org"_s).endsWith(u"@example.org"_s));
    }
}

} // namespace
