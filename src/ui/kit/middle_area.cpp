#include "ui/kit/middle_area.h"

#include <QFontMetrics>
#include <QLayout>
#include <QScrollBar>

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

} // namespace

MiddleArea::MiddleArea(QWidget *parent) : QScrollArea(parent)
{
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

} // namespace quenoria
