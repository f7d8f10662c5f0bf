#include "platform/linux/stall_watch.h"

#include <sys/socket.h>

namespace quenoria {

StallWatch::StallWatch(std::chrono::milliseconds limit)
    : m_limit(limit), m_thread([this](const std::stop_token &stop) { keepWatch(stop); })
{
}

void StallWatch::watch(int socket)
{
    const std::lock_guard lock(m_mutex);
    m_sockets.insert(socket);
    if (m_expired)
        shutDownAll();
}

void StallWatch::letGo(int socket)
{
    const std::lock_guard lock(m_mutex);
    m_sockets.erase(socket);
}

void StallWatch::progress()
{
    const std::lock_guard lock(m_mutex);
    m_last = std::chrono::steady_clock::now();
}

void StallWatch::hangUp()
{
    const std::lock_guard lock(m_mutex);
    shutDownAll();
}

bool StallWatch::hasExpired() const
{
    const std::lock_guard lock(m_mutex);
    return m_expired;
}

void StallWatch::keepWatch(const std::stop_token &stop)
{
    std::unique_lock lock(m_mutex);
    while (!stop.stop_requested()) {
        const auto due = m_last + m_limit;
        if (std::chrono::steady_clock::now() >= due) {
            m_expired = true;
            shutDownAll();
            return;
        }
        // Progress only moves the limit; it is looked at again when it would have passed.
        m_changed.wait_until(lock, stop, due, [] { return false; });
    }
}

void StallWatch::shutDownAll()
{
    for (const int socket : m_sockets)
        ::shutdown(socket, SHUT_RDWR);
}

} // namespace quenoria
