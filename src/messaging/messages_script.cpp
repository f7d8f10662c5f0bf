#include "messaging/messages_script.h"

#include "messaging/script_text.h"
#include "model/contact_rules.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr char16_t sendTextBlock[] = uR"(
tell application "Messages"
    set rcsService to missing value
    set smsService to missing value
    set imessageService to missing value
    try
        set rcsService to first service whose service type is RCS
    end try
    try
        set smsService to first service whose service type is SMS
    end try
    try
        set imessageService to first service whose service type is iMessage
    end try

    set targetService to rcsService
    set usingRCS to true
    if targetService is missing value then
        set targetService to smsService
        set usingRCS to false
    end if
    if targetService is missing value then set targetService to imessageService
    if targetService is missing value then error "Aucun service Messages actif"

    set targetBuddy to buddy targetHandle of targetService
    try
        send messageBody to targetBuddy
    on error rcsErrorMessage number rcsErrorNumber
        if usingRCS and smsService is not missing value then
            set targetService to smsService
            set targetBuddy to buddy targetHandle of targetService
            set usingRCS to false
            send messageBody to targetBuddy
        else
            error rcsErrorMessage number rcsErrorNumber
        end if
    end try
    )";
static_assert(std::size(sendTextBlock) - 1 == 1265, "the documented text counts 1,265 characters");

/// Joins the four spaces that end the block above.
constexpr char16_t sendFileBlock[] = uR"(    delay 0.5
    send attachmentFile to targetBuddy
    delay 2)";

constexpr qsizetype usualLength = 1325;

} // namespace

QString messagingHandle(const QString &phone)
{
    QString digits = normalizePhone(phone);
    if (digits.startsWith(u'0'))
        return u"+33"_s + digits.mid(1);
    if (digits.startsWith(u"33"_s))
        return u'+' + digits;
    return digits;
}

QString messagesScript(const QString &handle, const QString &body,
                       const std::optional<QString> &attachmentPath)
{
    QString script;
    script.reserve(usualLength);
    script += u"set targetHandle to \""_s + appleScriptEscaped(handle) + u"\"\n"_s;
    script += u"set messageBody to "_s + appleScriptTextExpression(body) + u'\n';
    script += attachmentAssignment(attachmentPath);
    script += QStringView(sendTextBlock);
    if (attachmentPath)
        script += QStringView(sendFileBlock);
    script += u"\nend tell"_s;
    return script;
}

} // namespace quenoria
