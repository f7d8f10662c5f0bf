#pragma once

#include "platform/transport_result.h"

#include <QFrame>
#include <QFuture>

#include <functional>

class QBoxLayout;

namespace quenoria {

class StatusLabel;

/// One kind of message in the sheet of the ways to send, on a card with a heading.
class SendingSection : public QFrame {
    Q_OBJECT

protected:
    explicit SendingSection(const QString &heading, QWidget *parent = nullptr);

    /// A message to the user, by the way that is chosen.
    struct Trial {
        QString underWay; ///< said until it is known what became of it
        QString refused;  ///< said where the carrier gives no reason
        std::function<QFuture<TransportResult>()> send;
    };

    QBoxLayout *column() const { return m_column; }
    StatusLabel *outcome() const { return m_outcome; } ///< for the section to place

    /// One at a time. The button stays enabled: it would give its focus, and the view, to another.
    void tryOut(const Trial &trial);
    bool isTrying() const { return m_isTrying; }

    /// A trial has begun or ended.
    virtual void refresh() = 0;

    /// The carrier took the trial's message.
    virtual void tellAccepted() = 0;

private:
    void conclude(const Trial &trial, const TransportResult &result);
    void revealOutcome();

    QBoxLayout *m_column;
    StatusLabel *m_outcome;
    bool m_isTrying = false;
};

} // namespace quenoria
