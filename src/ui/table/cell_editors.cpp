#include "ui/table/cell_delegate.h"

#include <QDateTimeEdit>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// Edits a day and a time of day in whatever zone they are meant.
class DateEditor : public QDateTimeEdit {
public:
    explicit DateEditor(QWidget *parent) : QDateTimeEdit(parent)
    {
        setTimeSpec(Qt::UTC); // where every hour exists
        setDisplayFormat(u"dd/MM/yyyy HH:mm"_s);
        setCalendarPopup(true);
        setFocusPolicy(Qt::StrongFocus);
    }

    void start(const QDateTime &date)
    {
        const QTime time = date.time();
        m_start = QDateTime(date.date(), QTime(time.hour(), time.minute()), Qt::UTC);
        setDateTime(m_start);
    }

    bool hasChanged() const { return m_start.isValid() && dateTime() != m_start; }

private:
    QDateTime m_start;
};

} // namespace

QWidget *CellDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                    const QModelIndex &index) const
{
    QWidget *editor = nullptr;
    if (CellKind(index.data(KindRole).toInt()) == CellKind::date) {
        editor = new DateEditor(parent);
    } else {
        auto *field = new QLineEdit(parent);
        field->setPlaceholderText(index.data(PlaceholderRole).toString());
        editor = field;
    }
    editor->setAccessibleName(index.data(Qt::AccessibleTextRole).toString());
    return editor;
}

/// The contact may change by itself while the user types: what is typed counts.
void CellDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QVariant value = index.data(Qt::EditRole);
    if (auto *field = qobject_cast<QLineEdit *>(editor)) {
        if (!field->isModified())
            field->setText(value.toString());
    } else if (auto *dates = static_cast<DateEditor *>(editor); !dates->hasChanged()) {
        dates->start(value.toDateTime());
    }
}

/// What was only looked at is not written: an editor commits whenever it loses the focus.
void CellDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                const QModelIndex &index) const
{
    if (const auto *field = qobject_cast<QLineEdit *>(editor)) {
        if (field->text() != index.data(Qt::EditRole).toString())
            model->setData(index, field->text());
        return;
    }
    auto *dates = static_cast<DateEditor *>(editor);
    dates->interpretText();
    if (dates->hasChanged())
        model->setData(index, dates->dateTime());
}

void CellDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    editor->setGeometry(CellLayout::of(option, index).frame);
}

} // namespace quenoria
