#pragma once

#include <memory>

namespace quenoria {

struct StoreState;

/// What a store holds. Whoever asks it for more than the contacts has the histories read first,
/// where a start has left them for later: nobody can take them for empty. On the main thread, but
/// for a store that is ready.
class HeldState {
public:
    explicit HeldState(std::unique_ptr<StoreState> state);
    ~HeldState();

    StoreState *operator->() const { return &whole(); }
    StoreState &operator*() const { return whole(); }

    /// All but the histories: what is there from the beginning.
    StoreState &contacts() const { return *m_state; }

private:
    StoreState &whole() const;

    std::unique_ptr<StoreState> m_state;
};

} // namespace quenoria
