#include "ui/window/file_alerts.h"

#include "ui/window/alert.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quenoria {

FileAlerts::FileAlerts(ProspectStore &store, QWidget *window)
    : QObject(window), m_store(store), m_window(window)
{
    connect(&store, &ProspectStore::saveFailed, this, &FileAlerts::tellOfFailure);
    // The window that it is told over is not there yet.
    if (!store.filesSetAside().isEmpty())
        QMetaObject::invokeMethod(this, &FileAlerts::tellOfFilesSetAside, Qt::QueuedConnection);
}

void FileAlerts::tellOfFilesSetAside()
{
    showAlert(m_window, u"Données illisibles mises de côté"_s,
              u"Ces fichiers n’ont pas pu être lus. Ils sont conservés tels quels, et "
              "l’application a recommencé sans eux :\n%1\n\nPour les retrouver, quittez "
              "l’application et remettez-en une copie saine sous le nom d’origine."_s.arg(
                  m_store.filesSetAside().join(u'\n')));
}

void FileAlerts::tellOfFailure(Collection collection, const QString &failure)
{
    m_unsaved.insert(collection);
    if (m_alert)
        return;
    m_alert = offerToRetry(
        m_window, u"Enregistrement impossible"_s,
        failure + u"\n\nLe changement reste affiché, mais il serait perdu à la fermeture. Libérez "
                  "de la place sur le disque ou rétablissez l’accès au dossier de données, puis "
                  "réessayez."_s,
        [this] { retry(); });
}

void FileAlerts::retry()
{
    m_alert.clear(); // it is on its way out: what fails again has its own
    for (const Collection collection : std::exchange(m_unsaved, {}))
        m_store.save(collection);
}

} // namespace quenoria
