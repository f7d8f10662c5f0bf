#pragma once

#include "model/instant.h"
#include "platform/task_scope.h"

#include <QCoroTask>
#include <QObject>

namespace quenoria {

class Clock;

/// Counts the seconds down to an instant, by the application's clock.
class Countdown : public QObject {
    Q_OBJECT

public:
    explicit Countdown(Clock &clock) : m_clock(clock) {}

    /// Counts down to this from now on; to nothing when it is absent or past.
    void follow(std::optional<Instant> due);

    /// What is left in whole seconds, rounded up: 0 when nothing is waited for.
    int seconds() const { return m_seconds; }

Q_SIGNALS:
    void changed();

private:
    QCoro::Task<> count();
    std::chrono::milliseconds left() const;
    void look();

    Clock &m_clock;
    std::optional<Instant> m_due;
    int m_seconds = 0;
    TaskScope m_tasks;
};

} // namespace quenoria
