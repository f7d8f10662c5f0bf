#include "ui/window/file_alerts.h"

#include "store/prospect_store.h"
#include "ui/window/alert.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace quenoria {

FileAlerts::FileAlerts(ProspectStore &store, QWidget *window)
    : QObject(window), m_store(store), m_window(window)
{
    connect(&store, &ProspectStore::saveFailed, this, &FileAlerts::tellOfFailure);
    // The window that it is told over is not there yet.
    QMetaObject::invokeMethod(this, &FileAlerts::tellOfStart, Qt::QueuedConnection);
}

void FileAlerts::tellOfStart()
{
    if (!m_store.unsaved().empty())
        tellOfFailure();
    if (m_store.filesSetAside().isEmpty())
        return;
    showAlert(m_window, u"Données illisibles mises de côté"_s,
              u"Ces fichiers n’ont pas pu être lus. Ils sont conservés tels quels, et "
              "l’application a recommencé sans eux :\n%1\n\nPour les retrouver, quittez "
              "l’application et remettez-en une copie saine sous le nom d’origine."_s.arg(
                  m_store.filesSetAside().join(u'\n')));
}

void FileAlerts::tellOfFailure()
{
    m_isLossAccepted = false;
    if (m_alert)
        return;
    m_alert = offerToRetry(
        m_window, u"Enregistrement impossible"_s,
        m_store.unsaved().begin()->second +
            u"\n\nLe changement reste affiché, mais il serait perdu à la fermeture. Libérez de la "
            "place sur le disque ou rétablissez l’accès au dossier de données, puis réessayez."_s,
        [this] { retry(); });
}

void FileAlerts::retry()
{
    m_alert.clear(); // it is on its way out: what fails again has its own
    const auto unsaved = m_store.unsaved();
    for (const auto &[collection, failure] : unsaved)
        m_store.save(collection);
}

bool FileAlerts::mayLeave()
{
    const bool insists = m_isLossAccepted;
    retry();
    m_isLossAccepted = !m_store.unsaved().empty();
    if (m_isLossAccepted && !insists)
        return false; // the alert says what would be lost
    delete m_alert;
    return true;
}

} // namespace quenoria
