#include "platform/platform.h"
#include "tour/demonstration.h"
#include "tour/visits.h"
#include "ui/sheets/password_view.h"
#include "ui/window/content_view.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

void lookAt(Guide &guide, const QString &command, const QString &picture)
{
    guide.press(command);
    guide.untilSheetIsOpen();
    guide.picture(picture);
    guide.closeSheet();
}

void addContact(Guide &guide)
{
    guide.press(u"Ajouter un contact"_s);
    guide.untilSheetIsOpen();
    guide.type(u"Nom de l’entreprise ou du contact"_s, u"Menuiserie Arzel"_s);
    guide.type(u"Numéro de téléphone"_s, u"06 39 98 77 10"_s);
    guide.type(u"Adresse e-mail"_s, u"menuiserie-arzel@example.org"_s);
    guide.type(u"Métier"_s, u"Menuisier"_s);
    guide.picture(u"ajouter-contact"_s);
    guide.press(u"Ajouter"_s);
    guide.untilSheetIsClosed();
    guide.say(u"Un contact ajouté à la main."_s);
}

void tryMessage(Guide &guide)
{
    guide.press(u"Tester un message"_s);
    guide.untilSheetIsOpen();
    guide.picture(u"tester"_s);
    guide.press(u"Préparer le SMS de test"_s);
    guide.untilSheetIsClosed();
    guide.say(u"Un SMS de test préparé, hors du suivi."_s);
}

void editContact(Guide &guide, ContentView &window)
{
    guide.goTo(u"MENUISERIE ARZEL"_s, u"Contact"_s);
    window.editCurrentContact();
    guide.untilSheetIsOpen();
    guide.picture(u"modifier-contact"_s);
    guide.closeSheet();
}

void readHistory(Guide &guide, ContentView &window)
{
    guide.goTo(u"BOULANGERIE DU STEÏR"_s, u"Contact"_s);
    window.showCurrentHistory();
    guide.untilSheetIsOpen();
    guide.picture(u"historique"_s);
    guide.closeSheet();
}

void readDossier(Guide &guide, ContentView &window)
{
    window.showCurrentDossier();
    guide.untilSheetIsOpen();
    guide.picture(u"dossier"_s);
    guide.closeSheet();
}

/// Sheets that a file panel comes before.
void lookAtFiles(Guide &guide, const QString &workbook)
{
    guide.pressAndChoose(u"Vérifier un classeur…"_s, workbook, u"choisir-un-fichier"_s);
    guide.untilSheetIsOpen();
    guide.picture(u"verifier-sans-nouveau"_s);
    guide.closeSheet();
    guide.pressAndChoose(u"Appliquer une liste STOP…"_s, workbook, u"choisir-une-liste"_s);
    guide.untilSheetIsOpen();
    guide.picture(u"liste-stop"_s);
    guide.closeSheet();
}

/// What only a real desktop asks.
void lookAtRealSends(Guide &guide, ContentView &window, Mailbox &mailbox)
{
    window.composeMessage({{u"06 39 98 00 12"_s}, {}, u"Bonjour,\n\nÀ bientôt."_s, {}});
    guide.untilSheetIsOpen();
    guide.picture(u"nouveau-message"_s);
    guide.closeSheet();
    (new PasswordView(mailbox, u"accueil@example.org"_s, &window))->present();
    guide.untilSheetIsOpen();
    guide.picture(u"mot-de-passe"_s);
    guide.closeSheet();
}

void lookAround(Guide &guide, ContentView &window)
{
    window.enterPanel();
    guide.picture(u"fiche"_s);
    window.enterPanel();
    guide.press(u"Filtrer"_s);
    guide.type(u"Rechercher un contact, un numéro ou un e-mail"_s, u"introuvable"_s);
    guide.picture(u"filtres"_s);
    guide.press(u"Tout afficher"_s);
    guide.press(u"Filtrer"_s);
}

/// The import made one.
void lookAtBackups(Guide &guide)
{
    guide.press(u"Restaurer une sauvegarde…"_s);
    guide.untilSheetIsOpen();
    guide.picture(u"sauvegardes"_s);
    guide.press(u"Voir ce qui changerait"_s);
    guide.untilSheetIsOpen();
    guide.picture(u"restaurer"_s);
    guide.closeSheet();
}

} // namespace

void visitImport(Guide &guide)
{
    guide.untilSheetIsOpen();
    guide.picture(u"import-termine"_s);
    guide.press(u"OK"_s);
    guide.untilSheetIsClosed();
    QElapsedTimer since;
    since.start();
    guide.until(u"la fin de la marque des nouveaux contacts"_s,
                [&since] { return since.elapsed() > 3500; });
    guide.picture(u"fenetre"_s);
    guide.say(u"Le classeur de démonstration est importé."_s);
}

void visitSheets(Guide &guide, ContentView &window, const Platform &platform)
{
    addContact(guide);
    editContact(guide, window);
    readHistory(guide, window);
    readDossier(guide, window);
    tryMessage(guide);
    lookAt(guide, u"Bilan des envois"_s, u"bilan"_s);
    lookAt(guide, u"Départements"_s, u"departements"_s);
    lookAt(guide, u"Format Excel attendu"_s, u"format-excel"_s);
    lookAt(guide, u"Gérer les SMS"_s, u"modeles-sms"_s);
    lookAt(guide, u"Gérer les e-mails"_s, u"modeles-emails"_s);
    lookAt(guide, u"Exporter…"_s, u"exporter"_s);
    lookAtFiles(guide, demonstrationWorkbook(platform));
    lookAtRealSends(guide, window, platform.mailbox);
    lookAtBackups(guide);
    lookAround(guide, window);
    lookAt(guide, u"À propos"_s, u"a-propos"_s);
    guide.say(u"Chaque feuille a été ouverte."_s);
}

} // namespace quenoria
