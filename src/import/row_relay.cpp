#include "import/row_relay.h"

#include <system_error>

namespace quenoria {

void RowBatch::add(const WorksheetRow &row)
{
    for (const WorksheetCell &cell : row.cells()) {
        m_cells.push_back(cell);
        if (!cell.isShared)
            m_texts += cell.text;
    }
    m_steps.push_back({Kind::row, row.number(), row.cells().size()});
}

bool RowBatch::isFull() const
{
    constexpr std::size_t mostSteps = 16'384;
    constexpr std::size_t mostCells = 16'384;
    constexpr std::size_t mostBytes = 128UL * 1024;
    return m_steps.size() >= mostSteps || m_cells.size() >= mostCells ||
           m_texts.size() >= mostBytes;
}

void RowBatch::replay(WorkbookSink &sink)
{
    const char *text = m_texts.data();
    for (WorksheetCell &cell : m_cells) {
        if (cell.isShared)
            continue;
        cell.text = {text, cell.text.size()};
        text += cell.text.size();
    }
    std::span<const WorksheetCell> rest(m_cells);
    for (const Step &step : m_steps) {
        if (step.kind == Kind::sheet)
            sink.beginSheet();
        else
            sink.row({rest.first(step.cells), step.number});
        rest = rest.subspan(step.cells);
    }
}

void RowBatch::clear()
{
    m_steps.clear();
    m_cells.clear();
    m_texts.clear();
}

void RowRelay::beginWorkbook(const WorkbookFrame &frame)
{
    m_sharedStrings = frame.sharedStrings;
    m_target.beginWorkbook(frame);
}

void RowRelay::beginSheet() { m_filling.beginSheet(); }

void RowRelay::row(const WorksheetRow &row)
{
    m_filling.add(row);
    if (m_filling.isFull())
        handOver();
}

void RowRelay::handOver()
{
    if (m_running.valid())
        m_running.get();
    std::swap(m_filling, m_replaying);
    m_filling.clear();
    const auto replay = [this] { m_replaying.replay(m_target); };
    try {
        m_running = std::async(std::launch::async, replay);
    } catch (const std::system_error &) { // no thread to be had
        m_running = std::async(std::launch::deferred, replay);
    }
}

void RowRelay::finish()
{
    handOver();
    m_running.get();
}

} // namespace quenoria
