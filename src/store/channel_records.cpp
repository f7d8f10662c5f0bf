#include "store/channel_records.h"

#include "model/contact_rules.h"
#include "store/defaults.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

EmailTemplate defaultSMS()
{
    const MessageTemplate message = defaultMessage();
    return {message.id, message.title, {}, message.body};
}

QString phoneOf(const Prospect &contact) { return contact.phone; }
bool hasPhone(const Prospect &contact) { return !contact.phone.isEmpty(); }
void setPhone(Prospect &contact, const QString &phone) { contact.phone = phone; }

/// However the number is written.
bool sharePhone(const Prospect &one, const Prospect &other)
{
    constexpr qsizetype significant = 9; // of a French number, without 0 or 33
    return normalizePhone(one.phone).right(significant) ==
           normalizePhone(other.phone).right(significant);
}

QString addressOf(const Prospect &contact) { return contact.email.value_or(QString()); }
bool hasValidAddress(const Prospect &contact) { return validEmail(addressOf(contact)).has_value(); }
void setAddress(Prospect &contact, const QString &address) { contact.email = address; }

bool shareAddress(const Prospect &one, const Prospect &other)
{
    return addressOf(one).compare(addressOf(other), Qt::CaseInsensitive) == 0;
}

ChannelRecords sms()
{
    return {.channel = Channel::sms,
            .name = u"sms"_s,
            .statuses = Collection::statuses,
            .templates = Collection::messageTemplates,
            .assignments = Collection::messageAssignments,
            .monthly = ChannelCount{Collection::smsMonthlyRecipientsByMonth,
                                    &ProspectStore::recordSMSRecipientUsage},
            .defaultTemplate = defaultSMS(),
            .hasSubject = false,
            .reach = {phoneOf, hasPhone, setPhone, sharePhone},
            .words = {u"SMS"_s, u"SMS"_s, u"SMS"_s, u"de SMS"_s, u"de SMS"_s}};
}

ChannelRecords email()
{
    return {.channel = Channel::email,
            .name = u"email"_s,
            .statuses = Collection::emailStatuses,
            .templates = Collection::emailTemplates,
            .assignments = Collection::emailAssignments,
            .monthly = {},
            .defaultTemplate = defaultEmailTemplate(),
            .hasSubject = true,
            .reach = {addressOf, hasValidAddress, setAddress, shareAddress},
            .words = {u"E-mail"_s, u"E-mails"_s, u"e-mail"_s, u"d’e-mail"_s, u"d’e-mails"_s, 2}};
}

} // namespace

const ChannelRecords &channelRecords(Channel channel)
{
    static const std::array all{sms(), email()};
    static_assert(std::tuple_size_v<decltype(all)> == allChannels.size());
    return all[std::size_t(channel)];
}

} // namespace quenoria
