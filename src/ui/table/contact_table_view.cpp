#include "ui/table/contact_table_view.h"

#include "ui/table/contact_header.h"
#include "ui/table/contact_table_model.h"

#include <QResizeEvent>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

int contactColumn()
{
    static const int column = columnsThat(&ContactColumn::namesContact).front();
    return column;
}

constexpr int narrowestContact = 260;
constexpr QChar widthSeparator(u',');

int documentedWidth(int column) { return contactColumns()[std::size_t(column)].width; }

} // namespace

ContactTableView::ContactTableView(ContactTableModel &model, QWidget *parent)
    : QTableView(parent), m_model(model)
{
    setModel(&model);
    setItemDelegate(new CellDelegate(m_hot, this));
    setHorizontalHeader(new ContactHeader(this));
    setAccessibleName(u"Contacts"_s);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setMouseTracking(true);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(CellLayout::rowHeight(font()));
    followHeader();
    resetColumnWidths();
    connect(&model, &ContactTableModel::aboutToReplaceRows, this, [this] {
        keepTypedText();
        keepSight();
    });
    connect(&model, &ContactTableModel::modelAboutToBeReset, this, &ContactTableView::keepPlace);
    connect(&model, &ContactTableModel::modelReset, this, &ContactTableView::returnToPlace);
    connect(&model, &ContactTableModel::arrived, this, [this](const QSet<QString> &ids) {
        if (ids.size() == 1) // many would have to be chosen from
            reveal(*ids.begin());
    });
}

void ContactTableView::followHeader()
{
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
        if (m_model.headerData(column, Qt::Horizontal, Qt::CheckStateRole).isValid())
            m_model.tickAll(!m_model.allAreTicked());
        else
            m_model.toggleSort(column);
    });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int size) { columnResized(column, size); });
}

const Prospect *ContactTableView::currentContact() const
{
    return currentIndex().isValid() ? &m_model.contacts().at(currentIndex().row()) : nullptr;
}

const Prospect *ContactTableView::contactAt(QPoint point) const
{
    const QModelIndex index = indexAt(point);
    return index.isValid() ? &m_model.contacts().at(index.row()) : nullptr;
}

void ContactTableView::keepTypedText()
{
    if (QWidget *editor = indexWidget(currentIndex()))
        commitData(editor);
}

// The contact's column takes the room that the others leave. Where there is none to spare it is as
// wide as the user made it; else narrow enough to leave the department in sight.

int ContactTableView::leastContactWidth() const
{
    if (m_contactWidth)
        return *m_contactWidth;
    int others = 0;
    for (int column = 0; column <= columnOf(SortColumn::department); ++column)
        others += column == contactColumn() ? 0 : columnWidth(column);
    return qBound(narrowestContact, viewport()->width() - others, documentedWidth(contactColumn()));
}

void ContactTableView::fitContactColumn()
{
    if (m_isFitting)
        return;
    const int others = horizontalHeader()->length() - columnWidth(contactColumn());
    m_isFitting = true;
    setColumnWidth(contactColumn(), qMax(leastContactWidth(), viewport()->width() - others));
    m_isFitting = false;
}

void ContactTableView::columnResized(int column, int size)
{
    if (m_isFitting)
        return;
    if (column == contactColumn())
        m_contactWidth = size;
    fitContactColumn();
}

QString ContactTableView::columnWidths() const
{
    QStringList widths;
    for (int column = 0; column < m_model.columnCount(); ++column)
        widths << QString::number(column == contactColumn() ? m_contactWidth.value_or(0)
                                                            : columnWidth(column));
    return widths.join(widthSeparator);
}

void ContactTableView::setColumnWidths(const QString &widths)
{
    const QStringList kept = widths.split(widthSeparator);
    if (kept.size() != m_model.columnCount())
        return;
    for (int column = 0; column < m_model.columnCount(); ++column) {
        if (const int width = kept[column].toInt(); width > 0)
            setColumnWidth(column, width);
    }
}

void ContactTableView::resetColumnWidths()
{
    for (int column = 0; column < m_model.columnCount(); ++column)
        setColumnWidth(column,
                       qMax(documentedWidth(column), horizontalHeader()->sectionSizeHint(column)));
    m_contactWidth.reset();
    fitContactColumn();
}

QSize ContactTableView::minimumSizeHint() const
{
    return {QTableView::minimumSizeHint().width(), horizontalHeader()->sizeHint().height() +
                                                       verticalHeader()->defaultSectionSize() +
                                                       horizontalScrollBar()->sizeHint().height()};
}

void ContactTableView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    fitContactColumn();
    keepCurrentInSight(event->oldSize().height());
}

} // namespace quenoria
