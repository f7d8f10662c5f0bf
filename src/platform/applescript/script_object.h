#pragma once

#include "platform/script_host.h"
#include "platform/transport_result.h"

#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <variant>

namespace quenoria::applescript {

class ScriptObject;
using ObjectRef = std::shared_ptr<ScriptObject>;

/// AppleScript's `missing value`.
struct MissingValue {
    bool operator==(const MissingValue &) const = default;
};

/// A file that existed when the script named it.
struct Alias {
    QString path;
    bool operator==(const Alias &) const = default;
};

using Value = std::variant<MissingValue, bool, double, QString, Alias, ObjectRef>;
using Properties = std::map<QString, Value>;

/// The numbers of AppleScript's own errors.
enum class ErrorNumber {
    FileNotFound = -43,
    ApplicationNotFound = -600,
    WrongType = -1700,
    NotUnderstood = -1708,
    EventTimedOut = ScriptError::timedOut,
    NoSuchObject = -1728,
    Raised = -2700,
    UndefinedVariable = -2753,
    CommandFailed = -10000,
};

/// An error of the running script. It is thrown, since the language's own `try` catches it; the
/// host catches what no script did, so that none leaves this layer.
struct ScriptFailure {
    ScriptFailure(std::optional<QString> text, ErrorNumber reason)
        : ScriptFailure(std::move(text), double(reason))
    {
    }
    ScriptFailure(std::optional<QString> text, double reason)
        : message(std::move(text)), number(reason)
    {
    }

    std::optional<QString> message; ///< the user may read it
    double number;
};

/// What a script can tell to do something. Everything that a kind of object does not understand
/// is a ScriptFailure.
class ScriptObject {
public:
    virtual ~ScriptObject() = default;

    /// `first service whose service type is RCS`
    virtual ObjectRef firstService(const QString &type);

    /// `buddy "+33639980010" of …`
    virtual ObjectRef buddy(const QString &handle);

    /// A word that is no variable, inside `tell …`.
    virtual Value property(const QString &name);

    /// `make new element at place with properties {…}`; place is empty when none is given.
    virtual ObjectRef make(const QString &element, const QString &place,
                           const Properties &properties);

    /// `send what to recipient`; recipient is missing value when none is given.
    virtual void send(const Value &what, const Value &recipient);

    virtual void activate();
};

[[noreturn]] void refuseType();

/// Raises the failure of a transport; one after which the message may have left is a time-out.
void raiseFailure(const TransportResult &failure);

/// The value as the type that a command needs.
template <typename Type>
const Type &as(const Value &value)
{
    if (const auto *held = std::get_if<Type>(&value))
        return *held;
    refuseType();
}

/// The object behind the value, when it is of the kind that a command needs.
template <typename Object>
Object &asObject(const Value &value)
{
    if (auto *object = dynamic_cast<Object *>(as<ObjectRef>(value).get()))
        return *object;
    refuseType();
}

/// A text on its way out: AppleScript's `return` is a carriage return, while the rest of the
/// desktop ends its lines with line feeds.
[[nodiscard]] QString withLineFeeds(QString text);

} // namespace quenoria::applescript
