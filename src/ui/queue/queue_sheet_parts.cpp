// What the sheet of a queue consists of.

#include "ui/kit/empty_state.h"
#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"
#include "ui/queue/queue_sheet.h"
#include "ui/queue/slim_progress_bar.h"

#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int progressGap = 8;
constexpr int buttonGap = 12;

} // namespace

QWidget *QueueSheet::makeProgress()
{
    auto *progress = new QWidget;
    m_progressText = makeLabel({}, TextStyle::body, Tint::secondary);
    m_progressBar = new SlimProgressBar;
    auto *column = new QVBoxLayout(progress);
    column->setContentsMargins({});
    column->setSpacing(progressGap);
    column->addWidget(m_progressBar);
    m_cost = makeLabel({}, TextStyle::body, Tint::secondary);
    m_cost->setAlignment(Qt::AlignRight);
    m_cost->setVisible(m_channel.countsCharacters);
    auto *texts = new QHBoxLayout;
    texts->addWidget(m_progressText, 1);
    texts->addWidget(m_cost, 1);
    column->addLayout(texts);
    return progress;
}

QWidget *QueueSheet::makeFinishedPanel()
{
    auto *panel = new QWidget;
    m_close = makeCloseButton();
    makeProminent(m_close);
    auto *column = new QVBoxLayout(panel);
    column->addStretch();
    column->addWidget(new EmptyState(u"checkmark.circle.fill"_s, u"Sélection terminée"_s,
                                     m_channel.queue.finishedNote));
    column->addWidget(m_close, 0, Qt::AlignHCenter);
    column->addWidget(makeCarriersButton(), 0, Qt::AlignHCenter);
    column->addStretch();
    return panel;
}

QWidget *QueueSheet::makeButtons()
{
    auto *buttons = new QWidget;
    m_skip = new QPushButton(u"Ignorer"_s);
    m_stopButton = new QPushButton(u"Arrêter"_s);
    m_primary = new QPushButton(m_channel.queue.prepare);
    m_confirm = new QPushButton(m_channel.queue.confirm);
    makeProminent(m_primary);
    // Enter prepares, wherever the focus is: nobody confirms or skips with one Enter too many.
    m_skip->setAutoDefault(false);
    m_stopButton->setAutoDefault(false);
    m_stopButton->setToolTip(tipText(u"N’envoyer aucun autre message (Échap)"_s));
    m_confirm->setAutoDefault(false);
    auto *row = new QHBoxLayout(buttons);
    row->setContentsMargins({});
    row->setSpacing(buttonGap);
    row->addWidget(m_skip);
    row->addStretch();
    row->addWidget(m_stopButton);
    row->addWidget(m_primary);
    m_outcome = new StatusLabel;
    row->addWidget(m_outcome);
    row->addWidget(m_confirm);
    auto *skip = new QShortcut(Qt::CTRL | Qt::Key_I, this);
    connect(skip, &QShortcut::activated, m_skip, &QPushButton::click);
    m_skip->setToolTip(tipText(skip->key().toString(QKeySequence::NativeText)));
    return buttons;
}

/// Who is left out, and the way to decide on it.
QWidget *QueueSheet::makeHeldRow()
{
    auto *held = new QWidget;
    m_held = new StatusLabel;
    auto *decide = new QPushButton(u"Réponses STOP…"_s);
    decide->setAutoDefault(false);
    connect(decide, &QPushButton::clicked, this, &QueueSheet::stopRepliesRequested);
    auto *row = new QHBoxLayout(held);
    row->setContentsMargins({});
    row->setSpacing(buttonGap);
    row->addWidget(m_held, 1);
    row->addWidget(decide, 0, Qt::AlignTop);
    held->hide(); // the sheet takes its room before it knows of anybody
    return held;
}

/// What the carrier said of its own, and the way to another.
QWidget *QueueSheet::makeCarrierRow()
{
    auto *carrier = new QWidget;
    m_carrierWords = new StatusLabel;
    auto *row = new QHBoxLayout(carrier);
    row->setContentsMargins({});
    row->setSpacing(buttonGap);
    row->addWidget(m_carrierWords, 1);
    row->addStretch();
    row->addWidget(makeCarriersButton(), 0, Qt::AlignTop);
    carrier->hide();
    return carrier;
}

QPushButton *QueueSheet::makeCarriersButton()
{
    auto *button = new QPushButton(u"Choisir un moyen d’envoi…"_s);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, &QueueSheet::carriersRequested);
    return button;
}

} // namespace quenoria
