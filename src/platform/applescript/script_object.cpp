#include "platform/applescript/script_object.h"

using namespace Qt::StringLiterals;

namespace quenoria::applescript {

namespace {

[[noreturn]] void notUnderstood(const QString &command)
{
    throw ScriptFailure(u"La commande « %1 » n’est pas comprise ici."_s.arg(command),
                        ErrorNumber::NotUnderstood);
}

} // namespace

ObjectRef ScriptObject::firstService(const QString &) { notUnderstood(u"first service"_s); }

ObjectRef ScriptObject::buddy(const QString &) { notUnderstood(u"buddy"_s); }

Value ScriptObject::property(const QString &name)
{
    throw ScriptFailure(u"La variable « %1 » n’est pas définie."_s.arg(name),
                        ErrorNumber::UndefinedVariable);
}

ObjectRef ScriptObject::make(const QString &element, const QString &, const Properties &)
{
    notUnderstood(u"make new "_s + element);
}

void ScriptObject::send(const Value &, const Value &) { notUnderstood(u"send"_s); }

void ScriptObject::activate() { notUnderstood(u"activate"_s); }

void refuseType()
{
    throw ScriptFailure(u"Une valeur n’a pas le type attendu."_s, ErrorNumber::WrongType);
}

void raiseFailure(const TransportResult &failure)
{
    if (!failure)
        return;
    const bool inDoubt = failure->fate == Fate::perhapsSent;
    throw ScriptFailure(failure->message,
                        inDoubt ? ErrorNumber::EventTimedOut : ErrorNumber::CommandFailed);
}

QString withLineFeeds(QString text) { return text.replace(u'\r', u'\n'); }

} // namespace quenoria::applescript
