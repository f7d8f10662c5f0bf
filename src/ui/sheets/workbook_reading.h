#pragma once

#include "import/prospect_excel_importer.h"

#include <QFutureWatcher>
#include <QPromise>

#include <memory>

namespace quenoria {

class RowListener;

/// What the reading of a workbook came to: neither member when it was stopped.
struct ReadWorkbook {
    std::optional<ProspectImportAnalysis> analysis;
    std::optional<QString> failure; ///< to be shown unchanged
};

/// Analyses one workbook after the other on another thread.
class WorkbookReading : public QObject {
    Q_OBJECT

public:
    static constexpr int steps = 1000;

    explicit WorkbookReading(QObject *parent);
    ~WorkbookReading() override; ///< stops what is under way and waits for it

    /// known: see ProspectStore::duplicateKeys(). The listener, if any, belongs to the reading
    /// until it is finished. A reading that is under way is given up.
    void start(const QString &path, IdSet known, std::shared_ptr<RowListener> listener = {});
    void stop() { m_stop.request_stop(); }

Q_SIGNALS:
    void progressed(int step);
    void finished(quenoria::ReadWorkbook &outcome); ///< for the receiver to take

private:
    using Shared = std::shared_ptr<ReadWorkbook>;

    struct Task {
        QString path;
        IdSet known;
        std::shared_ptr<RowListener> listener;
    };

    static void read(QPromise<Shared> &promise, const Task &task, const std::stop_token &stop);
    void conclude();

    std::stop_source m_stop;
    QFutureWatcher<Shared> m_reading;
};

} // namespace quenoria
