#pragma once

#include "store/prospect_store.h"

#include <QPointer>
#include <QWidget>

#include <set>

namespace quenoria {

/// Tells the user over the window what became of files that could not be read at the start, and
/// of changes that could not be written since. One alert at a time, however many changes fail.
class FileAlerts : public QObject {
    Q_OBJECT

public:
    FileAlerts(ProspectStore &store, QWidget *window);

private:
    void tellOfFilesSetAside();
    void tellOfFailure(Collection collection, const QString &failure);
    void retry();

    ProspectStore &m_store;
    QWidget *m_window;
    std::set<Collection> m_unsaved;
    QPointer<QWidget> m_alert;
};

} // namespace quenoria
