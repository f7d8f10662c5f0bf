#include "ui/window/backup_commands.h"

#include "model/local_time.h"
#include "ui/kit/alert.h"
#include "ui/kit/plain_text.h"

#include <QFileInfo>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace quenoria {

BackupCommands::BackupCommands(ProspectStore &store, const Platform &platform, QWidget *window)
    : QObject(window), m_platform(platform), m_window(window), m_backups(store, platform)
{
    connect(&m_backups, &Backups::failed, this, [this](const QString &reason) {
        showAlert(m_window, u"Sauvegarde impossible"_s,
                  u"Vos données n’ont pas pu être copiées dans le dossier « Sauvegardes » : %1\n\n"
                  "Elles restent telles quelles. Libérez de la place sur le disque ou rétablissez "
                  "l’accès au dossier, puis choisissez « Sauvegarder maintenant… » (menu "
                  "Fichier)."_s.arg(reason));
    });
}

void BackupCommands::save()
{
    const QDate today = localDateTime(m_platform.clock.now(), m_platform.clock.zone()).date();
    const QString name = u"Quenoria %1.zip"_s.arg(today.toString(Qt::ISODate));
    const auto path =
        m_platform.panels.chooseDestination({u"Sauvegarder maintenant"_s, name, u"zip"_s});
    if (!path)
        return;
    m_backups.saveTo(*path).then(
        this, [this, path = *path](const Refusal &failure) { concludeSave(path, failure); });
}

void BackupCommands::concludeSave(const QString &path, const Refusal &failure)
{
    if (failure)
        showAlert(m_window, u"Sauvegarde impossible"_s,
                  u"Le fichier n’a pas pu être enregistré : %1"_s.arg(*failure));
    else
        Q_EMIT done(
            u"Sauvegarde enregistrée dans « %1 »."_s.arg(oneLine(QFileInfo(path).fileName())));
}

} // namespace quenoria
