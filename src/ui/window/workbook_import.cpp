#include "ui/window/workbook_import.h"

#include "platform/file_panels.h"
#include "store/prospect_store.h"
#include "ui/window/import_progress.h"

#include <QFileInfo>
#include <QPromise>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int wholeWorkbook = ImportProgress::steps;

} // namespace

WorkbookImport::WorkbookImport(ProspectStore &store, FilePanels &panels, QWidget *window)
    : QObject(window), m_store(store), m_panels(panels), m_window(window)
{
    connect(&m_analysis, &QFutureWatcherBase::finished, this, &WorkbookImport::conclude);
}

WorkbookImport::~WorkbookImport()
{
    m_stop.request_stop();
    m_analysis.waitForFinished();
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
    m_stop = {};
    showProgress(QFileInfo(workbookPath).fileName());
    m_analysis.setFuture(QtConcurrent::run(&WorkbookImport::analyse, workbookPath,
                                           m_store.duplicateKeys(), m_stop.get_token()));
}

void WorkbookImport::analyse(QPromise<std::shared_ptr<Outcome>> &promise, const QString &path,
                             const IdSet &known, const std::stop_token &stop)
{
    const auto outcome = std::make_shared<Outcome>();
    const auto tell = [&promise](double share) {
        promise.setProgressValue(int(share * wholeWorkbook));
    };
    promise.setProgressRange(0, wholeWorkbook);
    try {
        outcome->analysis = ProspectExcelImporter::analyze(path, known, {stop, tell});
    } catch (const ImportFailure &failure) {
        outcome->failure = failure.message();
    } catch (const ImportAbandoned &) {
        *outcome = {};
    }
    promise.addResult(outcome);
}

void WorkbookImport::showProgress(const QString &fileName)
{
    m_progress = new ImportProgress(fileName, m_window);
    connect(m_progress, &QDialog::rejected, this, [this] { m_stop.request_stop(); });
    connect(&m_analysis, &QFutureWatcherBase::progressValueChanged, m_progress,
            &ImportProgress::setStep);
    m_progress->present();
}

void WorkbookImport::conclude()
{
    // The future keeps its result: without one it counts as unfinished, and the promise, which its
    // thread destroys at that moment, would finish it once more.
    const Outcome outcome = std::move(*m_analysis.result());
    if (m_progress)
        m_progress->accept(); // and not deleted: an alert may stand over it
    if (m_stop.stop_requested())
        return;
    if (outcome.failure)
        Q_EMIT finished({.title = u"Import impossible"_s, .message = *outcome.failure});
    else if (outcome.analysis)
        Q_EMIT finished(m_store.merge(*outcome.analysis));
}

} // namespace quenoria
