#pragma once

#include "platform/applescript/mail_transport.h"
#include "platform/applescript/messages_transport.h"
#include "support/readable.h"

#include <map>
#include <vector>

namespace quenoria::test {

/// Keeps what it was asked to carry, one line each, and refuses the services that a test names.
struct RecordingMessages : MessagesTransport {
    std::map<MessagesService, TransportResult> offered; ///< with the answer of each service
    QStringList carried;

    bool offers(MessagesService service) const override { return offered.count(service) != 0; }
    TransportResult sendText(MessagesService service, const QString &handle,
                             const QString &text) override
    {
        return carry(service, handle, text);
    }
    TransportResult sendFile(MessagesService service, const QString &handle,
                             const QString &path) override
    {
        return carry(service, handle, QStringLiteral("file ") + path);
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

} // namespace quenoria::test
