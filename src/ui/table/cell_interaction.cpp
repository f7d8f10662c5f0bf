#include "ui/kit/plain_text.h"
#include "ui/table/contact_table_model.h"
#include "ui/table/contact_table_view.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

CellKind kindOf(const QModelIndex &index) { return CellKind(index.data(KindRole).toInt()); }

} // namespace

CellLayout ContactTableView::layoutAt(const QModelIndex &index) const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    return CellLayout::of(option, index);
}

QString ContactTableView::contactIdAt(const QModelIndex &index) const
{
    return m_model.contacts().at(index.row()).id;
}

void ContactTableView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex index = currentIndex();
    if (!index.isValid() || state() == EditingState)
        return QTableView::keyPressEvent(event);
    switch (event->key()) {
    case Qt::Key_Space:
        if (event->modifiers() & Qt::ControlModifier)
            break; // which adds the row to the selection
        if (kindOf(index) == CellKind::check && selectsSeveral())
            return toggleSelection(index.column());
        return useCell(index);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT editRequested(contactIdAt(index));
        return;
    case Qt::Key_F2:
        if (kindOf(index) == CellKind::picker)
            return pick(index);
        break;
    default:
        break;
    }
    QTableView::keyPressEvent(event);
}

/// What Space does: the same as the mouse on the cell's one part, or a choice of its parts.
void ContactTableView::useCell(const QModelIndex &index)
{
    switch (kindOf(index)) {
    case CellKind::text:
        return;
    case CellKind::check:
        return toggle(index);
    case CellKind::picker:
        return pick(index);
    case CellKind::date:
    case CellKind::field:
        return edit(index);
    case CellKind::buttons:
        return offerButtons(index);
    }
}

void ContactTableView::toggle(const QModelIndex &index)
{
    if (!(index.flags() & Qt::ItemIsUserCheckable))
        return;
    const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    m_model.setData(index, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

QPoint ContactTableView::below(const QModelIndex &index) const
{
    const CellLayout layout = layoutAt(index);
    const QRect part =
        layout.frame.isNull() ? layout.buttons.value(0, visualRect(index)) : layout.frame;
    return viewport()->mapToGlobal(part.bottomLeft());
}

void ContactTableView::pick(const QModelIndex &index)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QPersistentModelIndex cell = index;
    const QString current = index.data(Qt::EditRole).toString();
    for (const CellChoice &choice : index.data(ChoicesRole).value<CellChoices>()) {
        QAction *entry = menu->addAction(menuText(choice.title));
        entry->setCheckable(true);
        entry->setChecked(choice.id == current);
        if (entry->isChecked())
            menu->setActiveAction(entry);
        connect(entry, &QAction::triggered, this,
                [this, cell, id = choice.id] { m_model.setData(cell, id); });
    }
    menu->popup(below(index));
}

void ContactTableView::offerButtons(const QModelIndex &index)
{
    const auto buttons = index.data(ButtonsRole).value<CellButtons>();
    if (buttons.size() == 1)
        return trigger(index, 0);
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QPersistentModelIndex cell = index;
    for (qsizetype button = 0; button < buttons.size(); ++button) {
        QAction *entry = menu->addAction(buttons[button].name);
        entry->setEnabled(buttons[button].enabled);
        connect(entry, &QAction::triggered, this, [this, cell, button] { trigger(cell, button); });
    }
    menu->popup(below(index));
}

void ContactTableView::trigger(const QModelIndex &index, qsizetype button)
{
    const auto buttons = index.data(ButtonsRole).value<CellButtons>();
    if (button < buttons.size() && buttons[button].enabled)
        Q_EMIT actionRequested(buttons[button].action, contactIdAt(index));
}

void ContactTableView::setHot(const HotButton &hot)
{
    if (hot == m_hot)
        return;
    const QPersistentModelIndex before = m_hot.cell;
    m_hot = hot;
    for (const QModelIndex &cell : {QModelIndex(before), QModelIndex(hot.cell)}) {
        if (cell.isValid())
            update(cell);
    }
    viewport()->setCursor(hot.button >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void ContactTableView::mousePressEvent(QMouseEvent *event)
{
    QTableView::mousePressEvent(event);
    m_pressed = event->button() == Qt::LeftButton ? indexAt(event->pos()) : QModelIndex();
    if (m_pressed.isValid() && m_hot.cell == m_pressed)
        setHot({m_hot.cell, m_hot.button, true});
}

void ContactTableView::mouseMoveEvent(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton)) // a drag must not select other rows
        QTableView::mouseMoveEvent(event);
    const QModelIndex index = indexAt(event->pos());
    const qsizetype button = index.isValid() ? layoutAt(index).buttonAt(event->pos()) : -1;
    if (button < 0)
        return setHot({});
    setHot({index, button, event->buttons() & Qt::LeftButton && m_pressed == index});
}

void ContactTableView::mouseReleaseEvent(QMouseEvent *event)
{
    QTableView::mouseReleaseEvent(event);
    const QPersistentModelIndex pressed = std::exchange(m_pressed, {});
    setHot({m_hot.cell, m_hot.button, false});
    m_clicked = QModelIndex();
    if (!pressed.isValid() || pressed != indexAt(event->pos()))
        return;
    if (event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier))
        return; // it selects, and uses nothing
    m_clicked = pressed;
    clickCell(pressed, event->pos());
}

void ContactTableView::clickCell(const QModelIndex &index, QPoint point)
{
    const CellLayout layout = layoutAt(index);
    if (const qsizetype button = layout.buttonAt(point); button >= 0)
        trigger(index, button);
    else if (layout.checkReaches(point))
        toggle(index);
    else if (layout.frame.contains(point))
        useCell(index);
}

/// The second press of a double click: on a control it is none, since each stands for a deed of its
/// own. One whose first press went elsewhere, to a sheet that it closed, is none either.
void ContactTableView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid() || index != m_clicked || event->button() != Qt::LeftButton)
        return;
    const CellLayout layout = layoutAt(index);
    const bool isControl = layout.buttonAt(event->pos()) >= 0 ||
                           layout.checkReaches(event->pos()) || layout.frame.contains(event->pos());
    if (!isControl)
        Q_EMIT editRequested(contactIdAt(index));
}

void ContactTableView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool fromKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = fromKeyboard ? currentIndex() : indexAt(event->pos());
    if (!index.isValid())
        return;
    if (selectionModel()->isSelected(index))
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    else
        setCurrentIndex(index);
    Q_EMIT menuRequested(contactIdAt(index), fromKeyboard ? below(index) : event->globalPos());
}

bool ContactTableView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::Leave)
        setHot({});
    return QTableView::viewportEvent(event);
}

} // namespace quenoria
