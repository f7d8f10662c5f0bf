#include "ui/kit/mnemonics.h"

#include <QAbstractButton>
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>

#include <algorithm>

namespace quenoria {

namespace {

QKeySequence altWith(QChar letter) { return QKeySequence(int(Qt::ALT) | letter.unicode()); }

/// What a keyboard has without a second modifier: the letters of ASCII, those first that begin a
/// word.
QString lettersOf(const QString &text)
{
    QString initials;
    QString others;
    bool beginsWord = true;
    for (const QChar each : text) {
        const QChar letter = each.toUpper();
        const bool isLetter = letter >= u'A' && letter <= u'Z';
        if (isLetter)
            (beginsWord ? initials : others) += letter;
        beginsWord = !each.isLetterOrNumber();
    }
    return initials + others;
}

/// Buttons whose letter must be one of few choose first.
std::vector<QAbstractButton *> buttonsOf(const QWidget &window)
{
    std::vector<QAbstractButton *> buttons;
    for (auto *button : window.findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->window() == &window)
            buttons.push_back(button);
    }
    std::ranges::stable_sort(buttons, {}, [](const QAbstractButton *button) {
        return lettersOf(button->text()).size();
    });
    return buttons;
}

/// What an entry shows before its shortcut.
QString titleOf(const QAction *entry) { return entry->text().section(u'\t', 0, 0); }

} // namespace

Mnemonics::Mnemonics(QWidget *window) : QObject(window), m_window(window)
{
    window->installEventFilter(this);
}

qsizetype Mnemonics::placeOf(const QKeySequence &shortcut, const QString &text)
{
    qsizetype inside = -1;
    bool beginsWord = true;
    for (qsizetype place = 0; place < text.size(); ++place) {
        if (altWith(text[place].toUpper()) == shortcut) {
            if (beginsWord)
                return place;
            inside = inside < 0 ? place : inside;
        }
        beginsWord = !text[place].isLetterOrNumber();
    }
    return inside;
}

/// The window is about to be painted anew whenever a button came or has another text, which takes
/// its letter from it.
bool Mnemonics::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPainted = event->type() == QEvent::UpdateRequest || event->type() == QEvent::Show;
    if (watched == m_window && isPainted)
        assign();
    return false;
}

void Mnemonics::assign()
{
    const std::vector<QAbstractButton *> buttons = buttonsOf(*m_window);
    QList<QKeySequence> taken;
    for (const auto *label : m_window->findChildren<QLabel *>())
        taken << QKeySequence::mnemonic(label->buddy() ? label->text() : QString());
    std::vector<QAbstractButton *> without;
    for (QAbstractButton *button : buttons) {
        const bool keeps = !button->shortcut().isEmpty() && !taken.contains(button->shortcut());
        keeps ? void(taken << button->shortcut()) : without.push_back(button);
    }
    for (QAbstractButton *button : without) {
        const QString letters = lettersOf(button->text());
        const auto isFree = [&taken](QChar letter) { return !taken.contains(altWith(letter)); };
        const auto letter = std::ranges::find_if(letters, isFree);
        if (letter == letters.end())
            continue;
        button->setShortcut(altWith(*letter));
        button->update();
        taken << button->shortcut();
    }
}

void MenuMnemonics::follow(QMenu &menu)
{
    if (!menu.findChild<MenuMnemonics *>({}, Qt::FindDirectChildrenOnly))
        new MenuMnemonics(menu);
}

MenuMnemonics::MenuMnemonics(QMenu &menu) : QObject(&menu), m_menu(menu)
{
    connect(&menu, &QMenu::aboutToShow, this, &MenuMnemonics::assign);
    connect(&menu, &QMenu::aboutToHide, this, &MenuMnemonics::takeBack);
}

/// Entries whose letter must be one of few choose first. The menu alone is told of the new text.
void MenuMnemonics::assign()
{
    takeBack();
    QList<QKeySequence> taken;
    std::vector<QAction *> without;
    for (QAction *entry : m_menu.actions()) {
        const QKeySequence own = QKeySequence::mnemonic(entry->text());
        own.isEmpty() ? without.push_back(entry) : void(taken << own);
    }
    std::ranges::stable_sort(without, {},
                             [](const QAction *entry) { return lettersOf(titleOf(entry)).size(); });
    for (QAction *entry : without) {
        const QString letters = lettersOf(titleOf(entry));
        const auto isFree = [&taken](QChar letter) { return !taken.contains(altWith(letter)); };
        const auto letter = std::ranges::find_if(letters, isFree);
        if (letter == letters.end())
            continue;
        taken << altWith(*letter);
        QString text = entry->text();
        text.insert(m_places[entry] = Mnemonics::placeOf(altWith(*letter), text), u'&');
        const QSignalBlocker blocker(entry);
        entry->setText(text);
    }
}

/// A text that came while the menu was open has no letter.
void MenuMnemonics::takeBack()
{
    for (QAction *entry : m_menu.actions()) {
        QString text = entry->text();
        const qsizetype place = m_places.value(entry, text.size());
        if (place >= text.size() || text[place] != u'&')
            continue;
        const QSignalBlocker blocker(entry);
        entry->setText(text.remove(place, 1));
    }
    m_places.clear();
}

} // namespace quenoria
