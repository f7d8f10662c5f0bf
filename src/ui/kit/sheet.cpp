#include "ui/kit/sheet.h"

#include "ui/kit/alert.h"
#include "ui/kit/labels.h"
#include "ui/kit/middle_area.h"
#include "ui/kit/mnemonics.h"
#include "ui/kit/screen_room.h"

#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int margin = 24;
constexpr int spacing = 16;
constexpr int focusRing = 2; ///< of a part at the edge of the middle

QBoxLayout *makeColumn(int outside)
{
    auto *column = new QVBoxLayout;
    column->setContentsMargins(margin, outside, margin, outside);
    column->setSpacing(spacing);
    return column;
}

int heightOf(const QLayout &layout, int width)
{
    return layout.hasHeightForWidth() ? layout.heightForWidth(width) : layout.sizeHint().height();
}

} // namespace

Sheet::Sheet(const QString &title, QSize size, QWidget *parent)
    : QDialog(parent), m_preferredSize(size), m_header(makeColumn(0)), m_middle(new MiddleArea),
      m_column(makeColumn(focusRing)), m_footer(makeColumn(0))
{
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    new Mnemonics(this);
    m_middle->widget()->setLayout(m_column);
    auto *parts = new QVBoxLayout(this);
    parts->setContentsMargins(0, margin, 0, margin); // the scroll bar lies at the window's edge
    parts->setSpacing(spacing - focusRing);
    parts->addLayout(m_header);
    parts->addWidget(m_middle, 1);
    parts->addLayout(m_footer);
}

void Sheet::present()
{
    setAttribute(Qt::WA_DeleteOnClose);
    open();
}

void Sheet::reject()
{
    settleInput([this] { QDialog::reject(); });
}

void Sheet::settleInput(const std::function<void()> &goOn)
{
    if (!isVisible() || !hasUnsavedInput())
        return goOn();
    if (m_question && m_question->isVisible())
        return;
    const auto save = [this, goOn] {
        saveInput();
        if (isVisible() && !hasUnsavedInput())
            goOn();
    };
    m_question = offerChoices(
        this, u"Enregistrer ce que vous avez saisi ?"_s,
        u"Les modifications de cette fenêtre ne sont pas encore enregistrées."_s,
        {{u"Enregistrer"_s, save}, {u"Ne pas enregistrer"_s, goOn}, {u"Annuler"_s, [] {}}});
}

void Sheet::setVisible(bool visible)
{
    if (visible && !isVisible())
        fitIntoScreen();
    QDialog::setVisible(visible);
}

void Sheet::fitIntoScreen()
{
    ensurePolished();
    const QSize room = screenRoom(parentWidget() ? *parentWidget()->window() : *this);
    int parts = qMax(layout()->minimumSize().width(), m_middle->need(0).width());
    if (leastHeight(qMax(m_preferredSize.width(), parts)) > room.height())
        parts += m_middle->verticalScrollBar()->sizeHint().width();
    const int width = qMin(qMax(m_preferredSize.width(), parts), room.width());
    resize(width, qMin(qMax(m_preferredSize.height(), leastHeight(width)), room.height()));
}

int Sheet::leastHeight(int width) const
{
    return 2 * margin + heightOf(*m_header, width) + m_middle->need(width).height() +
           heightOf(*m_footer, width) + 2 * layout()->spacing();
}

void Sheet::addHeader(const QString &title, const QString &note)
{
    auto *texts = new QVBoxLayout;
    texts->setSpacing(4);
    texts->addWidget(makeLabel(title, TextStyle::title));
    if (!note.isEmpty())
        texts->addWidget(makeLabel(note, TextStyle::body, Tint::secondary));
    auto *row = new QHBoxLayout;
    row->setSpacing(spacing);
    row->addLayout(texts, 1);
    row->addWidget(makeCloseButton(), 0, Qt::AlignTop);
    m_header->addLayout(row);
}

void Sheet::addTitle(const QString &title)
{
    m_header->addWidget(makeLabel(title, TextStyle::title));
}

QPushButton *Sheet::addConfirmRow(const QString &confirm)
{
    auto *cancel = new QPushButton(u"Annuler"_s);
    auto *button = new QPushButton(confirm);
    connect(cancel, &QPushButton::clicked, this, &Sheet::reject);
    makeProminent(button);
    button->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cancel);
    row->addWidget(button);
    m_footer->addLayout(row);
    return button;
}

QPushButton *Sheet::makeCloseButton()
{
    auto *close = new QPushButton(u"Fermer"_s);
    connect(close, &QPushButton::clicked, this, &Sheet::reject);
    return close;
}

} // namespace quenoria
