#include "ui/sheets/export_run.h"

#include <QPromise>
#include <QtConcurrent>

namespace quenoria {

ExportRun::ExportRun(QObject *parent) : QObject(parent)
{
    connect(&m_outcome, &QFutureWatcherBase::finished, this, &ExportRun::conclude);
    connect(&m_outcome, &QFutureWatcherBase::progressValueChanged, this, &ExportRun::progressed);
}

ExportRun::~ExportRun()
{
    stop();
    m_outcome.waitForFinished();
}

void ExportRun::start(Write write)
{
    if (m_isRunning)
        return;
    m_isRunning = true;
    m_stop = {};
    m_outcome.setFuture(QtConcurrent::run(&ExportRun::run, std::move(write), m_stop.get_token()));
}

void ExportRun::run(QPromise<Shared> &promise, const Write &write, const std::stop_token &stop)
{
    promise.setProgressRange(0, steps);
    const auto tell = [&promise](double share) { promise.setProgressValue(int(share * steps)); };
    promise.addResult(std::make_shared<ExportOutcome>(write({stop, tell})));
}

void ExportRun::conclude()
{
    m_isRunning = false;
    Q_EMIT finished(*m_outcome.result());
}

} // namespace quenoria
