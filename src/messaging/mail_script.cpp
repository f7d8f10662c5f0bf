#include "messaging/mail_script.h"

#include "messaging/script_text.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// Joins the eight spaces that follow the line of the recipient.
const QString attachBlock = uR"(    tell content
        make new attachment with properties {file name:attachmentFile} at after last paragraph
    end tell)"_s;

constexpr qsizetype usualLength = 309;

} // namespace

QString mailScript(const MailDraft &draft, MailDelivery delivery)
{
    const bool isDraft = delivery == MailDelivery::Draft;
    QString script;
    script.reserve(usualLength);
    script += attachmentAssignment(draft.attachmentPath);
    script += u"\nset messageBody to "_s + appleScriptTextExpression(draft.body);
    script += u"\ntell application \"Mail\""
              "\n    set draftMessage to make new outgoing message with properties {visible:"_s;
    script += isDraft ? u"true"_s : u"false"_s;
    script += u", subject:\""_s + appleScriptEscaped(draft.subject) + u"\", content:messageBody}"_s;
    script +=
        u"\n    tell draftMessage"
        "\n        make new to recipient at end of to recipients with properties {address:\""_s;
    script += appleScriptEscaped(draft.address) + u"\"}\n        "_s;
    if (draft.attachmentPath)
        script += attachBlock;
    script += u"\n    end tell\n    "_s;
    script += isDraft ? u"activate"_s : u"send draftMessage"_s;
    script += u"\nend tell"_s;
    return script;
}

} // namespace quenoria
