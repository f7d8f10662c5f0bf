#include "model/large_area.h"

#include <memory>

#include <sys/mman.h>
#include <unistd.h>

namespace quenoria {

void expectFilling(void *begin, std::size_t size)
{
#ifdef MADV_HUGEPAGE
    constexpr std::size_t worthwhile = std::size_t{4} << 20U;
    if (size < worthwhile)
        return;
    const auto page = std::size_t(sysconf(_SC_PAGESIZE));
    if (std::align(page, page, begin, size))
        (void)madvise(begin, size, MADV_HUGEPAGE); // advice: taken or not shows in the time alone
#else
    (void)begin;
    (void)size;
#endif
}

} // namespace quenoria
