#pragma once

#include "ui/table/cell_roles.h"

#include <QModelIndex>
#include <QRect>

class QStyleOptionViewItem;

namespace quenoria {

/// Where the parts of one cell lie. Painting, the mouse and the editors all go by it. A part that
/// the cell does not have is a null rectangle.
struct CellLayout {
    QRect check;
    QRect frame; ///< of a field or picker
    QRect mark;
    QRect text;
    QRect warning;
    QList<QRect> buttons;

    static CellLayout of(const QStyleOptionViewItem &option, const QModelIndex &index);

    /// The button at the point, or -1.
    qsizetype buttonAt(QPoint point) const;

    /// Whether a click at the point is meant for the check box, which is small.
    bool checkReaches(QPoint point) const;

    /// The width that shows everything in the cell.
    static int fittingWidth(const QStyleOptionViewItem &option, const QModelIndex &index);

    /// Height of a row: a control with some air, or a text with a line of warning under it.
    static int rowHeight(const QFont &font);

    /// The smaller font of a warning.
    static QFont warningFont(const QFont &font);
};

} // namespace quenoria
