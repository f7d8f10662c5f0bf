#include "ui/table/cell_layout.h"

#include <QFontMetrics>
#include <QStyleOptionViewItem>

#include <algorithm>
#include <numeric>

namespace quenoria {

namespace {

constexpr int margin = 10;
constexpr int gap = 6;
constexpr int controlPadding = 10; ///< above and below a text together
constexpr int symbolSide = 16;
constexpr int captionPadding = 20; ///< both sides together
constexpr int checkSide = 18;
constexpr int checkReach = 36;
constexpr int framePadding = 8;
constexpr int pickerArrow = 22;
constexpr int rowPadding = 8; ///< above and below a control together

int controlHeight(const QFontMetrics &metrics) { return metrics.height() + controlPadding; }

bool hasFrame(CellKind kind)
{
    return kind == CellKind::picker || kind == CellKind::date || kind == CellKind::field;
}

QRect centred(const QRect &within, QSize size)
{
    QRect rect({}, size);
    rect.moveCenter(within.center());
    return rect;
}

int buttonWidth(const CellButton &button, int height, const QFontMetrics &metrics)
{
    if (button.caption.isEmpty())
        return height;
    const int symbol = button.symbol.isEmpty() ? 0 : symbolSide + gap;
    return metrics.horizontalAdvance(button.caption) + symbol + captionPadding;
}

/// Lays the buttons in a row that starts at the left; they share the room when it is too small.
QList<QRect> buttonRow(const CellButtons &buttons, const QRect &room, int height,
                       const QFontMetrics &metrics)
{
    QList<int> widths;
    for (const CellButton &button : buttons)
        widths << buttonWidth(button, height, metrics);
    const int gaps = gap * int(buttons.size() - 1);
    if (std::accumulate(widths.begin(), widths.end(), gaps) > room.width())
        widths.fill((room.width() - gaps) / int(buttons.size()));
    QList<QRect> rects;
    int x = room.left();
    for (const int width : widths) {
        rects << QRect(x, room.center().y() - height / 2 + 1, width, height);
        x += width + gap;
    }
    return rects;
}

void alignRight(QList<QRect> &row, int right)
{
    const int shift = right - row.last().right();
    for (QRect &rect : row)
        rect.translate(shift, 0);
}

/// Takes the room of a warning from the bottom of the cell, over its whole width.
QRect takeWarning(QRect &room, const QFont &font)
{
    const int height = QFontMetrics(CellLayout::warningFont(font)).height();
    const int line = QFontMetrics(font).height();
    const int top = room.center().y() - (line + height) / 2;
    room.setTop(top);
    room.setHeight(line);
    return {room.left(), top + line, room.width(), height};
}

} // namespace

CellLayout CellLayout::of(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    CellLayout layout;
    const auto kind = CellKind(index.data(KindRole).toInt());
    if (kind == CellKind::check) {
        layout.check = centred(option.rect, {checkSide, checkSide});
        return layout;
    }
    QRect room = option.rect.adjusted(margin, 0, -margin, 0);
    const bool isWarned = !index.data(WarningRole).toString().isEmpty();
    if (isWarned)
        layout.warning = takeWarning(room, option.font);
    const auto buttons = index.data(ButtonsRole).value<CellButtons>();
    if (!buttons.isEmpty()) {
        const int height = isWarned ? room.height() : controlHeight(option.fontMetrics);
        layout.buttons = buttonRow(buttons, room, height, option.fontMetrics);
        if (kind == CellKind::buttons && index.data().toString().isEmpty())
            return layout;
        alignRight(layout.buttons, room.right());
        room.setRight(layout.buttons.first().left() - gap);
    }
    if (hasFrame(kind)) {
        layout.frame = centred(room, {room.width(), controlHeight(option.fontMetrics)});
        room.adjust(framePadding, 0, -(kind == CellKind::picker ? pickerArrow : framePadding), 0);
    }
    if (ContactMark(index.data(MarkRole).toInt()) != ContactMark::none) {
        layout.mark = centred(room, {symbolSide, symbolSide});
        layout.mark.moveLeft(room.left());
        room.setLeft(layout.mark.right() + gap);
    }
    layout.text = room;
    return layout;
}

qsizetype CellLayout::buttonAt(QPoint point) const
{
    const auto found = std::ranges::find_if(
        buttons, [point](const QRect &button) { return button.contains(point); });
    return found == buttons.end() ? -1 : found - buttons.begin();
}

bool CellLayout::checkReaches(QPoint point) const
{
    return !check.isNull() && centred(check, {checkReach, checkReach}).contains(point);
}

int CellLayout::fittingWidth(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    QStyleOptionViewItem roomy = option;
    roomy.rect = QRect(0, 0, QWIDGETSIZE_MAX, rowHeight(option.font));
    const CellLayout layout = of(roomy, index);
    const QString text = index.data().toString();
    const QString warning = index.data(WarningRole).toString();
    int buttons = 0;
    for (const QRect &button : layout.buttons)
        buttons += button.width() + gap;
    int width = option.fontMetrics.horizontalAdvance(
        text.isEmpty() ? index.data(PlaceholderRole).toString() : text);
    width += layout.mark.isNull() ? 0 : symbolSide + gap;
    width += layout.frame.isNull() ? 0 : framePadding + pickerArrow;
    return qMax(width + buttons,
                QFontMetrics(warningFont(option.font)).horizontalAdvance(warning)) +
           2 * margin;
}

int CellLayout::rowHeight(const QFont &font)
{
    const QFontMetrics metrics(font);
    return qMax(controlHeight(metrics) + rowPadding,
                metrics.height() + QFontMetrics(warningFont(font)).height() + 2);
}

QFont CellLayout::warningFont(const QFont &font)
{
    QFont small = font;
    small.setPointSizeF(font.pointSizeF() * 0.8);
    return small;
}

} // namespace quenoria
