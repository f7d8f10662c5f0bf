#include "ui/table/cell_delegate.h"

#include "ui/kit/plain_text.h"
#include "ui/kit/symbol.h"
#include "ui/kit/theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr float washStrength = 0.12F;
constexpr int focusRing = 2;
constexpr int iconSide = 16;
constexpr int mostElided = 1'000;
constexpr qsizetype mostCharacters = 500; ///< that the widest column could show

const QStyle *styleOf(const QStyleOptionViewItem &option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

QString elided(const QFont &font, const QString &text, int width)
{
    return QFontMetrics(font).elidedText(oneLine(text, mostCharacters), Qt::ElideRight, width);
}

QColor washOf(QColor color)
{
    color.setAlphaF(washStrength);
    return color;
}

CellKind kindOf(const QModelIndex &index) { return CellKind(index.data(KindRole).toInt()); }

} // namespace

CellDelegate::CellDelegate(const HotButton &hot, QObject *parent)
    : QStyledItemDelegate(parent), m_hot(hot), m_elided(mostElided),
      m_stopped(symbol(u"hand.raised.circle.fill"_s, Tint::negative)),
      m_sent(symbol(u"checkmark.circle.fill"_s, Tint::positive))
{
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return {CellLayout::fittingWidth(option, index), CellLayout::rowHeight(option.font)};
}

void CellDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    const CellLayout layout = CellLayout::of(option, index);
    painter->save();
    painter->setClipRect(option.rect);
    paintGround(painter, option);
    if (index.data(ArrivedRole).toBool())
        painter->fillRect(option.rect, washOf(tintColor(Tint::positive, option.palette)));
    if (!layout.check.isNull())
        paintCheck(painter, option, layout.check, index);
    if (!layout.frame.isNull())
        paintFrame(painter, option, layout.frame, index);
    paintTexts(painter, option, layout, index);
    paintButtons(painter, option, layout.buttons, index);
    painter->restore();
}

void CellDelegate::paintGround(QPainter *painter, const QStyleOptionViewItem &option) const
{
    const QPalette &palette = option.palette;
    painter->fillRect(option.rect, palette.base());
    if (option.state & QStyle::State_Selected)
        painter->fillRect(option.rect, washOf(palette.color(QPalette::Highlight)));
    painter->fillRect(QRect(option.rect.bottomLeft(), QSize(option.rect.width(), 1)),
                      palette.color(QPalette::Midlight));
    if (option.state & QStyle::State_HasFocus) {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(palette.color(QPalette::Highlight), focusRing));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(option.rect).adjusted(2, 2, -2, -3), 6, 6);
    }
}

void CellDelegate::paintCheck(QPainter *painter, const QStyleOptionViewItem &option,
                              const QRect &box, const QModelIndex &index) const
{
    QStyleOptionButton check;
    check.palette = option.palette;
    check.rect = box;
    const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    check.state = checked ? QStyle::State_On : QStyle::State_Off;
    check.state.setFlag(QStyle::State_Enabled, index.flags() & Qt::ItemIsUserCheckable);
    if (!check.state.testFlag(QStyle::State_Enabled))
        painter->setOpacity(0.4);
    styleOf(option)->drawPrimitive(QStyle::PE_IndicatorCheckBox, &check, painter, option.widget);
}

void CellDelegate::paintFrame(QPainter *painter, const QStyleOptionViewItem &option,
                              const QRect &frame, const QModelIndex &index) const
{
    if (kindOf(index) == CellKind::picker) {
        QStyleOptionComboBox picker;
        picker.palette = option.palette;
        picker.rect = frame;
        picker.state = QStyle::State_Enabled;
        styleOf(option)->drawComplexControl(QStyle::CC_ComboBox, &picker, painter, option.widget);
        return;
    }
    QStyleOptionFrame field;
    field.palette = option.palette;
    field.rect = frame;
    field.state = QStyle::State_Enabled;
    field.lineWidth = 1;
    styleOf(option)->drawPrimitive(QStyle::PE_PanelLineEdit, &field, painter, option.widget);
}

