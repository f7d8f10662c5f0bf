#include "model/json_decode.h"

#include "model/encoded.h"
#include "model/large_area.h"
#include "model/lone_surrogates.h"
#include "model/recent_texts.h"
#include "model/records.h"
#include "model/text_set.h"

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <new>
#include <set>
#include <unordered_map>
#include <utility>

namespace quenoria {

namespace {

using Node = simdjson::ondemand::value;

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

/// The same for each element of an array.
template <typename TakeElement>
bool readElements(Node node, const TakeElement &take)
{
    simdjson::ondemand::array array;
    if (node.get_array().get(array) != simdjson::SUCCESS)
        return false;
    for (auto element : array) {
        Node value;
        if (element.get(value) != simdjson::SUCCESS || !take(value))
            return false;
    }
    return true;
}

template <HasFields Record, std::size_t... I>
bool hasEveryRequired(const std::array<bool, sizeof...(I)> &seen,
                      std::index_sequence<I...> /*positions*/)
{
    return ((std::get<I>(seen) ||
             isOptional<std::remove_cvref_t<decltype(std::declval<Record>().*
                                                     std::get<I>(Record::fields).member)>>)&&...);
}

/// Reads one file; each read() is false where the file is not of the shape.
class Decoder {
public:
    bool read(Node node, QString &out)
    {
        std::string_view text;
        if (node.get_string().get(text) != simdjson::SUCCESS)
            return false;
        out = m_texts.text(text);
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
    bool read(Node node, std::optional<T> &out)
    {
        bool isNull = false;
        if (node.is_null().get(isNull) != simdjson::SUCCESS) // as of "nul"
            return false;
        if (isNull) {
            out.reset();
            return true;
        }
        return read(node, out.emplace());
    }

    /// Where it stays: a hundred thousand records are not moved once they are read.
    template <typename T>
    bool read(Node node, Encoded<T> &out)
    {
        bool isRead = false;
        out.edit([&](T &value) { isRead = read(node, value); });
        return isRead;
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
        out.clear();
        return readElements(node, [&](Node value) { return read(value, out.emplace_back()); });
    }

    bool read(Node node, std::vector<Instant> &out)
    {
        m_instants.clear();
        const auto take = [this](Node value) { return read(value, m_instants.emplace_back()); };
        const bool isRead = readElements(node, take);
        out = m_instants; // a history of just its size: there are two for each contact
        return isRead;
    }

    bool read(Node node, std::set<QString> &out)
    {
        out.clear();
        return readElements(node, [&out](Node value) {
            std::string_view text;
            const bool isText = value.get_string().get(text) == simdjson::SUCCESS;
            if (isText)
                out.insert(out.end(), qString(text)); // in a file they stand sorted
            return isText;
        });
    }

    /// Sets of one file hold much the same texts: each of these takes its memory once. It is mostly
    /// in the set before, where it stands no earlier than the text before it.
    bool read(Node node, TextSet &out)
    {
        std::vector<QString> texts;
        std::vector<const SharedText *> shared;
        std::size_t place = 0;
        const bool isRead = readElements(node, [&](Node value) {
            std::string_view text;
            if (value.get_string().get(text) != simdjson::SUCCESS)
                return false;
            while (place < m_setBefore.size() && m_setBefore[place]->first < text)
                ++place;
            const bool isKnown = place < m_setBefore.size() && m_setBefore[place]->first == text;
            shared.push_back(isKnown ? m_setBefore[place] : &sharedText(text));
            texts.push_back(shared.back()->second);
            return true;
        });
        m_setBefore = std::move(shared);
        out = TextSet(std::move(texts));
        return isRead;
    }

    template <typename T>
    bool read(Node node, JsonMembers<T> &out)
    {
        return readMembers(node, [&](std::string_view name, Node value) {
            auto &member = out.emplace_back();
            member.first = qString(name);
            return read(value, member.second);
        });
    }

private:
    using SharedText = std::pair<const std::string_view, QString>; ///< in the parser's own bytes

    const SharedText &sharedText(std::string_view text)
    {
        const auto [known, isNew] = m_shared.try_emplace(text);
        if (isNew)
            known->second = qString(text);
        return *known;
    }

    /// Reads the one field that has the name, if any, and marks it as seen.
    template <HasFields Record, std::size_t... I>
    bool readMember(std::string_view name, Node value, Record &out,
                    std::array<bool, sizeof...(I)> &seen, std::index_sequence<I...> /*positions*/)
    {
        bool isRead = true;
        const auto readIfNamed = [&](const auto &field, bool &fieldSeen) {
            if (name != field.name)
                return false;
            fieldSeen = true;
            isRead = read(value, out.*field.member);
            return true;
        };
        (void)(readIfNamed(std::get<I>(Record::fields), std::get<I>(seen)) || ...);
        return isRead;
    }

    RecentTexts m_texts;
    std::vector<Instant> m_instants;
    std::unordered_map<std::string_view, QString> m_shared;
    std::vector<const SharedText *> m_setBefore;
};

/// Room for the records that so large a file holds at most, as far as they are usual ones. What is
/// not needed of it is never touched.
template <typename Shape>
void makeRoom(Shape &shape, std::size_t fileSize)
{
    constexpr std::size_t smallRecord = 160;
    if constexpr (requires { shape.reserve(fileSize); }) {
        shape.reserve(fileSize / smallRecord);
        expectFilling(shape);
    }
}

/// The library does not look whether it got the memory for its texts: it is tried before.
void askForTexts(std::size_t size)
{
    const std::size_t room = 5 * size / 3 + std::size_t(jsonReadAhead);
    ::operator delete(::operator new(room));
}

} // namespace

template <typename Shape>
std::optional<Shape> decodeJson(const QByteArray &bytes)
{
    // A byte-order mark is not JSON, but editors leave it in files that users repair by hand.
    std::string_view content(bytes.data(), std::size_t(bytes.size()));
    if (content.starts_with("\xEF\xBB\xBF"))
        content.remove_prefix(3);
    static_assert(jsonReadAhead >= qsizetype(simdjson::SIMDJSON_PADDING));
    const bool hasRoom = bytes.capacity() - bytes.size() >= jsonReadAhead;
    simdjson::padded_string_view json(content, content.size() + std::size_t(jsonReadAhead));
    simdjson::padded_string copy;
    if (!hasRoom || hasLoneSurrogate(content)) {
        copy = simdjson::padded_string(content);
        if (copy.size() != content.size())
            throw std::bad_alloc();
        replaceLoneSurrogates(copy.data(), copy.size());
        json = copy;
    }
    askForTexts(content.size());
    simdjson::ondemand::parser parser;
    simdjson::ondemand::document document;
    Node root;
    Shape shape;
    makeRoom(shape, content.size());
    const simdjson::error_code opened = parser.iterate(json).get(document);
    if (opened == simdjson::MEMALLOC) // which says nothing about the file
        throw std::bad_alloc();
    if (opened != simdjson::SUCCESS || document.get_value().get(root) != simdjson::SUCCESS ||
        !Decoder().read(root, shape) ||
        document.current_location().error() != simdjson::OUT_OF_BOUNDS) // and nothing after it
        return std::nullopt;
    return shape;
}

template std::optional<std::vector<Encoded<Prospect>>> decodeJson(const QByteArray &);
template std::optional<std::vector<Encoded<MessageTemplate>>> decodeJson(const QByteArray &);
template std::optional<std::vector<Encoded<EmailTemplate>>> decodeJson(const QByteArray &);
template std::optional<std::vector<Encoded<DepartmentInfo>>> decodeJson(const QByteArray &);
template std::optional<std::vector<SendIntent>> decodeJson(const QByteArray &);
template std::optional<JsonMembers<QString>> decodeJson(const QByteArray &);
template std::optional<JsonMembers<Encoded<QString>>> decodeJson(const QByteArray &);
template std::optional<JsonMembers<Encoded<SendStatus>>> decodeJson(const QByteArray &);
template std::optional<JsonMembers<Encoded<EmailSendStatus>>> decodeJson(const QByteArray &);
template std::optional<JsonMembers<Encoded<ContactOverride>>> decodeJson(const QByteArray &);
template std::optional<JsonMembers<Encoded<TextSet>>> decodeJson(const QByteArray &);
template std::optional<std::set<QString>> decodeJson(const QByteArray &);

} // namespace quenoria
