#include "ui/window/workbook_import.h"

#include "import/import_error.h"
#include "platform/file_panels.h"
#include "store/prospect_store.h"
#include "ui/sheets/workbook_reading.h"
#include "ui/window/import_progress.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

ImportReport impossible(const QString &reason)
{
    return {.title = u"Import impossible"_s, .message = reason};
}

} // namespace

WorkbookImport::WorkbookImport(ProspectStore &store, FilePanels &panels, QWidget *window)
    : QObject(window), m_store(store), m_panels(panels), m_window(window),
      m_reading(new WorkbookReading(this))
{
    connect(m_reading, &WorkbookReading::finished, this, &WorkbookImport::conclude);
}

void WorkbookImport::choose()
{
    const auto path = m_panels.chooseFile(
        {u"Importer des contacts depuis Excel"_s,
         u"Choisissez un fichier .xlsx contenant le nom du contact et au moins un mobile ou une "
         "adresse e-mail."_s,
         u"Importer"_s, u"xlsx"_s});
    if (path)
        run(*path);
}

void WorkbookImport::run(const QString &workbookPath)
{
    if (isRunning())
        return;
    showProgress(QFileInfo(workbookPath).fileName());
    try {
        m_reading->start(workbookPath, m_store.duplicateKeys());
    } catch (const std::bad_alloc &) {
        m_progress->accept();
        Q_EMIT finished(impossible(OutOfMemory().message()));
    }
}

void WorkbookImport::showProgress(const QString &fileName)
{
    m_progress = new ImportProgress(fileName, m_window);
    connect(m_progress, &QDialog::rejected, m_reading, &WorkbookReading::stop);
    connect(m_reading, &WorkbookReading::progressed, m_progress, &ImportProgress::setStep);
    m_progress->present();
}

void WorkbookImport::conclude(ReadWorkbook &outcome)
{
    if (m_progress)
        m_progress->accept(); // and not deleted: an alert may stand over it
    if (outcome.failure)
        Q_EMIT finished(impossible(*outcome.failure));
    else if (outcome.analysis)
        merge(std::move(*outcome.analysis));
}

void WorkbookImport::merge(ProspectImportAnalysis analysis)
{
    ImportReport report;
    try {
        report = m_store.merge(std::move(analysis));
    } catch (const ImportFailure &failure) {
        report = impossible(failure.message());
    }
    Q_EMIT finished(report);
}

} // namespace quenoria
