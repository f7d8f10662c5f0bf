#include "ui/kit/middle_area.h"

#include <QAccessibleWidget>
#include <QFontMetrics>
#include <QLayout>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int linesInSight = 4;

/// Asks for the least height of its parts, where a widget by itself asks for the usual one.
class Parts : public QWidget {
public:
    int heightForWidth(int width) const override
    {
        return layout()->hasHeightForWidth() ? layout()->minimumHeightForWidth(width)
                                             : layout()->minimumSize().height();
    }
};

/// To a screen reader something to read through, where the toolkit tells of a filler.
QAccessibleInterface *toldAsDocument(const QString &className, QObject *object)
{
    auto *area = className == u"quenoria::MiddleArea" ? qobject_cast<QWidget *>(object) : nullptr;
    if (!area)
        return nullptr;
    return new QAccessibleWidget(area, QAccessible::Document, u"Contenu de la fenêtre"_s);
}

} // namespace

MiddleArea::MiddleArea(QWidget *parent) : QScrollArea(parent)
{
    QAccessible::installFactory(toldAsDocument); // once, however often it is asked for
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setWidget(new Parts);
    setFocusPolicy(Qt::NoFocus);
    // What scrolls can be reached by the keyboard also where nothing in it takes the focus.
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this,
            [this](int, int most) { setFocusPolicy(most > 0 ? Qt::TabFocus : Qt::NoFocus); });
}

QSize MiddleArea::need(int width) const
{
    const int least = widget()->minimumSizeHint().width();
    return {least, widget()->heightForWidth(qMax(width, least))};
}

QSize MiddleArea::minimumSizeHint() const
{
    const int least = linesInSight * fontMetrics().lineSpacing();
    const QSize parts = widget()->minimumSizeHint();
    return {qMin(parts.width(), least), qMin(parts.height(), least)};
}

/// Seen by its scroll bar, which the arrow keys then move.
void MiddleArea::focusInEvent(QFocusEvent *event)
{
    QScrollArea::focusInEvent(event);
    QPalette accented;
    accented.setBrush(QPalette::Dark, palette().highlight());
    verticalScrollBar()->setPalette(accented);
}

void MiddleArea::focusOutEvent(QFocusEvent *event)
{
    QScrollArea::focusOutEvent(event);
    verticalScrollBar()->setPalette(QPalette());
}

} // namespace quenoria
