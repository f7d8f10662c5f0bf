#pragma once

#include <QString>

namespace quenoria::bench {

/// Writes a workbook of that many different contacts in seven columns, below a header.
void writeContactWorkbook(const QString &path, int contacts);

} // namespace quenoria::bench
