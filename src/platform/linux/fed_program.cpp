#include "platform/linux/fed_program.h"

#include <csignal>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quenoria {

namespace {

using namespace std::chrono_literals;
using Steady = std::chrono::steady_clock;

constexpr auto longestGlance = 200ms;
constexpr auto grace = 2000ms; ///< between the request to end and the end
constexpr qsizetype mostWords = 65536;

bool writeAll(int descriptor, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), std::size_t(bytes.size()));
        if (written <= 0)
            return false;
        bytes = bytes.sliced(written);
    }
    return ::lseek(descriptor, 0, SEEK_SET) == 0;
}

/// A file in memory that holds the text, or -1.
int memoryFile(QByteArrayView text)
{
    const int descriptor = ::memfd_create("quenoria", MFD_CLOEXEC);
    if (descriptor < 0)
        return -1;
    if (::fchmod(descriptor, S_IRUSR | S_IWUSR) == 0 && writeAll(descriptor, text))
        return descriptor;
    ::close(descriptor);
    return -1;
}

} // namespace

FedProgram::FedProgram(const QString &program, const QStringList &arguments,
                       const QByteArray &input)
    : m_input(memoryFile(input)), m_size(input.size())
{
    m_process.setProgram(program);
    m_process.setArguments(arguments);
    m_process.setChildProcessModifier([descriptor = m_input] {
        ::setpgid(0, 0);
        ::dup2(descriptor, STDIN_FILENO); // one offset for both: it shows how far the program is
    });
}

FedProgram::~FedProgram()
{
    if (isFed())
        ::close(m_input);
}

FedProgram::End FedProgram::run(std::chrono::milliseconds inactivityLimit,
                                HandOverProgress &progress)
{
    if (!isFed())
        return End::failedToStart;
    m_process.start();
    m_process.closeWriteChannel();
    if (!m_process.waitForStarted(-1))
        return End::failedToStart;
    const auto glance = std::clamp(inactivityLimit / 4, 1ms, longestGlance);
    qint64 last = -1;
    auto lastSeen = Steady::now();
    while (!m_process.waitForFinished(int(glance.count())) &&
           m_process.state() != QProcess::NotRunning) {
        const qint64 now = position() + listen();
        progress.set(position(), m_size);
        if (now != last) {
            last = now;
            lastSeen = Steady::now();
        } else if (Steady::now() - lastSeen >= inactivityLimit) {
            stop();
            return End::stopped;
        }
    }
    listen();
    return m_process.exitStatus() == QProcess::NormalExit ? End::byItself : End::crashed;
}

qint64 FedProgram::position() const { return ::lseek(m_input, 0, SEEK_CUR); }

/// Takes what the program said meanwhile; gives the bytes that it has said so far.
qint64 FedProgram::listen()
{
    const QByteArray errors = m_process.readAllStandardError();
    m_heard += errors.size() + m_process.readAllStandardOutput().size();
    m_errors = (m_errors + errors).right(mostWords);
    return m_heard;
}

QString FedProgram::words() const { return QString::fromLocal8Bit(m_errors).trimmed(); }

/// The group is asked first, so that a mail program takes its own half-made files away.
void FedProgram::stop()
{
    const auto group = pid_t(m_process.processId());
    ::killpg(group, SIGTERM);
    m_process.waitForFinished(int(grace.count()));
    ::killpg(group, SIGKILL);
    m_process.waitForFinished();
    listen();
}

} // namespace quenoria
