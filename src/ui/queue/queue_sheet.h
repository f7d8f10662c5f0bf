#pragma once

#include "platform/platform.h"
#include "platform/sharing_services.h"
#include "ui/channels/channel_descriptor.h"
#include "ui/kit/sheet.h"

#include <QPointer>

class QProgressBar;

namespace quenoria {

class BatchQueue;
class MessagePanel;
class PreflightRow;
class QueueOptions;
class SendDesk;
class StatusLabel;
class TextLabel;
enum class RunQuestion;
struct Platform;

/// Walks through the contacts selected on a channel, one at a time: shows a BatchQueue and passes
/// on what the user does. Closing it leaves the queue to end a send that is under way.
class QueueSheet : public Sheet {
    Q_OBJECT

public:
    QueueSheet(const ChannelDescriptor &channel, SendDesk &desk, Switches &switches,
               const Platform &platform, QWidget *parent = nullptr);
    ~QueueSheet() override;

    /// Tells beside the confirmation what came of a message that was composed here, when it is
    /// the current contact's.
    void tellOutcome(const Composition &message, const QString &words);

    /// What the sheet shows, which may outlive it; null once it is closed.
    BatchQueue *queue() const;

Q_SIGNALS:
    /// The user wants to choose by which way messages leave.
    void carriersRequested();

    /// The user wants to decide on the replies that say STOP.
    void stopRepliesRequested();

protected:
    void showEvent(QShowEvent *event) override;

    /// Escape during a run stops it; only then does it leave the sheet.
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *makeProgress();
    QWidget *makeFinishedPanel();
    QWidget *makeButtons();
    QWidget *makeHeldRow();
    QWidget *makeCarrierRow();
    QPushButton *makeCarriersButton();
    void connectQueue();
    void refresh();
    void refreshStatus();
    void refreshHeld();
    void refreshCost();
    void ask(RunQuestion question);
    void refreshButtons();
    bool keepsFocus(const QWidget *widget) const;

    const ChannelDescriptor &m_channel;
    ProspectStore &m_store;
    QPointer<BatchQueue> m_queue; ///< owned by the desk, which it must outlive to end a send
    bool m_opened = false;
    QPointer<QWidget> m_question; ///< before a run

    QWidget *m_progress;
    TextLabel *m_progressText;
    QProgressBar *m_progressBar;
    TextLabel *m_cost;
    int m_costedCount = -1; ///< length of the queue that the cost is of
    PreflightRow *m_preflight;
    QueueOptions *m_options;
    MessagePanel *m_message;
    QWidget *m_finished;
    QPushButton *m_close; ///< of the finished panel
    StatusLabel *m_status;
    StatusLabel *m_passedOver;
    QWidget *m_heldRow;
    StatusLabel *m_held;
    StatusLabel *m_error;
    QWidget *m_carrierRow;
    StatusLabel *m_carrierWords;
    QWidget *m_buttons;
    QPushButton *m_skip;
    QPushButton *m_stopButton;
    QPushButton *m_primary;
    StatusLabel *m_outcome; ///< of the prepared message
    QPushButton *m_confirm;
};

} // namespace quenoria
