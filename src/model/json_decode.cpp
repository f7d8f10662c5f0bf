#include "model/json_decode.h"

#include "model/records.h"

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <set>
#include <utility>

namespace quenoria {

namespace {

using Node = simdjson::ondemand::value;

/// A mark of byte order at the head of a value is part of it.
QString qString(std::string_view text)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    const QString read = QString::fromUtf8(text.data(), qsizetype(text.size()));
    return text.starts_with(mark) ? QChar(QChar::ByteOrderMark) + read : read;
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

/// Gives each member of an object to the function, until one is refused. A value that the function
/// does not look at is passed over, whatever it holds.
template <typename TakeMember>
bool readMembers(Node node, const TakeMember &take)
{
    simdjson::ondemand::object object;
    if (node.get_object().get(object) != simdjson::SUCCESS)
        return false;
    for (auto member : object) {
        simdjson::ondemand::field field;
        std::string_view name;
        if (std::move(member).get(field) != simdjson::SUCCESS ||
            field.unescaped_key().get(name) != simdjson::SUCCESS || !take(name, field.value()))
            return false;
    }
    return true;
}

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
    std::array<bool, fieldCount<Record>> seen{};
    const auto take = [&](std::string_view name, Node value) {
        return readMember(name, value, out, seen, positions);
    };
    return readMembers(node, take) && hasEveryRequired<Record>(seen, positions);
}

template <typename T>
bool read(Node node, std::vector<T> &out)
{
    simdjson::ondemand::array array;
    if (node.get_array().get(array) != simdjson::SUCCESS)
        return false;
    out.clear();
    for (auto element : array) {
        Node value;
        if (std::move(element).get(value) != simdjson::SUCCESS || !read(value, out.emplace_back()))
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
    return readMembers(node, [&out](std::string_view name, Node value) {
        auto &member = out.emplace_back();
        member.first = qString(name);
        return read(value, member.second);
    });
}

/// The code unit of "\\uXXXX" at the position, if that is what stands there.
std::optional<char16_t> escapedUnit(std::string_view text, std::size_t at)
{
    constexpr std::size_t digits = 4;
    if (text.substr(at, 2) != "\\u" || text.size() < at + 2 + digits)
        return std::nullopt;
    unsigned unit = 0;
    const char *first = text.data() + at + 2;
    const auto [end, error] = std::from_chars(first, first + digits, unit, 16);
    return error == std::errc() && end == first + digits ? std::optional(char16_t(unit))
                                                         : std::nullopt;
}

/// Half a character that was escaped alone stands for no character: it becomes the sign for that.
void replaceLoneSurrogates(simdjson::padded_string &json)
{
    constexpr std::size_t length = 6; ///< of an escape
    const std::string_view text(json.data(), json.size());
    for (std::size_t at = text.find('\\'); at < text.size(); at = text.find('\\', at)) {
        const auto unit = escapedUnit(text, at);
        const auto next = unit ? escapedUnit(text, at + length) : std::nullopt;
        if (unit && QChar::isHighSurrogate(*unit) && next && QChar::isLowSurrogate(*next)) {
            at += 2 * length;
            continue;
        }
        if (unit && QChar::isSurrogate(*unit))
            std::ranges::copy(std::string_view("\\ufffd"), json.data() + at);
        at += unit ? length : 2;
    }
}

} // namespace

template <typename Shape>
std::optional<Shape> decodeJson(const QByteArray &bytes)
{
    // A byte-order mark is not JSON, but editors leave it in files that users repair by hand.
    QByteArrayView content(bytes);
    if (content.startsWith("\xEF\xBB\xBF"))
        content = content.sliced(3);
    simdjson::padded_string padded(content.data(), std::size_t(content.size()));
    replaceLoneSurrogates(padded);
    simdjson::ondemand::parser parser;
    simdjson::ondemand::document document;
    Node root;
    Shape shape;
    if (parser.iterate(padded).get(document) != simdjson::SUCCESS ||
        document.get_value().get(root) != simdjson::SUCCESS || !read(root, shape) ||
        document.current_location().error() != simdjson::OUT_OF_BOUNDS) // and nothing after it
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
