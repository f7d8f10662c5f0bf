#include "ui/window/file_alerts.h"

#include "store/prospect_store.h"
#include "ui/kit/alert.h"
#include "ui/kit/switches.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace quenoria {

FileAlerts::FileAlerts(ProspectStore &store, Switches &switches, QWidget *window)
    : QObject(window), m_store(store), m_switches(switches), m_window(window)
{
    connect(&store, &ProspectStore::saveFailed, this, &FileAlerts::tellOfFailure);
    connect(&store, &ProspectStore::saved, this, &FileAlerts::withdraw);
    connect(&switches, &Switches::changed, this, &FileAlerts::lookAtSwitches);
    // The window that it is told over is not there yet.
    if (store.isReady())
        QMetaObject::invokeMethod(this, &FileAlerts::tellOfStart, Qt::QueuedConnection);
    else
        connect(&store, &ProspectStore::published, this, &FileAlerts::tellOfStart,
                Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
}

void FileAlerts::tellOfStart()
{
    if (!failures().isEmpty())
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
        failures().constFirst() +
            u"\n\nLe changement reste affiché, mais il serait perdu à la fermeture. Libérez de la "
            "place sur le disque ou rétablissez l’accès au dossier de données, puis réessayez."_s,
        [this] { retry(); });
}

void FileAlerts::lookAtSwitches()
{
    if (!m_switches.unsaved())
        withdraw();
    else if (m_window->isVisible()) // its own place on the screen is stored as it closes
        tellOfFailure();
}

void FileAlerts::withdraw()
{
    if (m_alert && failures().isEmpty())
        m_alert->close();
}

QStringList FileAlerts::failures() const
{
    QStringList texts;
    for (const auto &[collection, failure] : m_store.unsaved())
        texts << failure;
    if (const auto reason = m_switches.unsaved())
        texts << u"Impossible d’enregistrer les réglages : "_s + *reason;
    return texts;
}

void FileAlerts::retry()
{
    m_alert.clear(); // it is on its way out: what fails again has its own
    saveAgain();
}

void FileAlerts::saveAgain()
{
    const auto unsaved = m_store.unsaved();
    for (const auto &[collection, failure] : unsaved)
        m_store.save(collection);
    if (m_switches.unsaved())
        m_switches.save();
}

bool FileAlerts::mayLeave()
{
    const bool insists = m_isLossAccepted;
    saveAgain();
    m_isLossAccepted = !failures().isEmpty();
    if (m_isLossAccepted && !insists)
        return false; // the alert says what would be lost
    delete m_alert;
    return true;
}

} // namespace quenoria
