#pragma once

#include "platform/platform.h"
#include "platform/task_scope.h"

#include <QCoroTask>

namespace quenoria {

/// Says how far a long hand-over has come: nothing is worth saying of the others.
class HandOverWatch : public QObject {
    Q_OBJECT

public:
    explicit HandOverWatch(const Platform &platform) : m_platform(platform) {}

    /// A carrier gets a message now.
    void begin();
    void end();

    /// "42 %" once the carrier has been reading for more than two seconds, else empty.
    const QString &text() const { return m_text; }

Q_SIGNALS:
    void changed();

private:
    QCoro::Task<> follow();
    void look();
    void say(const QString &text);

    Platform m_platform;
    std::optional<Instant> m_since; ///< the carrier reads
    QString m_text;
    TaskScope m_tasks;
};

} // namespace quenoria
