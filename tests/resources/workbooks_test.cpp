#include "import/prospect_excel_importer.h"
#include "resources/resources.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
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

TEST(Guide, EveryLinkAndEachPictureInBothAppearancesIsThere)
{
    initResources();
    int followed = 0;
    const QDir pages(u":/guide"_s);
    for (const QString &name : pages.entryList()) {
        QFile page(pages.filePath(name));
        ASSERT_TRUE(page.open(QIODevice::ReadOnly));
        static const QRegularExpression link(u"\\]\\(([^)#:]+)\\)"_s);
        auto links = link.globalMatch(QString::fromUtf8(page.readAll()));
        for (; links.hasNext(); ++followed) {
            QString target = pages.filePath(links.next().captured(1));
            EXPECT_TRUE(QFile::exists(target)) << qPrintable(name + u" → "_s + target);
            EXPECT_TRUE(QFile::exists(target.replace(u"clair"_s, u"sombre"_s)));
        }
    }
    EXPECT_GT(followed, 25);
}

} // namespace
