#include "ui/sheets/workbook_reading.h"

#include "import/import_error.h"
#include "import/row_listener.h"

#include <QtConcurrent>

namespace quenoria {

WorkbookReading::WorkbookReading(QObject *parent) : QObject(parent)
{
    connect(&m_reading, &QFutureWatcherBase::finished, this, &WorkbookReading::conclude);
    connect(&m_reading, &QFutureWatcherBase::progressValueChanged, this,
            &WorkbookReading::progressed);
}

WorkbookReading::~WorkbookReading()
{
    stop();
    m_reading.waitForFinished();
}

void WorkbookReading::start(const QString &path, IdSet known, std::shared_ptr<RowListener> listener)
{
    stop();
    m_stop = {};
    m_reading.setFuture(QtConcurrent::run(&WorkbookReading::read,
                                          Task{path, std::move(known), std::move(listener)},
                                          m_stop.get_token()));
}

void WorkbookReading::read(QPromise<Shared> &promise, const Task &task, const std::stop_token &stop)
{
    const auto outcome = std::make_shared<ReadWorkbook>();
    const auto tell = [&promise](double share) { promise.setProgressValue(int(share * steps)); };
    promise.setProgressRange(0, steps);
    try {
        outcome->analysis = ProspectExcelImporter::analyze(task.path, task.known, {stop, tell},
                                                           task.listener.get());
    } catch (const ImportFailure &failure) {
        outcome->failure = failure.message();
    } catch (const ImportAbandoned &) {
        *outcome = {};
    }
    promise.addResult(outcome);
}

void WorkbookReading::conclude()
{
    // The future keeps its result: without one it counts as unfinished, and the promise, which its
    // thread destroys at that moment, would finish it once more.
    ReadWorkbook outcome;
    try {
        outcome = std::move(*m_reading.result());
    } catch (const std::bad_alloc &) { // before there was anything to put the outcome in
        outcome.failure = OutOfMemory().message();
    }
    if (m_stop.stop_requested())
        outcome = {};
    Q_EMIT finished(outcome);
}

} // namespace quenoria
