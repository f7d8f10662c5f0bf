#include "ui/window/outcome_line.h"

#include "ui/kit/labels.h"
#include "ui/kit/plain_text.h"
#include "ui/kit/symbol.h"

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int margin = 20;
constexpr int gap = 8;
constexpr std::chrono::seconds stay{30};

bool isByHand(QEvent::Type type)
{
    return type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::Wheel;
}

} // namespace

OutcomeLine::OutcomeLine(QWidget *parent)
    : QWidget(parent), m_text(makeLabel({}, TextStyle::footnote)), m_act(new QPushButton),
      m_close(new QToolButton)
{
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_close->setIcon(symbol(u"xmark"_s, Tint::secondary));
    m_close->setAccessibleName(u"Fermer cette ligne"_s);
    m_close->setToolTip(tipText(m_close->accessibleName()));
    m_close->setAutoRaise(true);
    for (QAbstractButton *button : std::initializer_list<QAbstractButton *>{m_act, m_close})
        button->setFocusPolicy(Qt::TabFocus); // a click takes nobody's text from the hand
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(margin, gap / 2, margin, gap / 2);
    row->setSpacing(gap);
    row->addWidget(m_text, 1);
    row->addWidget(m_act);
    row->addWidget(m_close);
    connect(m_act, &QPushButton::clicked, this, [this] {
        if (const auto deed = m_deed)
            deed(); // which may tell something else
    });
    connect(m_close, &QToolButton::clicked, this, &QWidget::hide);
    m_stay.setSingleShot(true);
    m_stay.setInterval(stay);
    m_stay.callOnTimeout(this, &OutcomeLine::leave);
    hide();
}

void OutcomeLine::tell(const QString &text) { tell(text, {}, {}); }

void OutcomeLine::tell(const QString &text, const QString &actionText,
                       const std::function<void()> &act)
{
    m_deed = act;
    m_text->setText(text);
    m_text->setAccessibleName(text);
    m_act->setText(actionText);
    m_act->setVisible(!actionText.isEmpty());
    setVisible(!text.isEmpty());
    m_stay.stop();
    if (!text.isEmpty())
        qApp->installEventFilter(this);
    QAccessibleEvent event(m_text, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

QString OutcomeLine::text() const { return isHidden() ? QString() : m_text->text(); }

bool OutcomeLine::eventFilter(QObject *watched, QEvent *event)
{
    if (isByHand(event->type()) && !m_stay.isActive())
        m_stay.start();
    return QWidget::eventFilter(watched, event);
}

void OutcomeLine::hideEvent(QHideEvent *event)
{
    if (isHidden()) {
        m_stay.stop();
        qApp->removeEventFilter(this);
    }
    QWidget::hideEvent(event);
}

bool OutcomeLine::isLookedAt() const
{
    return underMouse() || isAncestorOf(QApplication::focusWidget());
}

void OutcomeLine::leave()
{
    if (isLookedAt())
        m_stay.start();
    else
        hide();
}

} // namespace quenoria
