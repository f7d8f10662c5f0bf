#pragma once

#include "export/export_file.h"

#include <QFutureWatcher>
#include <QObject>

#include <memory>

namespace quenoria {

/// Writes one export on another thread.
class ExportRun : public QObject {
    Q_OBJECT

public:
    static constexpr int steps = 1000;

    /// Writes the file that the target names; says what became of it.
    using Write = std::function<ExportOutcome(const ImportWatch &watch)>;

    explicit ExportRun(QObject *parent);
    ~ExportRun() override; ///< stops what is under way and waits for it

    void start(Write write);
    void stop() { m_stop.request_stop(); }
    bool isRunning() const { return m_isRunning; }

Q_SIGNALS:
    void progressed(int step);
    void finished(const quenoria::ExportOutcome &outcome);

private:
    using Shared = std::shared_ptr<ExportOutcome>;

    static void run(QPromise<Shared> &promise, const Write &write, const std::stop_token &stop);
    void conclude();

    std::stop_source m_stop;
    QFutureWatcher<Shared> m_outcome;
    bool m_isRunning = false;
};

} // namespace quenoria
