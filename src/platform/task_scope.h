#pragma once

#include <memory>
#include <stop_token>
#include <utility>

namespace quenoria {

/// Owns the coroutines that an object launches: goes with the object, and stops them then.
///
/// A coroutine takes a lease before its first await and looks at it after each. It ends by itself,
/// later: a destructor that waited would run an event loop over half an object. What has to be
/// awaited, as a message that a carrier has, is awaited before the owner is let go.
class TaskScope {
    struct Run {
        std::stop_source stop;
    };

public:
    /// What a coroutine keeps in its frame, which may outlive the owner.
    class Lease {
    public:
        /// The owner is gone: nothing of it may be touched, and no result of this is one.
        [[nodiscard]] bool isAbandoned() const { return m_owner.stop_requested(); }

        /// The owner is gone, or has cancelled what it had launched.
        [[nodiscard]] bool isOver() const { return m_run->stop.stop_requested(); }

        /// Requested once isOver().
        [[nodiscard]] std::stop_token token() const { return m_run->stop.get_token(); }

    private:
        friend class TaskScope;
        Lease(std::stop_token owner, std::shared_ptr<const Run> run)
            : m_owner(std::move(owner)), m_run(std::move(run))
        {
        }

        std::stop_token m_owner;
        std::shared_ptr<const Run> m_run;
    };

    TaskScope() = default;
    ~TaskScope()
    {
        m_owner.request_stop();
        m_run->stop.request_stop();
    }
    TaskScope(const TaskScope &) = delete;
    TaskScope &operator=(const TaskScope &) = delete;

    [[nodiscard]] Lease lease() const { return {m_owner.get_token(), m_run}; }

    /// Stops what was launched so far; what is launched from now on runs.
    void cancel()
    {
        const std::shared_ptr<Run> cancelled = std::exchange(m_run, std::make_shared<Run>());
        cancelled->stop.request_stop();
    }

    /// Nothing runs but what was cancelled.
    [[nodiscard]] bool isIdle() const { return m_run.use_count() == 1; }

private:
    std::stop_source m_owner; ///< requested when it goes
    std::shared_ptr<Run> m_run = std::make_shared<Run>();
};

} // namespace quenoria
