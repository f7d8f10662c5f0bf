#include "platform/demo/demo_messages.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QString name(MessagesService service)
{
    return service == MessagesService::RCS ? u"RCS"_s : u"SMS"_s;
}

} // namespace

bool DemoMessages::offers(MessagesService service) const
{
    return service == MessagesService::RCS || service == MessagesService::SMS;
}

TransportResult DemoMessages::sendText(MessagesService service, const QString &handle,
                                       const QString &text)
{
    TransportResult result = m_outbox.file(FiledSms{name(service), handle, text, {}});
    if (!result && m_sent)
        m_sent(handle);
    return result;
}

TransportResult DemoMessages::sendFile(MessagesService service, const QString &handle,
                                       const QString &path)
{
    return m_outbox.file(FiledSms{name(service), handle, {}, path});
}

} // namespace quenoria
