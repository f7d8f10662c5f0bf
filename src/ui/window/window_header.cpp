#include "ui/window/window_header.h"

#include "ui/kit/button_role.h"
#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"
#include "ui/window/action_button.h"
#include "ui/window/command_actions.h"
#include "ui/window/flow_layout.h"

#include <QAction>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int margin = 20;
constexpr int rowGap = 12;
constexpr int buttonGap = 8;
constexpr int quietGap = 2;
constexpr int quietInset = 6; ///< of the symbol in a button without a box
constexpr int queueGap = 12;
constexpr int smallestSearch = 240;

QString nameAndVersion()
{
    const QString version = QCoreApplication::applicationVersion();
    return u"Quenoria v.%1"_s.arg(version.isEmpty() ? u"7.29"_s : version);
}

/// A line of text as wide as it is.
QLabel *makeLine(const QString &text, TextStyle style, Tint tint = Tint::text)
{
    QLabel *line = makeLabel(text, style, tint);
    line->setWordWrap(false);
    return line;
}

QLayout *makeCommandRow(const QList<QAction *> &commands)
{
    auto *row = new FlowLayout(quietGap, quietInset);
    for (QAction *command : commands)
        row->addWidget(new ActionButton(command, ActionButton::Look::quiet));
    return row;
}

QLayout *makeQueueRow(const CommandActions &actions)
{
    auto *row = new FlowLayout(queueGap);
    const auto add = [row](QAction *action) {
        auto *button = new ActionButton(action, ActionButton::Look::boxed);
        row->addWidget(button);
        return button;
    };
    for (QAction *queue : actions.buttons(ButtonPlace::queues))
        makeProminent(add(queue));
    for (QAction *deletion : actions.buttons(ButtonPlace::deletion))
        makeDestructive(add(deletion));
    for (QAction *entry : actions.switches())
        row->addWidget(new ActionSwitch(entry));
    return row;
}

} // namespace

WindowHeader::WindowHeader(const CommandActions &actions, QWidget *parent)
    : QWidget(parent), m_counts(makeLine({}, TextStyle::headline)),
      m_quota(makeLine({}, TextStyle::footnote)), m_search(new QLineEdit)
{
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, rowGap, margin, rowGap);
    rows->setSpacing(rowGap);
    rows->addLayout(makeTitleRow());
    rows->addLayout(makeCommandRow(actions.buttons(ButtonPlace::commands)));
    rows->addLayout(makeQueueRow(actions));
    rows->addLayout(makeSearchRow());
}

QLayout *WindowHeader::makeTitleRow()
{
    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(makeLine(nameAndVersion(), TextStyle::title));
    texts->addWidget(makeLabel(u"Vos messages clients et prospects, sans intermédiaire !"_s,
                               TextStyle::body, Tint::secondary));
    auto *figures = new QVBoxLayout;
    figures->setSpacing(4);
    figures->addWidget(m_counts, 0, Qt::AlignRight);
    figures->addWidget(m_quota, 0, Qt::AlignRight);
    QFont digits = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    digits.setPointSizeF(m_quota->font().pointSizeF());
    m_quota->setFont(digits);

    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(new SymbolView(symbol(u"paperplane.circle.fill"_s, Tint::accent), 40));
    row->addLayout(texts, 1);
    row->addLayout(figures);
    return row;
}

QLayout *WindowHeader::makeSearchRow()
{
    m_search->setPlaceholderText(u"Rechercher un contact, un numéro ou un e-mail"_s);
    m_search->setAccessibleName(m_search->placeholderText());
    m_search->setClearButtonEnabled(true);
    if (auto *clear = m_search->findChild<QAction *>(u"_q_qlineeditclearaction"_s)) // Qt's name
        clear->setText(u"Effacer la recherche"_s);
    m_search->addAction(symbol(u"magnifyingglass"_s, Tint::secondary), QLineEdit::LeadingPosition)
        ->setText(u"Rechercher"_s);
    m_search->setMinimumWidth(smallestSearch);

    auto *row = new QHBoxLayout;
    row->setSpacing(buttonGap);
    row->addWidget(m_search, 1);
    row->addSpacing(buttonGap);
    row->addWidget(new SymbolView(symbol(u"pencil"_s, Tint::secondary), 14));
    row->addWidget(makeLine(u"Double-cliquez sur une ligne pour modifier le contact"_s,
                            TextStyle::footnote, Tint::secondary));
    return row;
}

void WindowHeader::showTexts(const HeaderTexts &texts)
{
    m_counts->setText(texts.counts);
    m_quota->setText(texts.quota);
    m_quota->setForegroundRole(tintRole(texts.quotaIsReached ? Tint::negative : Tint::secondary));
}

} // namespace quenoria
