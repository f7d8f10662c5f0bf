#include "ui/table/shares.h"

#include <algorithm>
#include <future>
#include <thread>
#include <vector>

namespace quenoria {

std::size_t sharesOf(std::size_t contacts)
{
    constexpr std::size_t few = 2'000; // are done before a thread has begun
    const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
    return std::clamp<std::size_t>(contacts / few, 1, cores);
}

void inShares(
    std::size_t contacts,
    const std::function<void(std::size_t share, std::size_t begin, std::size_t end)> &work)
{
    const std::size_t shares = sharesOf(contacts);
    const auto beginOf = [&](std::size_t share) { return contacts * share / shares; };
    std::vector<std::future<void>> others; // which work here where there can be no thread
    for (std::size_t share = 0; share + 1 < shares; ++share)
        others.push_back(std::async(std::cref(work), share, beginOf(share), beginOf(share + 1)));
    work(shares - 1, beginOf(shares - 1), contacts);
    for (std::future<void> &other : others)
        other.get();
}

} // namespace quenoria
