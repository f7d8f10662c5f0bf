#include "ui/window/backup_commands.h"

#include "backup/pending_restore.h"
#include "messaging/send_desk.h"
#include "model/local_time.h"
#include "ui/kit/alert.h"
#include "ui/kit/plain_text.h"
#include "ui/window/restore_list_view.h"
#include "ui/window/restore_view.h"

#include <QFileInfo>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString sendUnderWay =
    u"Un envoi est en cours : attendez qu’il soit enregistré, puis recommencez."_s;
const QString doubtOpen =
    u"Un envoi a été interrompu : dites d’abord si son message est parti, puis recommencez."_s;
const QString unsaved =
    u"Des changements ne sont pas encore enregistrés. Libérez de la place sur le "
    "disque ou rétablissez l’accès au dossier de données, puis recommencez."_s;

} // namespace

BackupCommands::BackupCommands(SendDesk &desk, const Platform &platform, QWidget *window)
    : QObject(window), m_desk(desk), m_platform(platform), m_window(window),
      m_backups(desk.store(), platform)
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

/// Why nothing can be restored now.
Refusal BackupCommands::hindrance() const
{
    if (m_desk.isBusy())
        return sendUnderWay;
    if (!m_desk.doubts().empty())
        return doubtOpen;
    return m_desk.store().unsaved().empty() ? Refusal() : unsaved;
}

void BackupCommands::restore()
{
    if (const Refusal refusal = hindrance()) {
        showAlert(m_window, u"Restauration impossible"_s, *refusal);
        return;
    }
    auto *list = new RestoreListView(m_platform, m_window);
    connect(list, &RestoreListView::chosen, this, &BackupCommands::preview);
    list->present();
}

void BackupCommands::preview(const QString &path)
{
    auto *view = new RestoreView(m_desk, m_platform, path, m_window);
    connect(view, &RestoreView::ready, this, [this, view] { decide(*view); });
    view->present();
}

void BackupCommands::decide(RestoreView &view)
{
    m_backups.waitForDone(); // it writes where the files are to move
    Refusal refusal = hindrance();
    if (!refusal)
        refusal = decideRestore(m_platform);
    if (!refusal) {
        Q_EMIT restoreDecided();
        return;
    }
    giveUpRestore(m_platform);
    view.tellFailure(*refusal);
}

} // namespace quenoria
