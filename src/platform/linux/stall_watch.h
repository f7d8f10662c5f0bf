#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>

namespace quenoria {

/// Ends the connections of a dialogue in which nothing has happened for as long as the limit:
/// whoever waits for the other side then fails at once. A dialogue that goes on, however slowly,
/// has all the time that it needs.
class StallWatch {
public:
    explicit StallWatch(std::chrono::milliseconds limit);

    /// The socket belongs to the dialogue until it is let go, which is before it is closed.
    void watch(int socket);
    void letGo(int socket);

    /// Something has happened.
    void progress();

    /// Ends the connections now, without the limit having passed.
    void hangUp();

    [[nodiscard]] bool hasExpired() const;

private:
    void keepWatch(const std::stop_token &stop);
    void shutDownAll();

    const std::chrono::milliseconds m_limit;
    mutable std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::chrono::steady_clock::time_point m_last = std::chrono::steady_clock::now();
    std::set<int> m_sockets;
    bool m_expired = false;
    std::jthread m_thread; // the last member: it uses the others
};

} // namespace quenoria
