#include "model/sms_length.h"
#include "ui/kit/switches.h"
#include "ui/queue/batch_queue.h"

using namespace Qt::StringLiterals;

// What the queue tells of itself.
namespace quenoria {

namespace {

/// "dans 7 s"; empty when nothing is waited for.
QString inWords(int seconds)
{
    if (seconds == 0)
        return {};
    return seconds > 60 ? u"dans %1 min"_s.arg((seconds + 59) / 60) : u"dans %1 s"_s.arg(seconds);
}

} // namespace

QString BatchQueue::primaryText() const
{
    if (isRunning())
        return u"Envoi automatique…"_s;
    return isAutomatic() ? m_channel.automatic->start : m_channel.queue.prepare;
}

QString BatchQueue::progressText() const
{
    return u"Contact %1 sur %2"_s.arg(m_state.completedCount + 1).arg(m_state.initialQueueCount);
}

QString BatchQueue::allowanceText() const
{
    const Allowance &allowance = *m_channel.allowance;
    if (m_switches.isOn(allowance.lifted.which))
        return u"Sans limite"_s;
    return u"%1/%2 ce mois"_s.arg((m_store.*allowance.used)()).arg(allowance.limit);
}

bool BatchQueue::isAllowanceUsedUp() const
{
    const Allowance &allowance = *m_channel.allowance;
    return !m_switches.isOn(allowance.lifted.which) && allowance.isReached(m_store);
}

QString BatchQueue::runText() const
{
    const QString pace = m_channel.pace.notice ? m_channel.pace.notice(m_desk) : QString();
    const QString wait = inWords(m_countdown.seconds());
    QStringList parts;
    if (!pace.isEmpty())
        parts << pace + (wait.isEmpty() ? u"."_s : u", %1."_s.arg(wait));
    else
        parts << u"Envoi automatique en cours…"_s;
    if (!isAutomatic() && wait.isEmpty())
        parts << u"La file s’arrête après ce contact."_s;
    else if (pace.isEmpty() && !wait.isEmpty())
        parts << u"prochain %1 %2"_s.arg(m_channel.noun, wait);
    parts << m_desk.progress().text();
    return parts.join(u' ').trimmed();
}

QString BatchQueue::costText() const
{
    QHash<QString, int> partsOf; // most contacts get the same few texts
    int contacts = 0, parts = 0;
    for (const QString &id : m_state.queueIDs) {
        const Prospect *contact = m_store.prospect(id);
        if (!contact)
            continue;
        const QString body = m_channel.queue.message(m_store, *contact).body;
        auto known = partsOf.constFind(body);
        if (known == partsOf.cend())
            known = partsOf.insert(body, smsLength(body).parts);
        ++contacts;
        parts += *known;
    }
    return u"%1 contact%2 · %3 SMS"_s.arg(contacts).arg(contacts > 1 ? u"s"_s : u""_s).arg(parts);
}

QString BatchQueue::heldText() const
{
    constexpr qsizetype most = 3;
    QStringList labels;
    for (const QString &id : m_state.heldIDs) {
        if (const Prospect *contact = m_store.prospect(id))
            labels << contact->label;
    }
    if (labels.isEmpty())
        return {};
    const qsizetype others = labels.size() - most;
    if (others > 0) {
        labels.resize(most);
        labels << u"et %1 autre%2"_s.arg(QString::number(others), others > 1 ? u"s"_s : u""_s);
    }
    return u"Laissé de côté jusqu’à votre décision, car sa réponse dit STOP : "_s +
           labels.join(u", "_s);
}

RunReport BatchQueue::report() const
{
    std::vector<ContactOutcome> pending;
    for (const QString &id : m_state.queueIDs + m_state.heldIDs) {
        const Prospect *contact = m_store.prospect(id);
        if (!contact)
            continue;
        const bool isHeld = m_state.heldIDs.contains(id);
        pending.push_back({id, contact->label, ContactOutcome::Kind::pending,
                           isHeld ? u"Sa réponse dit STOP"_s : QString()});
    }
    return m_log.report(m_channel.queue.title, pending);
}

} // namespace quenoria
