#include "ui/window/command_actions.h"

#include "ui/kit/plain_text.h"
#include "ui/kit/switches.h"
#include "ui/kit/symbol.h"
#include "ui/window/content_view.h"

#include <QAction>
#include <QMap>
#include <QMenuBar>

#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

struct SwitchDescriptor {
    const char16_t *text;
    const char16_t *help;
    bool (Switches::*isOn)() const;
    void (Switches::*set)(bool);
    Switch which;
};

constexpr std::array switchDescriptors{
    SwitchDescriptor{u"Automatiser envoi SMS",
                     u"Prépare et envoie automatiquement les SMS dans Messages, puis enregistre le "
                     "suivi.",
                     &Switches::autoValidateSMS, &Switches::setAutoValidateSMS,
                     Switch::automaticSMS},
    SwitchDescriptor{u"Forfait Free Pro",
                     u"Coché : pas de limite appliquée par l’application. Décoché : 250 "
                     "destinataires SMS distincts maximum par mois.",
                     &Switches::freeProPlan, &Switches::setFreeProPlan, Switch::freePro},
    SwitchDescriptor{
        u"Automatiser envoi e-mail",
        u"Envoie automatiquement les e-mails dans Apple Mail, puis enregistre le suivi.",
        &Switches::autoValidateEmail, &Switches::setAutoValidateEmail, Switch::automaticEmail},
};

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
    QObject::connect(action, &QAction::triggered, &window, command.run);
    return action;
}

void CommandActions::makeSwitches(ContentView &window, Switches &switches)
{
    for (const SwitchDescriptor &descriptor : switchDescriptors) {
        auto *action = new QAction(QString::fromUtf16(descriptor.text), &window);
        action->setToolTip(tipText(QString::fromUtf16(descriptor.help)));
        action->setCheckable(true);
        const auto show = [action, &switches, descriptor] {
            action->setChecked((switches.*descriptor.isOn)());
            action->setText(
                QString::fromUtf16(descriptor.text) +
                (switches.isUnsaved(descriptor.which) ? u" (non enregistré)"_s : QString()));
        };
        show();
        QObject::connect(&switches, &Switches::changed, action, show);
        QObject::connect(action, &QAction::toggled, &switches, descriptor.set);
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
        if (command->isPossible)
            action->setEnabled(texts.*command->isPossible);
    }
}

} // namespace quenoria
