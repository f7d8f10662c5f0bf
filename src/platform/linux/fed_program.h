#pragma once

#include "platform/hand_over_progress.h"

#include <QByteArray>
#include <QProcess>

#include <chrono>

namespace quenoria {

/// A program that is given one text on its standard input.
///
/// The text is whole before the program starts, in a file in memory that has no name: however the
/// program or this process ends, a part of it is never taken for the whole. Runs in a process group
/// of its own, which is ended together.
class FedProgram {
public:
    /// How it ended.
    enum class End { byItself, failedToStart, crashed, stopped };

    FedProgram(const QString &program, const QStringList &arguments, const QByteArray &input);
    ~FedProgram();
    FedProgram(const FedProgram &) = delete;
    FedProgram &operator=(const FedProgram &) = delete;

    /// Waits for its end; stops it once it has neither read nor said anything for the limit.
    [[nodiscard]] End run(std::chrono::milliseconds inactivityLimit, HandOverProgress &progress);

    [[nodiscard]] int exitCode() const { return m_process.exitCode(); }

    /// What it said on its standard error, without the space around.
    [[nodiscard]] QString words() const;

    /// Whether it had the whole text before it ended.
    [[nodiscard]] bool hasReadAll() const { return position() >= m_size; }

private:
    [[nodiscard]] bool isFed() const { return m_input >= 0; }
    [[nodiscard]] qint64 position() const;
    qint64 listen();
    void stop();

    QProcess m_process;
    int m_input = -1;
    qint64 m_size;
    qint64 m_heard = 0; ///< bytes
    QByteArray m_errors;
};

} // namespace quenoria
