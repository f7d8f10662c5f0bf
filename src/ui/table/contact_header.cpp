#include "ui/table/contact_header.h"

#include "ui/kit/symbol.h"
#include "ui/table/cell_roles.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int margin = 10;
constexpr int gap = 4;
constexpr int checkSide = 18;
constexpr int chevronSide = 12;
constexpr int padding = 14;
constexpr int lines = 2;

QRect takeLeft(QRect &room, int side)
{
    QRect taken(0, 0, side, side);
    taken.moveCenter(room.center());
    taken.moveLeft(room.left());
    room.setLeft(taken.right() + gap + 1);
    return taken;
}

} // namespace

/// Lies over the sections that are scrolled by under it.
class ContactHeader::PinnedSection : public QWidget {
public:
    explicit PinnedSection(ContactHeader &header) : QWidget(header.viewport()), m_header(header)
    {
        hide();
    }

    int section = 0;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        m_header.paintSection(&painter, rect(), section);
    }
    void mousePressEvent(QMouseEvent *) override {}
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
            Q_EMIT m_header.sectionClicked(section);
    }

private:
    ContactHeader &m_header;
};

ContactHeader::ContactHeader(QWidget *parent)
    : QHeaderView(Qt::Horizontal, parent), m_pinned(new PinnedSection(*this)),
      m_ascending(symbol(u"chevron.up"_s, Tint::accent)),
      m_descending(symbol(u"chevron.down"_s, Tint::accent))
{
    setSectionsClickable(true);
    setHighlightSections(false);
    setMinimumSectionSize(48);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.92);
    small.setWeight(QFont::DemiBold);
    setFont(small);
}

QSize ContactHeader::sizeHint() const
{
    return {QHeaderView::sizeHint().width(), lines * fontMetrics().lineSpacing() + padding};
}

void ContactHeader::pin(int section, int width)
{
    m_pinned->section = section;
    m_pinned->setGeometry(0, 0, width, viewport()->height());
    m_pinned->setVisible(width > 0);
    m_pinned->update();
}

/// The text may be broken between its words, and keeps its room when its column starts to sort.
QSize ContactHeader::sectionSizeFromContents(int section) const
{
    if (!model()) // the table outlives it for a moment
        return {};
    const auto header = [this, section](int role) {
        return model()->headerData(section, Qt::Horizontal, role);
    };
    int text = 0;
    for (const QString &word : header(Qt::DisplayRole).toString().split(u' '))
        text = qMax(text, fontMetrics().horizontalAdvance(word));
    const int side = header(Qt::CheckStateRole).isValid() ? checkSide + gap + 1 : 0;
    return {margin + side + text + gap, lines * fontMetrics().lineSpacing() + padding};
}

void ContactHeader::paintSection(QPainter *painter, const QRect &rect, int section) const
{
    painter->fillRect(rect, palette().window());
    painter->setPen(palette().color(QPalette::Mid));
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    painter->setPen(palette().color(QPalette::Midlight));
    painter->drawLine(rect.topRight() + QPoint(0, margin), rect.bottomRight() - QPoint(0, margin));

    QRect room = rect.adjusted(margin, 0, -gap, 0);
    const auto header = [this, section](int role) {
        return model()->headerData(section, Qt::Horizontal, role);
    };
    if (const QVariant check = header(Qt::CheckStateRole); check.isValid())
        paintCheck(painter, takeLeft(room, checkSide), check.toInt() == Qt::Checked);
    const QVariant direction = header(SortDirectionRole);
    if (direction.isValid())
        room.setRight(room.right() - chevronSide - gap);
    QRect text = painter->boundingRect(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap,
                                       header(Qt::DisplayRole).toString());
    painter->setPen(tintColor(direction.isValid() ? Tint::text : Tint::secondary, palette()));
    painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap,
                      header(Qt::DisplayRole).toString());
    if (!direction.isValid())
        return;
    QRect chevron(0, 0, chevronSide, chevronSide);
    chevron.moveCenter(room.center());
    chevron.moveLeft(qMin(text.right() + gap, room.right() + 1));
    const bool ascending = direction.toInt() == Qt::AscendingOrder;
    (ascending ? m_ascending : m_descending).paint(painter, chevron);
}

void ContactHeader::paintCheck(QPainter *painter, const QRect &box, bool checked) const
{
    QStyleOptionButton check;
    check.initFrom(this);
    check.rect = box;
    check.state = QStyle::State_Enabled | (checked ? QStyle::State_On : QStyle::State_Off);
    style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &check, painter, this);
}

} // namespace quenoria
