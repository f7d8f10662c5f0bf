#include "platform/applescript/mail_application.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace quenoria {

using namespace applescript;

namespace {

const Value &required(const Properties &properties, const QString &name)
{
    const auto found = properties.find(name);
    if (found == properties.end())
        throw ScriptFailure(u"La propriété « %1 » manque."_s.arg(name), ErrorNumber::NoSuchObject);
    return found->second;
}

/// A message, or an element of one, which refers to it.
struct MessagePart : ScriptObject {
    explicit MessagePart(std::shared_ptr<OutgoingMessage> part) : message(std::move(part)) {}

    std::shared_ptr<OutgoingMessage> message;
};

struct MessageContent : MessagePart {
    using MessagePart::MessagePart;

    ObjectRef make(const QString &element, const QString &place,
                   const Properties &properties) override
    {
        if (element != u"attachment" || place != u"after last paragraph")
            return MessagePart::make(element, place, properties);
        message->attachments << as<Alias>(required(properties, u"file name"_s)).path;
        return std::make_shared<MessagePart>(message);
    }
};

struct Message : MessagePart {
    using MessagePart::MessagePart;

    Value property(const QString &name) override
    {
        if (name != u"content")
            return MessagePart::property(name);
        return std::make_shared<MessageContent>(message);
    }

    ObjectRef make(const QString &element, const QString &place,
                   const Properties &properties) override
    {
        if (element != u"to recipient" || place != u"end of to recipients")
            return MessagePart::make(element, place, properties);
        message->recipients << as<QString>(required(properties, u"address"_s));
        return std::make_shared<MessagePart>(message);
    }
};

class MailSession : public ScriptObject {
public:
    explicit MailSession(MailTransport &transport) : m_transport(transport) {}

    ObjectRef make(const QString &element, const QString &place,
                   const Properties &properties) override
    {
        if (element != u"outgoing message" || !place.isEmpty())
            return ScriptObject::make(element, place, properties);
        auto message = std::make_shared<OutgoingMessage>();
        message->visible = as<bool>(required(properties, u"visible"_s));
        message->subject = as<QString>(required(properties, u"subject"_s));
        message->content = withLineFeeds(as<QString>(required(properties, u"content"_s)));
        if (message->visible)
            m_drafts.push_back(message);
        return std::make_shared<Message>(std::move(message));
    }

    void send(const Value &what, const Value &) override
    {
        raiseFailure(m_transport.send(*asObject<Message>(what).message));
    }

    void activate() override
    {
        for (const auto &draft : m_drafts)
            raiseFailure(m_transport.showDraft(*draft));
    }

private:
    MailTransport &m_transport;
    std::vector<std::shared_ptr<OutgoingMessage>> m_drafts;
};

} // namespace

ObjectRef MailApplication::session(const QStringList & /*files*/)
{
    return std::make_shared<MailSession>(m_transport);
}

} // namespace quenoria
