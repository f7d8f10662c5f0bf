#include "ui/window/commands.h"

#include "ui/window/content_view.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

using enum MenuPlace;
constexpr auto header = ButtonPlace::commands;
constexpr auto queues = ButtonPlace::queues;
constexpr auto deletion = ButtonPlace::deletion;
constexpr auto badge = ButtonPlace::badge;
constexpr auto none = ButtonPlace::none;

constexpr std::array commands{
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
    Command{u"Préparer les SMS", u"", u"Ctrl+Shift+S", send, queues, &ContentView::openSMSQueue,
            &HeaderTexts::smsQueue},
    Command{u"Préparer les e-mails", u"", u"Ctrl+Shift+E", send, queues,
            &ContentView::openEmailQueue, &HeaderTexts::emailQueue},
    Command{u"Cocher les contacts affichés pour les SMS", u"", u"", send, none,
            &ContentView::tickShownForSMS, nullptr, true},
    Command{u"Cocher les contacts affichés pour les e-mails", u"", u"", send, none,
            &ContentView::tickShownForEmail},
    Command{u"Décocher les contacts affichés pour les SMS", u"", u"", send, none,
            &ContentView::untickShownForSMS},
    Command{u"Décocher les contacts affichés pour les e-mails", u"", u"", send, none,
            &ContentView::untickShownForEmail},
    Command{u"Gérer les SMS", u"text.bubble.fill", u"", send, header, &ContentView::manageMessages,
            nullptr, true},
    Command{u"Gérer les e-mails", u"envelope.fill", u"", send, header,
            &ContentView::manageEmailMessages},
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

} // namespace

std::span<const Command> windowCommands() { return commands; }

std::span<const MenuTitle> windowMenus() { return menus; }

} // namespace quenoria
