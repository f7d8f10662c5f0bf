#pragma once

#include "model/instant.h"

#include <QString>
#include <QTimeZone>

#include <functional>
#include <variant>
#include <vector>

namespace quenoria {

enum class ExportKind { text, number, share, moment };

struct ExportColumn {
    QString title;
    int width; ///< in characters
    ExportKind kind = ExportKind::text;
};

/// A part of a whole, from 0 to 1.
struct Share {
    double value = 0;
    bool operator==(const Share &) const = default;
};

/// What stands in a cell: nothing, a text, a number, a share or a moment.
using ExportCell = std::variant<std::monostate, QString, int, Share, Instant>;

/// Rows to write to a file. It holds its own copy of what it tells, so that the store may change
/// while another thread writes it.
struct ExportTable {
    QString name; ///< of the sheet
    std::vector<ExportColumn> columns;
    std::size_t rows = 0;

    /// Gives the cells of a row, from left to right; those at the end may be left out. May be
    /// called from any thread, for one row after the other.
    std::function<void(std::size_t row, std::vector<ExportCell> &cells)> fill;

    QTimeZone zone; ///< in which moments are told

    std::vector<ExportTable> next = {}; ///< other sheets of the same workbook
};

} // namespace quenoria
