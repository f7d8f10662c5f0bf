#pragma once

#include <QtGlobal>

#include <algorithm>
#include <atomic>
#include <optional>

namespace quenoria {

/// How much of a long message its carrier has taken so far: written on the thread that hands it
/// over, read on the main thread.
class HandOverProgress {
public:
    void set(qint64 taken, qint64 total)
    {
        m_percent = total > 0 ? int(std::clamp<qint64>(taken * 100 / total, 0, 100)) : unknown;
    }
    void clear() { m_percent = unknown; }

    [[nodiscard]] std::optional<int> percent() const
    {
        const int percent = m_percent;
        return percent == unknown ? std::nullopt : std::optional(percent);
    }

private:
    static constexpr int unknown = -1;

    std::atomic<int> m_percent = unknown;
};

} // namespace quenoria
