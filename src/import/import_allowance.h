#pragma once

#include "import/workbook_sink.h"
#include "model/records.h"

namespace quenoria {

/// What an import may still keep of its workbook, in bytes. A text of the workbook may be used by
/// any number of its rows, so the file's size alone bounds nothing.
class ImportAllowance {
public:
    void grant(const WorkbookFrame &frame);

    // Each throws a ReaderError once too much would be kept.
    void spend(std::uint64_t bytes);
    void spend(const QString &text);
    void spend(const Prospect &contact);

private:
    std::uint64_t m_left = 0;
};

} // namespace quenoria
