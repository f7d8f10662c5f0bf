#include "ui/sheets/new_message_view.h"

#include "ui/kit/labels.h"
#include "ui/kit/length_line.h"
#include "ui/kit/status_label.h"
#include "ui/kit/text_boxes.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QPointer>
#include <QPushButton>
#include <QTime>

using namespace Qt::StringLiterals;

namespace quenoria {

NewMessageView::NewMessageView(Carriers &carriers, const Composition &message, QWidget *parent)
    : Sheet(u"Nouveau message"_s, {560, 480}, parent), m_carriers(carriers), m_message(message),
      m_body(new TextBox(u"Texte du message"_s)),
      m_length(new LengthLine(LengthLine::Use::editing)), m_outcome(new StatusLabel),
      m_send(new QPushButton(u"Envoyer"_s))
{
    addHeader(windowTitle(), u"À : %1"_s.arg(message.recipients.value(0)));
    addParts();
    addButtons();
    m_body->setFocus();
}

void NewMessageView::addParts()
{
    m_body->setText(m_message.body);
    m_length->setText(m_message.body);
    column()->addWidget(m_body, 1);
    column()->addWidget(m_length);
    if (!m_message.file.isEmpty()) {
        auto *file = new StatusLabel;
        file->setStatus(u"Fichier joint : "_s + QFileInfo(m_message.file.toLocalFile()).fileName(),
                        Tint::text, u"paperclip"_s);
        column()->addWidget(file);
    }
    connect(m_body, &TextBox::textChanged, this, [this] { m_length->setText(m_body->text()); });
    connect(m_length, &LengthLine::replacementChosen, m_body, &TextBox::replaceText);
}

void NewMessageView::addButtons()
{
    makeProminent(m_send);
    m_send->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addWidget(m_outcome, 1);
    row->addStretch();
    row->addWidget(m_send, 0, Qt::AlignBottom);
    footer()->addLayout(row);
    connect(m_send, &QPushButton::clicked, this, &NewMessageView::send);
}

void NewMessageView::send()
{
    m_send->setEnabled(false);
    m_body->setReadOnly(true);
    m_message.body = m_body->text();
    m_outcome->setStatus(u"Envoi…"_s, Tint::secondary);
    // A window that is left meanwhile keeps the queue from learning the outcome, so the carriers'
    // object follows the message in its place.
    auto *watcher = new QFutureWatcher<TransportResult>(&m_carriers);
    connect(watcher, &QFutureWatcherBase::finished, &m_carriers,
            [&carriers = m_carriers, watcher, message = m_message, self = QPointer(this)] {
                watcher->deleteLater();
                const QString words = outcomeWords(carriers, watcher->result());
                Q_EMIT carriers.composeAnswered(message, words);
                if (self)
                    self->showOutcome(watcher->result(), words);
            });
    watcher->setFuture(m_carriers.send(m_message));
}

QString NewMessageView::outcomeWords(const Carriers &carriers, const TransportResult &result)
{
    if (result)
        return result->message.value_or(u"Le message n’est pas parti."_s);
    QString words =
        u"%1 à %2"_s.arg(carriers.handover(), QTime::currentTime().toString(u"HH:mm"_s));
    words[0] = words[0].toUpper();
    return words;
}

void NewMessageView::showOutcome(const TransportResult &result, const QString &words)
{
    m_outcome->setStatus(words, result ? Tint::negative : Tint::positive,
                         result ? u"exclamationmark.triangle.fill"_s : u"checkmark.circle.fill"_s);
    const bool mayTryAgain = result && result->fate == Fate::kept;
    m_send->setEnabled(mayTryAgain);
    m_body->setReadOnly(!mayTryAgain);
}

} // namespace quenoria
