#include "ui/window/commands.h"

#include "ui/window/content_view.h"

#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

using enum MenuPlace;
constexpr auto header = ButtonPlace::commands;
constexpr auto queues = ButtonPlace::queues;
constexpr auto deletion = ButtonPlace::deletion;
constexpr auto badge = ButtonPlace::badge;
constexpr auto none = ButtonPlace::none;

/// Stands for one command of each channel; a group starts at the first.
constexpr Command eachChannel(CommandText ChannelCommands::*texts,
                              void (ContentView::*run)(Channel), ButtonPlace button,
                              bool countsSelection = false, bool startsGroup = false)
{
    return {.text = u"",
            .symbol = u"",
            .shortcut = u"",
            .menu = send,
            .button = button,
            .run = nullptr,
            .startsGroup = startsGroup,
            .ofChannel = texts,
            .runOn = run,
            .countsSelection = countsSelection};
}

constexpr std::array rows{
    Command{u"Ajouter un contact", u"plus.circle.fill", u"Ctrl+N", file, header,
            &ContentView::addContact, nullptr, false, 2},
    Command{u"Importer Excel", u"tablecells.badge.ellipsis", u"Ctrl+O", file, header,
            &ContentView::importExcelFile, nullptr, false, 1},
    Command{u"Vérifier un classeur…", u"", u"Ctrl+Shift+I", file, none,
            &ContentView::checkWorkbook},
    Command{u"Annuler cet import", u"", u"", file, none, &ContentView::undoImport, nullptr, false,
            0, &HeaderTexts::importCanBeUndone},
    Command{u"Exporter…", u"", u"Ctrl+Shift+X", file, none, &ContentView::exportData, nullptr,
            true},
    Command{u"Appliquer une liste STOP…", u"", u"", file, none, &ContentView::applyStopList},
    Command{u"Sauvegarder maintenant…", u"", u"", file, none, &ContentView::saveBackup, nullptr,
            true},
    Command{u"Restaurer une sauvegarde…", u"", u"", file, none, &ContentView::restoreBackup},
    Command{u"Format Excel attendu", u"questionmark.circle", u"F1", help, header,
            &ContentView::showImportHelp},
    Command{u"Guide d’utilisation", u"", u"Shift+F1", help, none, &ContentView::showGuide},
    Command{u"Voir la démonstration", u"", u"", help, none, &ContentView::showDemonstration,
            nullptr, false, 3},
    Command{u"Ouvrir le dossier des données", u"", u"", help, none, &ContentView::openDataFolder,
            nullptr, true},
    Command{u"Annuler", u"", u"Ctrl+Z", edit, none, &ContentView::undoLast},
    Command{u"Modifier le contact", u"", u"", edit, none, &ContentView::editCurrentContact, nullptr,
            true},
    Command{u"Historique des envois", u"", u"Ctrl+H", edit, none, &ContentView::showCurrentHistory},
    Command{u"Dossier du contact", u"", u"Ctrl+I", edit, none, &ContentView::showCurrentDossier},
    Command{u"Copier le numéro", u"", u"Ctrl+C", edit, none, &ContentView::copyPhone, nullptr,
            true},
    Command{u"Copier l’adresse", u"", u"Ctrl+Shift+C", edit, none, &ContentView::copyEmail},
    Command{u"Rechercher", u"", u"Ctrl+F", edit, none, &ContentView::startSearch, nullptr, true},
    Command{u"Départements", u"map", u"Ctrl+D", edit, header, &ContentView::manageDepartments,
            nullptr, true},
    eachChannel(&ChannelCommands::openQueue, &ContentView::openQueue, queues, true),
    eachChannel(&ChannelCommands::tickShown, &ContentView::tickShown, none, false, true),
    eachChannel(&ChannelCommands::untickShown, &ContentView::untickShown, none),
    eachChannel(&ChannelCommands::manageTemplates, &ContentView::manageTemplates, header, false,
                true),
    Command{u"Tester un message", u"paperplane.fill", u"Ctrl+T", send, header,
            &ContentView::testMessage},
    Command{u"Réponses STOP", u"", u"", send, badge, &ContentView::showStopReplies,
            &HeaderTexts::stopReplies},
    Command{u"Bilan des envois", u"", u"", send, none, &ContentView::showReport, nullptr, true},
    Command{u"Moyens d’envoi…", u"", u"", send, none, &ContentView::chooseCarriers, nullptr, false,
            4},
    Command{u"Supprimer les contacts cochés", u"trash", u"Del", edit, deletion,
            &ContentView::deleteTickedContacts, &HeaderTexts::deletion},
    Command{u"Réduire", u"", u"Ctrl+M", window, none, &ContentView::showMinimized},
    Command{u"Plein écran", u"", u"F11", window, none, &ContentView::toggleFullScreen},
    Command{u"Filtrer", u"magnifyingglass", u"Ctrl+L", view, header, &ContentView::toggleFilters},
    Command{u"Tout afficher", u"", u"Ctrl+Shift+F", view, none, &ContentView::showAll},
    Command{u"Fiche", u"", u"F4", view, none, &ContentView::togglePanel, nullptr, true},
    Command{u"Aller à la fiche ou à la liste", u"", u"F6", view, none, &ContentView::enterPanel},
    Command{u"Rétablir les largeurs", u"", u"", view, none, &ContentView::resetColumnWidths,
            nullptr, true},
    Command{u"À propos", u"info.circle", u"", help, header, &ContentView::showAbout, nullptr, true},
    Command{u"Quitter l’application", u"power", u"Ctrl+Q", file, header, &ContentView::quit,
            nullptr, true},
};

constexpr std::array menus{
    MenuTitle{file, u"&Fichier"}, MenuTitle{edit, u"É&dition"},   MenuTitle{view, u"Affic&hage"},
    MenuTitle{send, u"En&vois"},  MenuTitle{window, u"Fe&nêtre"}, MenuTitle{help, u"&Aide"},
};

void addForEachChannel(std::vector<Command> &commands, const Command &row)
{
    for (const ChannelDescriptor *channel : channels()) {
        const CommandText &texts = channel->commands.*row.ofChannel;
        Command command = row;
        command.text = texts.text;
        command.symbol = texts.symbol;
        command.shortcut = texts.shortcut;
        command.startsGroup = row.startsGroup && channel == channels().front();
        command.channel = channel->channel;
        commands.push_back(command);
    }
}

std::vector<Command> allCommands()
{
    std::vector<Command> commands;
    for (const Command &row : rows) {
        if (row.ofChannel)
            addForEachChannel(commands, row);
        else
            commands.push_back(row);
    }
    return commands;
}

} // namespace

void Command::runIn(ContentView &window) const
{
    if (runOn)
        (window.*runOn)(channel);
    else
        (window.*run)();
}

std::span<const Command> windowCommands()
{
    static const std::vector<Command> commands = allCommands();
    return commands;
}

std::span<const MenuTitle> windowMenus() { return menus; }

} // namespace quenoria
