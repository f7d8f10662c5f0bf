#pragma once

#include "messaging/send_desk.h"
#include "platform/task_scope.h"
#include "ui/table/cell_roles.h"

namespace quenoria {

class Switches;

/// What the buttons of a row do. Whether a message is prepared or sent is decided by the switches
/// at the moment of the click.
class RowActions : public QObject {
    Q_OBJECT

public:
    RowActions(SendDesk &desk, const Switches &switches, QObject *parent);

    void perform(RowAction action, const QString &contactId);

Q_SIGNALS:
    /// With the carrier's own words when it was one that refused.
    void failed(const QString &title, const QString &message,
                const std::optional<QString> &carrierWords);
    void historyRequested(const QString &contactId);
    void sendStarted(const QString &contactLabel);
    void sent(const QString &contactLabel);
    void notSent(); ///< an automatic send that was started has ended otherwise

private:
    void send(Channel channel, const Prospect &contact);
    void prepare(Channel channel, const Prospect &contact);
    QCoro::Task<> sendAutomatically(Channel channel, Prospect contact);
    void tell(const SendOutcome &outcome, const QString &contactLabel);

    SendDesk &m_desk;
    const Switches &m_switches;
    TaskScope m_tasks;
};

} // namespace quenoria
