#include "app/data_folder.h"

#include "backup/backup_files.h"
#include "backup/pending_restore.h"
#include "platform/posix/moved_file.h"
#include "platform/posix/private_folder.h"
#include "platform/posix/whole_file_writer.h"
#include "platform/qt/single_instance.h"
#include "store/collection.h"
#include "store/do_not_contact.h"
#include "store/intent_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int refused = 1;

/// What the program writes there, under whatever name.
const QStringList ownFiles{u"*.json"_s, u".quenoria*"_s, u"preferences.ini"_s,
                           u".envoi-en-cours*"_s};

/// The data files that cannot be read, each with the system's reason.
QStringList unreadableFiles(const QString &folder)
{
    QStringList names{IntentFile::fileName(), QString::fromUtf16(DoNotContact::fileName)};
    for (const CollectionDescriptor &each : collections())
        names << QString::fromUtf16(each.fileName);
    QStringList found;
    for (const QString &name : names) {
        const QString path = QDir(folder).filePath(name);
        if (const auto reason = unreadable(path))
            found << u"%1 : %2"_s.arg(path, *reason);
    }
    return found;
}

/// A question before the window is there; true when the user takes the first answer. One that the
/// application's end takes away is not answered.
bool ask(const QString &title, const QString &message, const QString &yes)
{
    QMessageBox box(QMessageBox::Warning, title, title);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(message);
    box.addButton(yes, QMessageBox::AcceptRole);
    QPushButton *leave = box.addButton(u"Quitter"_s, QMessageBox::RejectRole);
    box.setEscapeButton(leave);
    box.setDefaultButton(leave);
    box.exec();
    return box.clickedButton() && box.clickedButton() != leave;
}

std::optional<Answer> prepareFolder(const Platform &platform)
{
    const QString folder = platform.folders.data();
    if (const auto reason = platform.files.makeFolder(folder))
        return Answer{
            u"Le dossier de données « %1 » ne peut pas être créé : %2\n"_s.arg(folder, *reason),
            refused};
    if (belongsToAnother(folder))
        return Answer{
            u"Le dossier de données « %1 » appartient à un autre utilisateur. Indiquez-en "
            "un autre avec --data-dir.\n"_s.arg(folder),
            refused};
    if (closeToOthers(folder, ownFiles))
        platform.log.write(
            u"Le dossier de données « %1 » était ouvert à d’autres utilisateurs : il "
            "est désormais réservé au vôtre."_s.arg(folder));
    return {};
}

bool goesOnUnguarded(const QString &folder)
{
    return ask(u"Dossier sans verrou"_s,
               u"Le dossier de données « %1 » est sur un système de fichiers sans verrous, comme "
               "certains partages de réseau. Rien n’empêche de l’ouvrir deux fois : des "
               "changements seraient alors perdus. Continuez seulement si Quenoria n’est ouvert "
               "nulle part ailleurs avec ce dossier."_s.arg(folder),
               u"Continuer"_s);
}

std::optional<Answer> own(const QString &folder, SingleInstance &instance, const QString &workbook)
{
    const SingleInstance::Ownership ownership = instance.own(workbook);
    if (const auto *lock = std::get_if<SingleInstance::Refused>(&ownership))
        return Answer{u"Le dossier de données « %1 » ne peut pas être verrouillé : %2\n"_s.arg(
                          folder, lock->reason),
                      refused};
    if (const auto *other = std::get_if<SingleInstance::OwnedByAnother>(&ownership))
        return other->cameToFront
                   ? Answer{u"Quenoria est déjà ouvert avec ce dossier de données : sa fenêtre "
                            "passe au premier plan.\n"_s}
                   : Answer{u"Quenoria est déjà ouvert avec ce dossier de données, mais ne répond "
                            "pas.\n"_s,
                            refused};
    if (std::holds_alternative<SingleInstance::Unguarded>(ownership)) {
        if (!goesOnUnguarded(folder))
            return Answer{{}, refused};
        instance.listen();
    }
    return {};
}

/// Whatever cannot be read is left where it is: it may be whole.
bool waitForReadableFiles(const Platform &platform)
{
    for (;;) {
        const QStringList files = unreadableFiles(platform.folders.data());
        if (files.isEmpty())
            return true;
        for (const QString &file : files)
            platform.log.write(u"Fichier inaccessible : "_s + file);
        if (!ask(u"Données inaccessibles"_s,
                 u"Ces fichiers ne peuvent pas être lus. Ils restent tels quels, et l’application "
                 "ne peut pas commencer sans eux :\n%1"_s.arg(files.join(u'\n')),
                 u"Réessayer"_s))
            return false;
    }
}

} // namespace

std::optional<Answer> enterDataFolder(const Platform &platform, SingleInstance &instance,
                                      const QString &workbook)
{
    const QString folder = platform.folders.data();
    if (auto answer = prepareFolder(platform))
        return answer;
    if (auto answer = own(folder, instance, workbook))
        return answer;
    platform.log.write(u"Quenoria %1, dossier de données « %2 »"_s.arg(
        QCoreApplication::applicationVersion(), folder));
    WholeFileWriter::removeLeftovers(folder);
    WholeFileWriter::removeLeftovers(backupFolder(folder));
    return {};
}

bool openData(const std::function<void()> &read, const Platform &platform)
{
    for (;;) {
        try {
            read();
            return true;
        } catch (const std::bad_alloc &) {
            platform.log.write(u"La mémoire ne suffit pas pour ouvrir les données."_s);
        }
        if (!ask(u"Mémoire insuffisante"_s,
                 u"La mémoire disponible ne suffit pas pour ouvrir les données, qui restent telles "
                 "quelles. Fermez d’autres programmes, puis réessayez."_s,
                 u"Réessayer"_s))
            return false;
    }
}

DataFiles prepareDataFiles(const Platform &platform)
{
    RestoreEnd restore = endRestore(platform, &moveFile);
    while (restore.failure) {
        platform.log.write(u"Restauration inachevée : "_s + *restore.failure);
        if (!ask(u"Restauration inachevée"_s,
                 u"La sauvegarde que vous restaurez n’a pas encore pu prendre la place de vos "
                 "données : %1\n\nRien n’est perdu. Rétablissez l’accès au dossier « %2 », puis "
                 "réessayez ; sinon, le prochain démarrage l’achèvera."_s.arg(
                     *restore.failure, platform.folders.data()),
                 u"Réessayer"_s))
            return DataFiles::outOfReach;
        restore = endRestore(platform, &moveFile);
    }
    if (!waitForReadableFiles(platform))
        return DataFiles::outOfReach;
    return restore.isCompleted ? DataFiles::restored : DataFiles::asTheyWere;
}

} // namespace quenoria
