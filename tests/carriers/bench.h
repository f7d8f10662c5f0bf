#pragma once

#include "platform/messages_transport.h"
#include "support/readable.h"

#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QtConcurrent>

#include <gtest/gtest.h>

namespace quenoria::test {

using namespace Qt::StringLiterals;

/// A bus of its own and the programs on it, none of which is the machine's.
class Bench : public testing::Test {
public:
    static constexpr int patience = 30'000; ///< milliseconds for a real daemon to do its part

    Bench()
    {
        const QString path = u"unix:path="_s + folder.filePath(u"bus"_s);
        start(bus, u"/usr/bin/dbus-daemon"_s,
              {u"--session"_s, u"--nofork"_s, u"--print-address"_s, u"--address="_s + path});
        bus.waitForReadyRead();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, path);
        environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, path);
    }

    ~Bench() override
    {
        for (QProcess *process : {&peer, &daemon, &bus}) {
            process->kill();
            process->waitForFinished();
        }
        QDBusConnection::disconnectFromBus(folder.path());
    }

    QDBusConnection application()
    {
        return QDBusConnection::connectToBus(u"unix:path="_s + folder.filePath(u"bus"_s),
                                             folder.path());
    }

    static QString support(const QString &file)
    {
        return QStringLiteral(QUENORIA_TEST_DATA) + u"/../support/"_s + file;
    }

    void start(QProcess &process, const QString &program, const QStringList &arguments) const
    {
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
    }

    /// The next line that the fake prints.
    QString line()
    {
        QDeadlineTimer limit(patience);
        while (!peer.canReadLine() && !limit.hasExpired() && peer.state() != QProcess::NotRunning)
            peer.waitForReadyRead(int(limit.remainingTime()));
        return QString::fromUtf8(peer.readLine()).trimmed();
    }

    /// How often the fake was given a message whose lines were not read yet.
    qsizetype lineCount()
    {
        while (peer.waitForReadyRead(50))
            continue;
        return peer.readAll().count('\n');
    }

    /// Runs on another thread, as a script does, while this one serves its events.
    template <typename Send>
    TransportResult await(Send send)
    {
        const QFuture<TransportResult> result = QtConcurrent::run(send);
        EXPECT_TRUE(QTest::qWaitFor([&] { return result.isFinished(); }, 2 * patience));
        return result.result();
    }

    QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QProcess bus;
    QProcess daemon;
    QProcess peer; ///< the modem or the telephone
};

/// "parti", or what the user reads, behind a question mark when the message may have left.
inline QString outcome(const TransportResult &result)
{
    if (!result)
        return u"parti"_s;
    return (result->fate == Fate::perhapsSent ? u"? "_s : QString()) +
           result->message.value_or(u"-"_s);
}

} // namespace quenoria::test
