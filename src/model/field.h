#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <tuple>

namespace quenoria {

/// One member of a record: its JSON name and where it lives. A record lists its fields once, in
/// declaration order; encoding, decoding and the tests' tables are all driven by that list.
template <typename Record, typename Value>
struct Field {
    std::string_view name;
    Value Record::*member;

    constexpr Field(std::string_view fieldName, Value Record::*where)
        : name(fieldName), member(where)
    {
    }
};

template <typename Record, typename Value>
Field(const char *, Value Record::*) -> Field<Record, Value>;

template <typename T>
concept HasFields = requires
{
    T::fields;
};

template <HasFields Record>
inline constexpr std::size_t fieldCount = std::tuple_size_v<decltype(Record::fields)>;

/// Positions of a record's fields sorted by name: files are written in that order.
template <HasFields Record>
constexpr auto fieldsByName()
{
    const auto names =
        std::apply([](const auto &...field) { return std::array{field.name...}; }, Record::fields);
    std::array<std::size_t, names.size()> order{};
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::ranges::sort(order, {}, [&names](std::size_t i) { return names[i]; });
    return order;
}

} // namespace quenoria
