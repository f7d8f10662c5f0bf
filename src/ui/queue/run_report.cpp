#include "ui/queue/run_report.h"

#include <algorithm>
#include <array>
#include <set>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

using Kind = ContactOutcome::Kind;

struct Wording {
    Kind kind;
    QString one;
    QString many;
};

const std::array<Wording, 5> wordings{{
    {Kind::sent, u"envoyé"_s, u"envoyés"_s},
    {Kind::skipped, u"ignoré"_s, u"ignorés"_s},
    {Kind::refused, u"refusé"_s, u"refusés"_s},
    {Kind::inDoubt, u"en doute"_s, u"en doute"_s},
    {Kind::pending, u"en attente"_s, u"en attente"_s},
}};

QString firstSentence(const QString &text)
{
    const qsizetype end = text.indexOf(u". "_s);
    return (end < 0 ? text : text.left(end)).trimmed();
}

/// "2 refusés (Numéro refusé)", with the reason where all share it.
QString part(const std::vector<ContactOutcome> &contacts, const Wording &wording)
{
    int count = 0;
    std::set<QString> reasons;
    for (const ContactOutcome &contact : contacts) {
        if (contact.kind != wording.kind)
            continue;
        ++count;
        reasons.insert(firstSentence(contact.words));
    }
    if (count == 0)
        return {};
    const QString text =
        u"%1 %2"_s.arg(QString::number(count), count > 1 ? wording.many : wording.one);
    const QString reason = reasons.size() == 1 ? *reasons.begin() : QString();
    return reason.isEmpty() ? text : u"%1 (%2)"_s.arg(text, reason);
}

} // namespace

QString inWords(ContactOutcome::Kind kind)
{
    return std::ranges::find(wordings, kind, &Wording::kind)->one;
}

bool RunReport::isWorthTelling() const
{
    return std::ranges::any_of(
        contacts, [](const ContactOutcome &contact) { return contact.kind != Kind::pending; });
}

QString RunReport::summary() const
{
    QStringList parts;
    for (const Wording &wording : wordings)
        parts << part(contacts, wording);
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

void RunLog::note(const QueueEvent &event, QueueAction action, const Prospect &contact)
{
    const auto *prepared = std::get_if<PrepareAnswered>(&event);
    const auto *settled = std::get_if<DoubtSettled>(&event);
    if (prepared && prepared->refusal)
        set(contact, Kind::refused, *prepared->refusal);
    else if (action == QueueAction::record || (settled && settled->left))
        set(contact, Kind::sent);
    else if (std::holds_alternative<Skipped>(event) && action == QueueAction::deselect)
        set(contact, Kind::skipped);
    else if (settled)
        m_entries.remove(contact.id);
    else if (const auto *answered = std::get_if<SendAnswered>(&event))
        note(answered->outcome, contact);
}

void RunLog::note(const SendOutcome &outcome, const Prospect &contact)
{
    if (std::holds_alternative<Sent>(outcome))
        set(contact, Kind::sent);
    else if (const auto *doubt = std::get_if<InDoubt>(&outcome))
        set(contact, Kind::inDoubt, doubt->message);
    else if (const auto *refused = std::get_if<Refused>(&outcome); refused && refused->message)
        set(contact, Kind::refused, *refused->message);
}

void RunLog::notePassedOver(const Prospect &contact, const QString &servedAs)
{
    set(contact, Kind::skipped, u"Déjà servi sous un autre nom : "_s + servedAs);
}

RunReport RunLog::report(const QString &title, const std::vector<ContactOutcome> &pending) const
{
    std::vector<const Entry *> entries;
    for (const Entry &entry : m_entries)
        entries.push_back(&entry);
    std::ranges::sort(entries, {}, &Entry::turn);
    RunReport report{title, {}};
    for (const Entry *entry : entries)
        report.contacts.push_back(entry->outcome);
    std::ranges::copy_if(
        pending, std::back_inserter(report.contacts),
        [this](const ContactOutcome &contact) { return !m_entries.contains(contact.id); });
    return report;
}

void RunLog::set(const Prospect &contact, Kind kind, const QString &words)
{
    m_entries.insert(contact.id, {m_turns++, {contact.id, contact.label, kind, words}});
}

} // namespace quenoria
