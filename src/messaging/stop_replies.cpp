#include "messaging/stop_replies.h"

#include "messaging/messages_script.h"
#include "model/stop_reply.h"
#include "store/collection.h"
#include "store/prospect_store.h"

#include <QCryptographicHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString onKey = u"ReponsesSTOP"_s;
const QString decidedKey = u"ReponsesSTOPTraitees"_s;
constexpr qsizetype mostRemembered = 500;

/// Tells messages apart without telling whose they are or what they say.
QString fingerprint(const ReceivedMessage &message)
{
    constexpr qsizetype length = 16;
    const QString whole = message.number + u' ' +
                          QString::number(message.date.time_since_epoch().count()) + u' ' +
                          message.text;
    const QByteArray hash = QCryptographicHash::hash(whole.toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex().first(length));
}

QStringList decided(const Preferences &preferences)
{
    return preferences.text(decidedKey).value_or(QString()).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

StopReplies::StopReplies(ProspectStore &store, const Platform &platform)
    : m_store(store), m_platform(platform)
{
    connect(&platform.carriers, &Carriers::received, this, &StopReplies::take);
    connect(&store, &ProspectStore::published, this, [this](const Change &change) {
        std::visit(Following{[this](const ContactsChanged &changed) {
                                 if (changed.collection != Collection::statuses)
                                     return;
                                 noteWritten(changed.ids);
                                 refresh();
                             },
                             [this](const ListReshaped &) {
                                 m_written.reset();
                                 refresh();
                             },
                             Ignoring<SelectionChanged, TemplatesChanged, DepartmentsChanged,
                                      QuotaChanged, TestNumberChanged>()},
                   change);
    });
    readAgain();
}

StopReplies::~StopReplies() { m_platform.carriers.listen({}); }

bool StopReplies::isOn() const { return m_platform.preferences.flag(onKey).value_or(false); }

void StopReplies::setOn(bool on)
{
    if (on == isOn())
        return;
    m_platform.preferences.setFlag(onKey, on);
    m_replies.clear();
    m_waiting.clear();
    m_platform.carriers.listen({});
    readAgain();
    Q_EMIT changed();
}

void StopReplies::readAgain()
{
    if (isOn())
        m_platform.carriers.listen(
            [this](const QString &number, Instant date) { return mayRead(number, date); });
}

bool StopReplies::isWaiting(const Prospect &contact) const
{
    if (m_waiting.empty() || contact.phone.isEmpty())
        return false;
    const QString handle = messagingHandle(contact.phone);
    return std::ranges::any_of(
        m_waiting, [&](const StopReply &reply) { return reply.message.number == handle; });
}

/// By the store's own rules on phones, and as long as somebody there still gets messages.
bool StopReplies::mayRead(const QString &number, Instant date) const
{
    const std::vector<const Prospect *> contacts = contactsAt(messagingHandle(number));
    const auto wroteBefore = [this, date](const Prospect *contact) {
        const std::vector<Instant> sent = m_store.sendHistory(*contact);
        return !sent.empty() && std::ranges::min(sent) < date;
    };
    const auto getsMessages = [this](const Prospect *contact) {
        return !m_store.isStopped(*contact);
    };
    return std::ranges::any_of(contacts, wroteBefore) &&
           std::ranges::any_of(contacts, getsMessages);
}

void StopReplies::take(const ReceivedMessage &message)
{
    if (!isOn() || !asksToStop(message.text) || !mayRead(message.number, message.date))
        return;
    ReceivedMessage reply = message;
    reply.number = messagingHandle(message.number);
    const bool isKnown = std::ranges::find(m_replies, reply) != m_replies.end();
    if (isKnown || decided(m_platform.preferences).contains(fingerprint(reply)))
        return;
    m_replies.insert(std::ranges::upper_bound(m_replies, reply.date, {}, &ReceivedMessage::date),
                     reply);
    refresh();
}

void StopReplies::markStopped(const ReceivedMessage &message)
{
    std::vector<Prospect> there; // also those who were never written to
    std::ranges::copy_if(
        m_store.allProspects(), std::back_inserter(there),
        [&](const Prospect &contact) { return messagingHandle(contact.phone) == message.number; });
    for (const Prospect &contact : there) {
        if (!m_store.isStopped(contact))
            m_store.setStopped(true, contact);
    }
    if (m_store.unsaved().contains(Collection::statuses))
        return; // should the mark be lost, the reply comes back
    std::vector<ReceivedMessage> answered = m_replies;
    std::erase_if(answered,
                  [&](const ReceivedMessage &each) { return each.number != message.number; });
    settle(answered);
}

void StopReplies::ignore(const ReceivedMessage &message) { settle({message}); }

void StopReplies::settle(const std::vector<ReceivedMessage> &messages)
{
    QStringList words = decided(m_platform.preferences);
    for (const ReceivedMessage &message : messages) {
        words << fingerprint(message);
        std::erase(m_replies, message);
    }
    words = words.last(std::min(words.size(), mostRemembered));
    m_platform.preferences.setText(decidedKey, words.join(u' '));
    refresh();
}

/// What waits, as the list stands now.
void StopReplies::refresh()
{
    std::vector<StopReply> waiting;
    for (const ReceivedMessage &reply : m_replies) {
        QStringList labels;
        for (const Prospect *contact : contactsAt(reply.number)) {
            if (!m_store.isStopped(*contact))
                labels << contact->label;
        }
        if (!labels.isEmpty())
            waiting.push_back({labels.join(u" · "_s), reply});
    }
    if (waiting == m_waiting)
        return;
    m_waiting = std::move(waiting);
    Q_EMIT changed();
}

/// Those of the list that the number belongs to and that have a record.
std::vector<const Prospect *> StopReplies::contactsAt(const QString &handle) const
{
    if (!m_written) {
        m_written.emplace();
        for (const Prospect &contact : m_store.allProspects())
            index(contact);
    }
    std::vector<const Prospect *> contacts;
    for (const QString &id : m_written->value(handle)) {
        if (const Prospect *contact = m_store.prospect(id))
            contacts.push_back(contact);
    }
    return contacts;
}

void StopReplies::noteWritten(const IdSet &ids)
{
    if (!m_written)
        return;
    for (const QString &id : ids) {
        if (const Prospect *contact = m_store.prospect(id))
            index(*contact);
    }
}

/// Whoever has a record may have been written to; the record itself is looked at when it counts.
void StopReplies::index(const Prospect &contact) const
{
    if (!m_store.status(contact) || contact.phone.isEmpty())
        return;
    const QString handle = messagingHandle(contact.phone);
    QStringList &ids = (*m_written)[handle];
    if (!ids.contains(contact.id))
        ids << contact.id;
}

} // namespace quenoria
