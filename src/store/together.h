#pragma once

namespace quenoria {

class ProspectStore;
struct StoreState;

/// Changes of many contacts as one: while it lives, the store gathers what changed; when it ends,
/// each collection is announced and written once. Memory holds every change at once.
class Together {
public:
    explicit Together(ProspectStore &store);
    ~Together();
    Together(const Together &) = delete;
    Together &operator=(const Together &) = delete;

private:
    StoreState &m_state;
    bool m_isOutermost;
};

} // namespace quenoria
