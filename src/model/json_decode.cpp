#include "model/json_decode.h"

#include "model/records.h"

#include <simdjson.h>

#include <array>
#include <iterator>
#include <set>
#include <utility>

namespace quenoria {

namespace {

using Node = simdjson::dom::element;

QString qString(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

bool read(Node node, QString &out)
{
    std::string_view text;
    if (node.get_string().get(text) != simdjson::SUCCESS)
        return false;
    out = qString(text);
    return true;
}

bool read(Node node, bool &out) { return node.get_bool().get(out) == simdjson::SUCCESS; }

bool read(Node node, Instant &out)
{
    std::string_view text;
    if (node.get_string().get(text) != simdjson::SUCCESS)
        return false;
    const auto instant = instantFromText(QByteArrayView(text.data(), qsizetype(text.size())));
    if (instant)
        out = *instant;
    return instant.has_value();
}

template <typename T>
bool read(Node node, std::vector<T> &out);

template <typename T>
bool read(Node node, std::optional<T> &out)
{
    if (node.is_null()) {
        out.reset();
        return true;
    }
    return read(node, out.emplace());
}

template <typename T>
constexpr bool isOptional = false;
template <typename T>
constexpr bool isOptional<std::optional<T>> = true;

/// Reads the one field that has the name, if any, and marks it as seen.
template <HasFields Record, std::size_t... I>
bool readMember(std::string_view name, Node value, Record &out,
                std::array<bool, sizeof...(I)> &seen, std::index_sequence<I...> /*positions*/)
{
    const auto readIfNamed = [&](const auto &field, bool &fieldSeen) {
        if (name != field.name)
            return true;
        fieldSeen = true;
        return read(value, out.*field.member);
    };
    return (readIfNamed(std::get<I>(Record::fields), std::get<I>(seen)) && ...);
}

template <HasFields Record, std::size_t... I>
bool hasEveryRequired(const std::array<bool, sizeof...(I)> &seen,
                      std::index_sequence<I...> /*positions*/)
{
    return ((std::get<I>(seen) ||
             isOptional<std::remove_cvref_t<decltype(std::declval<Record>().*
                                                     std::get<I>(Record::fields).member)>>)&&...);
}

template <HasFields Record>
bool read(Node node, Record &out)
{
    constexpr auto positions = std::make_index_sequence<fieldCount<Record>>{};
    simdjson::dom::object object;
    if (node.get_object().get(object) != simdjson::SUCCESS)
        return false;
    std::array<bool, fieldCount<Record>> seen{};
    for (const auto &[name, value] : object) {
        if (!readMember(name, value, out, seen, positions))
            return false;
    }
    return hasEveryRequired<Record>(seen, positions);
}

template <typename T>
bool read(Node node, std::vector<T> &out)
{
    simdjson::dom::array array;
    if (node.get_array().get(array) != simdjson::SUCCESS)
        return false;
    out.clear();
    out.reserve(array.size());
    for (const Node element : array) {
        if (!read(element, out.emplace_back()))
            return false;
    }
    return true;
}

bool read(Node node, std::set<QString> &out)
{
    std::vector<QString> texts;
    if (!read(node, texts))
        return false;
    out = std::set<QString>(std::make_move_iterator(texts.begin()),
                            std::make_move_iterator(texts.end()));
    return true;
}

template <typename T>
bool read(Node node, JsonMembers<T> &out)
{
    simdjson::dom::object object;
    if (node.get_object().get(object) != simdjson::SUCCESS)
        return false;
    out.reserve(object.size());
    for (const auto &[name, value] : object) {
        auto &member = out.emplace_back();
        member.first = qString(name);
        if (!read(value, member.second))
            return false;
    }
    return true;
}

} // namespace

template <typename Shape>
std::optional<Shape> decodeJson(const QByteArray &bytes)
{
    // A byte-order mark is not JSON, but editors leave it in files that users repair by hand.
    QByteArrayView content(bytes);
    if (content.startsWith("\xEF\xBB\xBF"))
        content = content.sliced(3);
    simdjson::dom::parser parser;
    Node root;
    const simdjson::padded_string padded(content.data(), std::size_t(content.size()));
    if (parser.parse(padded).get(root) != simdjson::SUCCESS)
        return std::nullopt;
    Shape shape;
    if (!read(root, shape))
        return std::nullopt;
    return shape;
}

template std::optional<std::vector<Prospect>> decodeJson(const QByteArray &);
template std::optional<std::vector<MessageTemplate>> decodeJson(const QByteArray &);
template std::optional<std::vector<EmailTemplate>> decodeJson(const QByteArray &);
template std::optional<std::vector<DepartmentInfo>> decodeJson(const QByteArray &);
template std::optional<std::vector<SendIntent>> decodeJson(const QByteArray &);
template std::optional<JsonMembers<QString>> decodeJson(const QByteArray &);
template std::optional<JsonMembers<SendStatus>> decodeJson(const QByteArray &);
template std::optional<JsonMembers<EmailSendStatus>> decodeJson(const QByteArray &);
template std::optional<JsonMembers<ContactOverride>> decodeJson(const QByteArray &);
template std::optional<JsonMembers<std::set<QString>>> decodeJson(const QByteArray &);
template std::optional<std::set<QString>> decodeJson(const QByteArray &);

} // namespace quenoria
