#include "store/held_state.h"

#include "store/store_state.h"

namespace quenoria {

HeldState::HeldState(std::unique_ptr<StoreState> state) : m_state(std::move(state)) {}

HeldState::~HeldState() = default;

StoreState &HeldState::whole() const
{
    if (!m_state->isReady && !m_state->isReading)
        m_state->readHistories();
    return *m_state;
}

} // namespace quenoria
