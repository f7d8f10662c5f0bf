#pragma once

#include "store/prospect_store.h"
#include "ui/table/cell_roles.h"

#include <QPointer>

namespace quenoria {

class Switches;

/// What the buttons of a row do. Whether a message is prepared or sent is decided by the switches
/// at the moment of the click.
class RowActions : public QObject {
    Q_OBJECT

public:
    RowActions(ProspectStore &store, const Switches &switches, QObject *parent);
    ~RowActions() override;

    void perform(RowAction action, const QString &contactId);

    /// Whether an automatic send was started whose outcome is not yet known and recorded.
    bool isSending() const { return m_sending > 0; }

    /// Abandons the sends that still wait for their turn; idle() tells when the others are done.
    void stopWaiting();

Q_SIGNALS:
    void failed(const QString &title, const QString &message);
    void historyRequested(const QString &contactId);
    void sendStarted(const QString &contactLabel);
    void sent(const QString &contactLabel);

    /// No automatic send is under way any more.
    void idle();

private:
    using Record = void (ProspectStore::*)(const Prospect &);

    void sendSMS(const Prospect &contact);
    void sendEmail(const Prospect &contact);
    void start(QCoro::Task<Refusal> send, const Prospect &contact, Record record);
    void finish(const Refusal &refusal, const QString &contactLabel);
    static QCoro::Task<> follow(QCoro::Task<Refusal> send, ProspectStore &store, Prospect contact,
                                Record record, QPointer<RowActions> self);

    ProspectStore &m_store;
    const Switches &m_switches;
    std::stop_source m_stop;
    int m_sending = 0;
};

} // namespace quenoria
