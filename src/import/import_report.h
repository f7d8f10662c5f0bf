#pragma once

#include <QString>
#include <QUuid>

namespace quenoria {

/// What the main window shows after an import, or when a row could not be sent.
struct ImportReport {
    QUuid id = QUuid::createUuid();
    QString title;
    QString message; ///< lines joined by line feeds
};

} // namespace quenoria
