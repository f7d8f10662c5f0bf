#include "platform/applescript/messages_application.h"

using namespace Qt::StringLiterals;

namespace quenoria {

using namespace applescript;

namespace {

struct Buddy : ScriptObject {
    Buddy(MessagesService itsService, QString itsHandle)
        : service(itsService), handle(std::move(itsHandle))
    {
    }

    MessagesService service;
    QString handle;
};

class Service : public ScriptObject {
public:
    explicit Service(MessagesService service) : m_service(service) {}

    ObjectRef buddy(const QString &handle) override
    {
        return std::make_shared<Buddy>(m_service, handle);
    }

private:
    MessagesService m_service;
};

class MessagesSession : public ScriptObject {
public:
    MessagesSession(MessagesTransport &transport, QStringList files)
        : m_transport(transport), m_files(std::move(files))
    {
    }

    ObjectRef firstService(const QString &type) override
    {
        static const std::map<QString, MessagesService> services{
            {u"RCS"_s, MessagesService::RCS},
            {u"SMS"_s, MessagesService::SMS},
            {u"iMessage"_s, MessagesService::iMessage},
        };
        const auto found = services.find(type);
        if (found == services.end() || !m_transport.offers(found->second))
            throw ScriptFailure(u"Messages n’a pas de service %1."_s.arg(type),
                                ErrorNumber::NoSuchObject);
        return std::make_shared<Service>(found->second);
    }

    /// Once a part of a message has left, or may have, no failure of the rest means that nothing
    /// went; and what may have left is not tried again over another service.
    void send(const Value &what, const Value &recipient) override
    {
        if (m_lastDoubt)
            raiseFailure(m_lastDoubt);
        const auto &buddy = asObject<Buddy>(recipient);
        const auto *file = std::get_if<Alias>(&what);
        if (!file)
            checkFiles(buddy.service);
        TransportResult failure =
            file ? m_transport.sendFile(buddy.service, buddy.handle, file->path)
                 : m_transport.sendText(buddy.service, buddy.handle,
                                        withLineFeeds(as<QString>(what)));
        if (failure && m_hasSent)
            failure->fate = Fate::perhapsSent;
        if (failure && failure->fate == Fate::perhapsSent)
            m_lastDoubt = failure;
        m_hasSent = m_hasSent || !failure;
        raiseFailure(failure);
    }

private:
    /// A file that the script has named follows the text, which must not leave without it.
    void checkFiles(MessagesService service) const
    {
        for (const QString &path : m_files)
            raiseFailure(m_transport.fileRefusal(service, path));
    }

    MessagesTransport &m_transport;
    QStringList m_files;
    TransportResult m_lastDoubt; ///< once there is one
    bool m_hasSent = false;
};

} // namespace

ObjectRef MessagesApplication::session(const QStringList &files)
{
    return std::make_shared<MessagesSession>(m_transport, files);
}

} // namespace quenoria
