#pragma once

#include "platform/applescript/apple_script_host.h"
#include "platform/applescript/mail_application.h"
#include "platform/applescript/messages_application.h"
#include "support/readable.h"

#include <map>
#include <vector>

namespace quenoria::test {

/// Keeps what it was asked to carry, one line each, and answers as each offered service does.
struct RecordingMessages : MessagesTransport {
    std::map<MessagesService, TransportResult> offered{{MessagesService::SMS, {}}};
    TransportResult file; ///< what becomes of a file where a text goes
    QStringList carried;
    std::map<MessagesService, TransportResult> filesRefused;

    TransportResult fileRefusal(MessagesService service, const QString &) const override
    {
        const auto found = filesRefused.find(service);
        return found == filesRefused.end() ? TransportResult() : found->second;
    }
    bool offers(MessagesService service) const override { return offered.count(service) != 0; }
    TransportResult sendText(MessagesService service, const QString &handle,
                             const QString &text) override
    {
        return carry(service, handle, text);
    }
    TransportResult sendFile(MessagesService service, const QString &handle,
                             const QString &path) override
    {
        const TransportResult text = carry(service, handle, QStringLiteral("file ") + path);
        return text ? text : file;
    }

private:
    TransportResult carry(MessagesService service, const QString &handle, const QString &what)
    {
        static const char *const names[] = {"RCS ", "SMS ", "iMessage "};
        carried << QLatin1String(names[int(service)]) + handle + u' ' + what;
        return offered.at(service);
    }
};

struct RecordingMail : MailTransport {
    TransportResult answer;
    std::vector<OutgoingMessage> sent;
    std::vector<OutgoingMessage> shown;

    TransportResult send(const OutgoingMessage &message) override
    {
        sent.push_back(message);
        return answer;
    }
    TransportResult showDraft(const OutgoingMessage &message) override
    {
        shown.push_back(message);
        return answer;
    }
};

/// The interpreter with both applications, down to their transports; waits are noted, not spent.
struct InterpretedScripts {
    RecordingMessages messages;
    RecordingMail mail;
    MessagesApplication messagesApplication{messages};
    MailApplication mailApplication{mail};
    AppleScriptHost host{
        {&messagesApplication, &mailApplication}, [this](std::chrono::nanoseconds duration) {
            messages.carried << QStringLiteral("wait %1 ms").arg(duration.count() / 1'000'000);
        }};
};

} // namespace quenoria::test
