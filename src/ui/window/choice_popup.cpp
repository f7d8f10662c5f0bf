#include "ui/window/choice_popup.h"

#include "ui/kit/plain_text.h"
#include "ui/kit/screen_room.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QListWidget>
#include <QVBoxLayout>

namespace quenoria {

namespace {

constexpr int mostLines = 14;
constexpr int padding = 48; ///< of a check box and a scroll bar
constexpr int idRole = Qt::UserRole;

/// Under the point, moved to where the screen holds it whole.
void showWithin(QWidget &popup, QPoint position)
{
    popup.setAttribute(Qt::WA_DeleteOnClose);
    popup.adjustSize();
    const QRect room = popup.parentWidget()->screen()->availableGeometry();
    position.setX(qMax(room.left(), qMin(position.x(), room.right() - popup.width())));
    position.setY(qMax(room.top(), qMin(position.y(), room.bottom() - popup.height())));
    popup.move(position);
    popup.show();
}

void frame(QFrame &popup, QWidget *content)
{
    popup.setFrameShape(QFrame::StyledPanel);
    auto *column = new QVBoxLayout(&popup);
    column->setContentsMargins(1, 1, 1, 1);
    column->addWidget(content);
    popup.setFocusProxy(content);
}

} // namespace

ChoicePopup::ChoicePopup(const QString &name, const std::vector<Choice> &choices, QWidget *parent)
    : QFrame(parent, Qt::Popup), m_list(new QListWidget)
{
    m_list->setAccessibleName(name);
    m_list->setFrameShape(NoFrame);
    m_list->setUniformItemSizes(true);
    for (const Choice &choice : choices) {
        auto *item = new QListWidgetItem(oneLine(choice.text), m_list);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable); // ticked by the whole line
        item->setData(idRole, choice.id);
        item->setCheckState(choice.isChosen ? Qt::Checked : Qt::Unchecked);
    }
    m_list->setCurrentRow(0);
    const int lines = qBound(1, m_list->count(), mostLines);
    m_list->setFixedHeight(lines * qMax(1, m_list->sizeHintForRow(0)) + 2);
    m_list->setMinimumWidth(m_list->sizeHintForColumn(0) + padding);
    m_list->installEventFilter(this);
    connect(m_list, &QListWidget::itemClicked, this, &ChoicePopup::toggle);
    frame(*this, m_list);
}

void ChoicePopup::openAt(QPoint globalPosition)
{
    showWithin(*this, globalPosition);
    m_list->setFocus();
}

bool ChoicePopup::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QFrame::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Space:
        toggle(m_list->currentItem());
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        close();
        return true;
    default:
        return false;
    }
}

void ChoicePopup::toggle(QListWidgetItem *item)
{
    if (!item)
        return;
    item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    IdSet ids;
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->checkState() == Qt::Checked)
            ids.insert(m_list->item(row)->data(idRole).toString());
    }
    Q_EMIT chosen(ids);
}

DayPopup::DayPopup(const QDate &latest, QWidget *parent) : QFrame(parent, Qt::Popup)
{
    auto *calendar = new QCalendarWidget;
    calendar->setMaximumDate(latest);
    calendar->setSelectedDate(latest);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    const auto choose = [this](const QDate &day) {
        Q_EMIT chosen(day);
        close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, choose);
    connect(calendar, &QCalendarWidget::activated, this, choose);
    frame(*this, calendar);
}

void DayPopup::openAt(QPoint globalPosition)
{
    showWithin(*this, globalPosition);
    focusProxy()->setFocus();
}

} // namespace quenoria
