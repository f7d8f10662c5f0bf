#pragma once

#include <cstddef>

namespace quenoria {

/// Says that the memory is about to be filled from one end to the other. The system may then give
/// it in large pages: to ask for each small one would take longer than to fill it.
void expectFilling(void *begin, std::size_t size);

/// The same of what a vector has reserved.
template <typename Vector>
void expectFilling(Vector &reserved)
{
    expectFilling(reserved.data(), reserved.capacity() * sizeof(typename Vector::value_type));
}

} // namespace quenoria
