#pragma once

#include "messaging/send_desk.h"

#include <QPointer>
#include <QTimeZone>

class QWidget;

namespace quenoria {

/// Asks over the window what became of each message that may have left: one question at a time,
/// those of an earlier session first.
class DoubtAlerts : public QObject {
    Q_OBJECT

public:
    DoubtAlerts(SendDesk &desk, const QTimeZone &zone, QWidget *window);

private:
    void ask(const SendIntent &doubt);
    void askNext();
    void settle(DoubtAnswer answer);

    SendDesk &m_desk;
    QTimeZone m_zone;
    QWidget *m_window;
    std::vector<SendIntent> m_waiting; ///< the first one is being asked
    QPointer<QWidget> m_alert;
};

} // namespace quenoria
