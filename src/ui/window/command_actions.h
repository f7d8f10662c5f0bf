#pragma once

#include "ui/window/commands.h"

#include <QList>

#include <map>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace quenoria {

class Switches;

/// The actions of the window: its commands and the three switches, and the menus that hold them.
class CommandActions {
public:
    CommandActions(ContentView &window, Switches &switches);

    QList<QAction *> buttons(ButtonPlace place) const;
    QList<QAction *> firstSteps() const; ///< in their order
    const QList<QAction *> &switches() const { return m_switches; }
    void fillMenuBar(QMenuBar &bar);
    QMenu &menu(MenuPlace place) const { return *m_menus.at(place); } ///< of the bar, once filled

    /// Gives the commands that count something their current texts.
    void showTexts(const HeaderTexts &texts);

private:
    QAction *makeAction(const Command &command, ContentView &window);
    void makeSwitches(ContentView &window, Switches &switches);

    struct Entry {
        const Command *command;
        QAction *action;
    };
    std::vector<Entry> m_commands;
    std::map<MenuPlace, QMenu *> m_menus;
    QList<QAction *> m_switches;
};

} // namespace quenoria
