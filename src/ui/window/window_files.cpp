// Files that come into the window and go out of it: workbooks, STOP lists, backups.

#include "ui/kit/alert.h"
#include "ui/sheets/excel_format_help_view.h"
#include "ui/sheets/export_view.h"
#include "ui/sheets/stop_list_view.h"
#include "ui/sheets/workbook_check_view.h"
#include "ui/window/backup_commands.h"
#include "ui/window/content_view.h"
#include "ui/window/workbook_import.h"

#include <QApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

void ContentView::showImportHelp() { present<ExcelFormatHelpView>(m_platform); }

void ContentView::importExcelFile() { m_import->choose(); }

void ContentView::checkWorkbook()
{
    const auto path = m_platform.panels.chooseFile(
        {u"Vérifier un classeur"_s,
         u"Choisissez un fichier .xlsx : rien n’est importé avant votre accord."_s, u"Vérifier"_s,
         u"xlsx"_s});
    const auto import = [this](ProspectImportAnalysis analysis) {
        m_import->merge(std::move(analysis));
    };
    if (path)
        present<WorkbookCheckView>(m_platform, m_store, *path, import);
}

void ContentView::undoImport() { m_import->askToUndo(); }

void ContentView::importWorkbook(const QString &path) { m_import->run(path); }

void ContentView::openWorkbook(const QString &path)
{
    if (QApplication::activeModalWidget() && !m_import->isBusy())
        showAlert(this, u"Classeur non importé"_s,
                  u"Fermez d’abord la fenêtre ouverte dans Quenoria, puis ouvrez de nouveau "
                  "« %1 »."_s.arg(QFileInfo(path).fileName()));
    else
        importWorkbook(path);
}

void ContentView::applyStopList()
{
    const auto path = m_platform.panels.chooseFile(
        {u"Appliquer une liste STOP"_s,
         u"Choisissez un fichier .csv, .xlsx ou .txt avec des numéros ou des adresses e-mail."_s,
         u"Lire"_s,
         {}});
    if (!path)
        return;
    m_model.undoList().keepStops();
    present<StopListView>(m_store, *path);
}

void ContentView::exportData()
{
    std::vector<Prospect> shown;
    shown.reserve(std::size_t(m_model.contacts().size()));
    for (int row = 0; row < m_model.contacts().size(); ++row)
        shown.push_back(m_model.contacts().at(row));
    present<ExportView>(m_platform, m_store, std::move(shown));
}

void ContentView::startBackups() { m_backups->startDay(); }
void ContentView::saveBackup() { m_backups->save(); }
void ContentView::restoreBackup() { m_backups->restore(); }

void ContentView::tellOfRestore()
{
    showAlert(this, u"Sauvegarde restaurée"_s,
              u"Ce qui était là juste avant est la plus récente des sauvegardes : vous pouvez y "
              "revenir de la même façon."_s);
}

} // namespace quenoria
