#pragma once

#include "import/workbook_sink.h"

#include <future>
#include <string>
#include <vector>

namespace quenoria {

/// Copies of consecutive rows, with the starts of sheets between them.
class RowBatch {
public:
    void beginSheet() { m_steps.push_back({Kind::sheet, 0, 0}); }
    void add(const WorksheetRow &row);
    bool isFull() const;
    void replay(WorkbookSink &sink);
    void clear();

private:
    enum class Kind { sheet, row };

    struct Step {
        Kind kind;
        std::uint32_t number; ///< of the row
        std::size_t cells;    ///< how many belong to it
    };

    std::vector<Step> m_steps;
    std::vector<WorksheetCell> m_cells; ///< their texts point into m_texts once replayed
    std::string m_texts;                ///< end to end; shared ones stay where they are
};

/// Hands rows on to another sink on a thread of its own, in order and never two at once, while the
/// next ones are being read: reading and understanding a workbook take about equally long.
class RowRelay : public WorkbookSink {
public:
    explicit RowRelay(WorkbookSink &target) : m_target(target) {}

    void beginWorkbook(const WorkbookFrame &frame) override;
    void beginSheet() override;
    void row(const WorksheetRow &row) override;

    /// Waits until the target has had every row. Throws what the target threw.
    void finish();

private:
    void handOver();

    WorkbookSink &m_target;
    std::shared_ptr<const SharedStrings> m_sharedStrings; ///< what the batches point into
    RowBatch m_filling;
    RowBatch m_replaying;
    std::future<void> m_running; ///< waits when destroyed, so it goes before what it uses
};

} // namespace quenoria
