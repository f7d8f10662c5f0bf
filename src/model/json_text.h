#pragma once

#include "model/field.h"
#include "model/instant.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace quenoria {

/// Appends a quoted JSON string; "/" is written as "\/".
void appendJsonString(std::string &out, const QString &text);

/// Appends a line feed and two spaces per level.
void appendJsonLine(std::string &out, int level);

/// Appends a value; what it spans over several lines is indented below the given level.
void appendJson(std::string &out, const QString &text, int level);
void appendJson(std::string &out, bool flag, int level);
void appendJson(std::string &out, Instant instant, int level);

template <typename Values>
void appendJsonArray(std::string &out, const Values &values, int level)
{
    out += '[';
    const char *separator = "";
    for (const auto &value : values) {
        out += separator;
        appendJsonLine(out, level + 1);
        appendJson(out, value, level + 1);
        separator = ",";
    }
    if (!values.empty())
        appendJsonLine(out, level);
    out += ']';
}

template <typename T>
void appendJson(std::string &out, const std::vector<T> &values, int level)
{
    appendJsonArray(out, values, level);
}

namespace detail {

/// Appends all that stands before a member's value, in one piece.
void appendJsonMemberName(std::string &out, std::string_view name, int level);

template <typename Value>
void appendJsonMember(std::string &out, std::string_view name, const Value &value, int level)
{
    appendJsonMemberName(out, name, level + 1);
    appendJson(out, value, level + 1);
}

template <typename Value>
void appendJsonMember(std::string &out, std::string_view name, const std::optional<Value> &value,
                      int level)
{
    if (value)
        appendJsonMember(out, name, *value, level);
}

} // namespace detail

/// A record: its members sorted by name, absent ones left out.
template <HasFields Record>
void appendJson(std::string &out, const Record &record, int level)
{
    out += '{';
    constexpr auto order = fieldsByName<Record>();
    [&]<std::size_t... I>(std::index_sequence<I...>)
    {
        (detail::appendJsonMember(out, std::get<order[I]>(Record::fields).name,
                                  record.*(std::get<order[I]>(Record::fields).member), level),
         ...);
    }
    (std::make_index_sequence<order.size()>{});
    appendJsonLine(out, level);
    out += '}';
}

} // namespace quenoria
