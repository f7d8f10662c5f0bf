#include "ui/window/command_actions.h"

#include "ui/channels/channel_descriptor.h"
#include "ui/kit/plain_text.h"
#include "ui/kit/symbol.h"
#include "ui/window/content_view.h"

#include <QAction>
#include <QMap>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// Of each channel, in the order of the channels.
std::vector<SwitchText> switchTexts()
{
    std::vector<SwitchText> texts;
    for (const ChannelDescriptor *channel : channels()) {
        if (channel->automatic)
            texts.push_back(channel->automatic->turnedOn);
        if (channel->allowance)
            texts.push_back(channel->allowance->lifted);
    }
    return texts;
}

} // namespace

CommandActions::CommandActions(ContentView &window, Switches &switches)
{
    for (const Command &command : windowCommands())
        m_commands.push_back({&command, makeAction(command, window)});
    makeSwitches(window, switches);
}

QAction *CommandActions::makeAction(const Command &command, ContentView &window)
{
    auto *action = new QAction(QString::fromUtf16(command.text), &window);
    if (const QString name = QString::fromUtf16(command.symbol); !name.isEmpty())
        action->setIcon(symbol(name));
    action->setShortcut(QKeySequence(QString::fromUtf16(command.shortcut)));
    action->setMenuRole(QAction::NoRole);
    QObject::connect(action, &QAction::triggered, &window,
                     [&window, &command] { command.runIn(window); });
    return action;
}

void CommandActions::makeSwitches(ContentView &window, Switches &switches)
{
    for (const SwitchText &each : switchTexts()) {
        auto *action = new QAction(each.text, &window);
        action->setToolTip(tipText(each.help));
        action->setCheckable(true);
        const auto show = [action, &switches, each] {
            action->setChecked(switches.isOn(each.which));
            action->setText(each.text +
                            (switches.isUnsaved(each.which) ? u" (non enregistré)"_s : QString()));
        };
        show();
        QObject::connect(&switches, &Switches::changed, action, show);
        QObject::connect(action, &QAction::toggled, &switches,
                         [&switches, which = each.which](bool on) { switches.set(which, on); });
        m_switches << action;
    }
}

QList<QAction *> CommandActions::buttons(ButtonPlace place) const
{
    QList<QAction *> placed;
    for (const auto &[command, action] : m_commands) {
        if (command->button == place)
            placed << action;
    }
    return placed;
}

QList<QAction *> CommandActions::firstSteps() const
{
    QMap<int, QAction *> placed;
    for (const auto &[command, action] : m_commands) {
        if (command->firstStep > 0)
            placed[command->firstStep] = action;
    }
    return placed.values();
}

void CommandActions::fillMenuBar(QMenuBar &bar)
{
    for (const MenuTitle &menu : windowMenus())
        m_menus[menu.place] = bar.addMenu(QString::fromUtf16(menu.title));
    for (const auto &[command, action] : m_commands) {
        QMenu &menu = this->menu(command->menu);
        if (command->startsGroup)
            menu.addSeparator();
        menu.addAction(action);
    }
    menu(MenuPlace::send).addSeparator();
    menu(MenuPlace::send).addActions(m_switches);
}

void CommandActions::showTexts(const HeaderTexts &texts)
{
    for (const auto &[command, action] : m_commands) {
        if (command->countedText)
            action->setText(texts.*command->countedText);
        if (command->countsSelection)
            action->setText(texts.queues.at(command->channel));
        if (command->isPossible)
            action->setEnabled(texts.*command->isPossible);
    }
}

} // namespace quenoria