QString CellDelegate::elidedOnce(const QFont &font, const QString &text, int width) const
{
    if (font != m_elidedFont) {
        m_elided.clear();
        m_elidedFont = font;
    }
    const std::pair key(text, width);
    if (const QString *known = m_elided.object(key))
        return *known;
    QString shown = elided(font, text, width);
    m_elided.insert(key, new QString(shown));
    return shown;
}

void CellDelegate::paintTexts(QPainter *painter, const QStyleOptionViewItem &option,
                              const CellLayout &layout, const QModelIndex &index) const
{
    if (!layout.mark.isNull()) {
        const bool isStopped = ContactMark(index.data(MarkRole).toInt()) == ContactMark::stopped;
        (isStopped ? m_stopped : m_sent).paint(painter, layout.mark);
    }
    const QString text = index.data().toString();
    const QString shown = text.isEmpty() ? index.data(PlaceholderRole).toString() : text;
    const QPalette::ColorRole ink = text.isEmpty() ? QPalette::PlaceholderText : QPalette::Text;
    painter->setFont(option.font);
    painter->setPen(option.palette.color(ink));
    painter->drawText(layout.text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      elidedOnce(option.font, shown, layout.text.width()));
    if (layout.warning.isNull())
        return;
    painter->setFont(CellLayout::warningFont(option.font));
    painter->setPen(tintColor(Tint::negative, option.palette));
    painter->drawText(
        layout.warning, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
        elided(painter->font(), index.data(WarningRole).toString(), layout.warning.width()));
}

void CellDelegate::paintButtons(QPainter *painter, const QStyleOptionViewItem &option,
                                const QList<QRect> &rects, const QModelIndex &index) const
{
    if (rects.isEmpty())
        return;
    const auto buttons = index.data(ButtonsRole).value<CellButtons>();
    for (qsizetype each = 0; each < rects.size(); ++each) {
        const CellButton &button = buttons[each];
        const bool isHot = button.enabled && m_hot.cell == index && m_hot.button == each;
        QStyleOptionButton painted;
        painted.palette = option.palette;
        if (!button.enabled)
            painted.palette.setCurrentColorGroup(QPalette::Disabled);
        painted.fontMetrics = option.fontMetrics;
        painted.rect = rects[each];
        painted.text = button.caption;
        if (!button.symbol.isEmpty())
            painted.icon = icon(button.symbol);
        painted.iconSize = {iconSide, iconSide};
        painted.state.setFlag(QStyle::State_Enabled, button.enabled);
        painted.state.setFlag(QStyle::State_MouseOver, isHot);
        painted.state.setFlag(QStyle::State_Sunken, isHot && m_hot.isPressed);
        painter->setFont(option.font);
        const bool hasBox = isHot || !button.caption.isEmpty();
        styleOf(option)->drawControl(hasBox ? QStyle::CE_PushButton : QStyle::CE_PushButtonLabel,
                                     &painted, painter, option.widget);
    }
}

QIcon CellDelegate::icon(const QString &name) const
{
    QIcon &kept = m_icons[name];
    if (kept.isNull())
        kept = symbol(name, Tint::secondary);
    return kept;
}

bool CellDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                             const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip)
        return false;
    const CellLayout layout = CellLayout::of(option, index);
    QString text;
    if (const qsizetype button = layout.buttonAt(event->pos()); button >= 0)
        text = index.data(ButtonsRole).value<CellButtons>()[button].name;
    else if (!layout.warning.isNull())
        text = index.data().toString() + u'\n' + index.data(WarningRole).toString();
    else if (const QString whole = index.data().toString();
             elided(option.font, whole, layout.text.width()) != whole)
        text = whole;
    QToolTip::showText(event->globalPos(), tipText(text), view);
    return true;
}

} // namespace quenoria
