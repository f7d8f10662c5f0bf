#pragma once

#include <QString>

#include <cstdint>

namespace quenoria::bench {

/// The least that reading can cost: every part inflated with libzip and parsed with expat, its
/// handlers empty. Gives the number of bytes inflated.
std::uint64_t inflateAndParse(const QString &workbookPath);

} // namespace quenoria::bench
