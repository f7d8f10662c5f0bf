#include "ui/window/window_header.h"

#include "ui/kit/button_role.h"
#include "ui/kit/flow_layout.h"
#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"
#include "ui/window/action_button.h"
#include "ui/window/command_actions.h"
#include "ui/window/command_bar.h"
#include "ui/window/folding_line.h"

#include <QAction>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int margin = 20;
constexpr int outerGap = 6;
constexpr int rowGap = 6;
constexpr int titleGap = 16;
constexpr int symbolGap = 8;
constexpr int emblemSide = 22;
constexpr int hintSymbolSide = 14;
constexpr int buttonGap = 8;
constexpr int switchGap = 16;
constexpr int searchPadding = 72; ///< of its two symbols

QString nameAndVersion()
{
    const QString version = QCoreApplication::applicationVersion();
    return u"Quenoria v.%1"_s.arg(version.isEmpty() ? u"7.29"_s : version);
}

/// A line of text as wide as it is.
TextLabel *makeLine(const QString &text, TextStyle style, Tint tint = Tint::text)
{
    TextLabel *line = makeLabel(text, style, tint);
    line->setWordWrap(false);
    return line;
}

/// A symbol and the text that belongs to it.
QWidget *makeSigned(const QString &symbolName, Tint tint, int side, QWidget *text)
{
    auto *pair = new QWidget;
    auto *row = new QHBoxLayout(pair);
    row->setContentsMargins({});
    row->setSpacing(symbolGap);
    row->addWidget(new SymbolView(symbol(symbolName, tint), side));
    row->addWidget(text);
    return pair;
}

/// As high as its line is: the table below does not move when it comes.
ActionButton *makeBadge(QAction *action)
{
    auto *badge = new ActionButton(action, ActionButton::Look::boxed);
    makeProminent(badge);
    badge->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    return badge;
}

QWidget *makeCommandRow(const CommandActions &actions)
{
    auto *line = new QWidget;
    auto *row = new QHBoxLayout(line);
    row->setContentsMargins({});
    row->setSpacing(buttonGap);
    row->addWidget(new CommandBar(actions.buttons(ButtonPlace::commands)), 1);
    for (QAction *queue : actions.buttons(ButtonPlace::queues)) {
        auto *button = new ActionButton(queue, ActionButton::Look::boxed);
        makeProminent(button);
        row->addWidget(button);
    }
    return line;
}

} // namespace

WindowHeader::WindowHeader(const CommandActions &actions, QWidget *parent)
    : QWidget(parent), m_counts(makeLine({}, TextStyle::headline)),
      m_quota(makeLine({}, TextStyle::footnote)), m_search(new QLineEdit),
      m_title(makeTitleLine(actions)), m_commands(makeCommandRow(actions)),
      m_searchRow(makeSwitchRow(actions))
{
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, outerGap, margin, outerGap);
    rows->setSpacing(rowGap);
    rows->addWidget(m_title);
    rows->addWidget(m_commands);
    rows->addLayout(m_searchRow);
}

int WindowHeader::need(int width, Fold fold) const
{
    const int title = fold < Fold::title ? m_title->sizeHint().height() + rowGap : 0;
    const int commands = fold < Fold::commands ? m_commands->sizeHint().height() + rowGap : 0;
    const int search = m_searchRow->heightForWidth(width - 2 * margin, fold >= Fold::switches);
    return outerGap + title + commands + search + outerGap;
}

int WindowHeader::leastHeight() const { return need(width(), Fold::commands); }

void WindowHeader::fitInto(QSize room)
{
    Fold fold = Fold::nothing;
    for (const Fold next : {Fold::switches, Fold::title, Fold::commands})
        fold = need(room.width(), fold) > room.height() ? next : fold;
    m_searchRow->fold(fold >= Fold::switches);
    m_title->setHidden(fold >= Fold::title);
    m_commands->setHidden(fold == Fold::commands);
}

QWidget *WindowHeader::makeTitleLine(const CommandActions &actions)
{
    QFont digits = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    digits.setPointSizeF(m_quota->font().pointSizeF());
    m_quota->setFont(digits);
    QWidget *name = makeSigned(u"paperplane.circle.fill"_s, Tint::accent, emblemSide,
                               makeLine(nameAndVersion(), TextStyle::headline));
    QWidget *tagline = makeLine(u"Vos messages clients et prospects, sans intermédiaire !"_s,
                                TextStyle::footnote, Tint::secondary);
    QWidget *hint = makeSigned(u"pencil"_s, Tint::secondary, hintSymbolSide,
                               makeLine(u"Double-cliquez sur une ligne pour modifier le contact"_s,
                                        TextStyle::footnote, Tint::secondary));
    m_stopReplies = makeBadge(actions.buttons(ButtonPlace::badge).constFirst());
    auto *line = new FoldingLine(titleGap);
    line->addWidget(name);
    line->addWidget(tagline);
    line->addStretch();
    line->addWidget(hint);
    line->addWidget(m_stopReplies);
    line->addWidget(m_counts);
    line->addWidget(m_quota);
    line->setFoldable({name, hint, tagline});
    return line;
}

FlowLayout *WindowHeader::makeSwitchRow(const CommandActions &actions)
{
    auto *row = new FlowLayout(switchGap);
    QList<QWidget *> foldable;
    for (QAction *entry : actions.switches())
        foldable << new ActionSwitch(entry);
    for (QAction *deletion : actions.buttons(ButtonPlace::deletion)) {
        auto *button = new ActionButton(deletion, ActionButton::Look::boxed);
        makeDestructive(button);
        foldable << button;
    }
    for (QWidget *each : foldable)
        row->addWidget(each);
    row->setFoldable(foldable);
    furnishSearch();
    row->addWidget(m_search);
    return row;
}

void WindowHeader::addFilters(QWidget *filters) { m_searchRow->addWidget(filters); }

void WindowHeader::furnishSearch()
{
    m_search->setPlaceholderText(u"Rechercher un contact, un numéro ou un e-mail"_s);
    m_search->setAccessibleName(m_search->placeholderText());
    m_search->setClearButtonEnabled(true);
    if (auto *clear = m_search->findChild<QAction *>(u"_q_qlineeditclearaction"_s)) // Qt's name
        clear->setText(u"Effacer la recherche"_s);
    m_search->addAction(symbol(u"magnifyingglass"_s, Tint::secondary), QLineEdit::LeadingPosition)
        ->setText(u"Rechercher"_s);
    const int text = m_search->fontMetrics().horizontalAdvance(m_search->placeholderText());
    m_search->setMinimumWidth(text + searchPadding);
}

void WindowHeader::showTexts(const HeaderTexts &texts)
{
    m_counts->setText(texts.counts);
    m_stopReplies->setVisible(texts.hasStopReplies);
    m_quota->setText(texts.quota);
    m_quota->setForegroundRole(tintRole(texts.quotaIsReached ? Tint::negative : Tint::secondary));
}

} // namespace quenoria
