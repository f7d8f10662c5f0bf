#include "ui/queue/queue_sheet.h"

#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"
#include "ui/queue/batch_queue.h"
#include "ui/queue/message_panel.h"
#include "ui/queue/preflight_row.h"
#include "ui/queue/queue_options.h"
#include "ui/queue/run_questions.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

QueueSheet::QueueSheet(const ChannelDescriptor &channel, SendDesk &desk, Switches &switches,
                       const Platform &platform, QWidget *parent)
    : Sheet(channel.queue.title, channel.queue.size, parent), m_channel(channel),
      m_store(desk.store()), m_queue(new BatchQueue(channel, desk, switches, platform)),
      m_progress(makeProgress()), m_preflight(new PreflightRow(*m_queue)),
      m_options(new QueueOptions(*m_queue, switches)),
      m_message(new MessagePanel(channel.countsCharacters ? MessagePanel::Length::told
                                                          : MessagePanel::Length::silent)),
      m_finished(makeFinishedPanel()), m_status(new StatusLabel), m_passedOver(new StatusLabel),
      m_heldRow(makeHeldRow()), m_error(new StatusLabel), m_carrierRow(makeCarrierRow()),
      m_buttons(makeButtons())
{
    setWindowRole(channel.queue.role);
    addHeader(channel.queue.title, channel.queue.note);
    column()->addWidget(m_progress);
    column()->addWidget(m_preflight);
    column()->addWidget(m_options);
    column()->addWidget(m_message, 1);
    column()->addWidget(m_finished, 1);
    footer()->addWidget(m_status);
    footer()->addWidget(m_passedOver);
    footer()->addWidget(m_heldRow);
    footer()->addWidget(m_error);
    footer()->addWidget(m_carrierRow);
    footer()->addWidget(m_buttons);
    connectQueue();
}

QueueSheet::~QueueSheet()
{
    if (m_queue) {
        m_queue->disconnect(this);
        m_queue->close();
    }
}

BatchQueue *QueueSheet::queue() const { return m_queue; }

void QueueSheet::connectQueue()
{
    connect(m_queue, &BatchQueue::changed, this, &QueueSheet::refresh);
    connect(m_queue, &BatchQueue::closed, this, [this] {
        if (isVisible())
            accept();
    });
    // Later, since a queue may ask while its sheet is being shown.
    connect(m_queue, &BatchQueue::asked, this, &QueueSheet::ask, Qt::QueuedConnection);
    connect(&m_queue->progress(), &HandOverWatch::changed, this, &QueueSheet::refreshStatus);
    connect(&m_queue->countdown(), &Countdown::changed, this, &QueueSheet::refreshStatus);
    connect(this, &QDialog::finished, m_queue, &BatchQueue::close);
    connect(m_skip, &QPushButton::clicked, m_queue, &BatchQueue::skip);
    connect(m_stopButton, &QPushButton::clicked, m_queue, &BatchQueue::stop);
    connect(m_primary, &QPushButton::clicked, m_queue, &BatchQueue::pressPrimary);
    connect(m_confirm, &QPushButton::clicked, m_queue, &BatchQueue::confirm);
}

void QueueSheet::showEvent(QShowEvent *event)
{
    if (!m_opened) {
        m_opened = true;
        m_queue->open();
    }
    Sheet::showEvent(event);
}

void QueueSheet::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel) && m_queue && m_queue->isRunning())
        m_queue->stop();
    else
        Sheet::keyPressEvent(event);
}

void QueueSheet::tellOutcome(const Composition &message, const QString &words)
{
    const Prospect *contact = m_queue ? m_queue->current() : nullptr;
    if (contact && m_queue->canConfirm() &&
        message.recipients.contains(m_channel.queue.recipient(*contact)))
        m_outcome->setStatus(words, Tint::secondary);
}

void QueueSheet::refresh()
{
    const Prospect *contact = m_queue->current();
    const QueueState &state = m_queue->state();
    m_progress->setVisible(contact);
    m_progressText->setText(m_queue->progressText());
    m_progressBar->setAccessibleName(m_queue->progressText());
    m_progressBar->setRange(0, std::max(state.initialQueueCount, 1));
    m_progressBar->setValue(state.completedCount);
    refreshCost();
    m_preflight->setEnabled(contact);
    m_preflight->refresh();
    m_options->refresh();
    m_message->setVisible(contact);
    m_finished->setVisible(!contact);
    if (contact)
        m_message->setMessage(contact->label, m_queue->message(), m_store.attachmentName(*contact));
    refreshStatus();
    refreshHeld();
    refreshButtons();
}

void QueueSheet::refreshStatus()
{
    if (m_queue->isRunning())
        m_status->setStatus(m_queue->runText(), Tint::accent, u"gearshape.2.fill"_s);
    else if (m_queue->canConfirm())
        m_status->setStatus(m_channel.queue.preparedNote, Tint::positive,
                            u"checkmark.circle.fill"_s);
    else
        m_status->setStatus({}, Tint::text);
    const QString &servedAs = m_queue->state().servedAs;
    m_passedOver->setStatus(servedAs.isEmpty()
                                ? QString()
                                : u"Déjà servi dans cette file sous un autre nom : "_s + servedAs,
                            Tint::secondary, u"info.circle"_s);
    m_error->setStatus(m_queue->state().error.value_or(QString()), Tint::negative,
                       m_channel.queue.errorSymbol);
    const auto &carrierWords = m_queue->state().carrierWords;
    m_carrierRow->setVisible(carrierWords.has_value());
    m_carrierWords->setStatus(carrierWords.value_or(QString()), Tint::secondary);
}

void QueueSheet::refreshHeld()
{
    const QString text = m_queue->heldText();
    m_heldRow->setVisible(!text.isEmpty());
    m_held->setStatus(text, Tint::negative, u"hand.raised.circle.fill"_s);
}

/// What the queue costs as a whole, also once a part of it has left.
void QueueSheet::refreshCost()
{
    const int count = m_queue->state().initialQueueCount;
    if (std::exchange(m_costedCount, count) != count)
        m_cost->setText(m_queue->costText());
}

void QueueSheet::ask(RunQuestion question)
{
    const bool isAsking = m_question && m_question->isVisible(); // it lives a moment longer
    if (m_queue && !isAsking)
        m_question = askBeforeRun(question, *m_queue, this);
}

void QueueSheet::refreshButtons()
{
    const bool running = m_queue->isRunning();
    const bool finished = !m_queue->current();
    QPushButton *next = finished ? m_close : m_primary;
    const bool moves = !keepsFocus(focusWidget());
    // A button that is disabled while it has the focus gives it to any neighbour: take it first.
    if (moves)
        setFocus();
    m_buttons->setVisible(!finished);
    m_primary->setText(m_queue->primaryText());
    m_primary->setDisabled(running);
    m_skip->setDisabled(running);
    m_confirm->setEnabled(m_queue->canConfirm());
    if (!m_queue->canConfirm())
        m_outcome->setStatus({}, Tint::text);
    m_stopButton->setVisible(running);
    m_stopButton->setEnabled(m_queue->isAutomatic());
    next->setDefault(true);
    if (moves && !running)
        next->setFocus();
}

/// The focus follows the step to take next, unless the user has put it where it still counts.
bool QueueSheet::keepsFocus(const QWidget *widget) const
{
    if (!widget || widget == this || widget == m_primary)
        return false;
    if (widget == m_confirm)
        return m_queue->canConfirm();
    if (widget == m_stopButton)
        return m_queue->isRunning() && m_queue->isAutomatic();
    return widget != m_skip || !m_queue->isRunning();
}

} // namespace quenoria
