#include "model/large_area.h"

#include <cstdint>

#include <sys/mman.h>
#include <unistd.h>

namespace quenoria {

void expectFilling(void *begin, std::size_t size)
{
#ifdef MADV_HUGEPAGE
    constexpr std::size_t worthwhile = std::size_t{4} << 20U;
    if (size < worthwhile)
        return;
    const auto page = std::uintptr_t(sysconf(_SC_PAGESIZE));
    const auto first = (std::uintptr_t(begin) + page - 1) / page * page;
    const auto last = (std::uintptr_t(begin) + size) / page * page;
    // Advice alone: whether it is taken shows in nothing but the time.
    (void)madvise(reinterpret_cast<void *>(first), last - first, MADV_HUGEPAGE);
#else
    (void)begin;
    (void)size;
#endif
}

} // namespace quenoria
