#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace quenoria {

/// An object used as a dictionary: names and values in the file's order.
template <typename Value>
using JsonMembers = std::vector<std::pair<QString, Value>>;

/// Bytes behind the text that a decoder may read over. A text with that much room to spare in its
/// capacity is decoded where it lies, another one is copied first.
inline constexpr qsizetype jsonReadAhead = 64;

/// Decodes a whole file or nothing: a missing or mistyped required member, a malformed date or a
/// syntax error anywhere refuses it. Unknown members are ignored, null optional ones are absent.
/// Shapes: std::vector of records, std::set of texts, JsonMembers of records, texts or text sets.
template <typename Shape>
[[nodiscard]] std::optional<Shape> decodeJson(const QByteArray &bytes);

} // namespace quenoria
