#include "model/contact_rules.h"
#include "store/prospect_store.h"
#include "store/store_state.h"
#include "store/twins.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int shortestPhone = 10;

const QString needsPhoneOrEmail =
    u"Saisissez un numéro de téléphone ou une adresse e-mail valide."_s;
const QString invalidPhone = u"Le numéro de téléphone n’est pas valide."_s;
const QString invalidEmail = u"L’adresse e-mail n’est pas valide."_s;
const QString alreadyListed = u"Ce contact existe déjà dans la liste."_s;
const QString needsName = u"Saisissez le nom de l’entreprise ou du contact."_s;
const QString belongsToAnother =
    u"Ce mobile ou cette adresse e-mail appartient déjà à un autre contact."_s;

bool isComplete(const QString &digits) { return characterCount(digits) >= shortestPhone; }

Refusal checkReachable(const QString &digits, const std::optional<QString> &email)
{
    if (!isComplete(digits) && !email)
        return needsPhoneOrEmail;
    if (!digits.isEmpty() && !isComplete(digits))
        return invalidPhone;
    return {};
}

std::optional<QString> textOrNothing(const QString &typed)
{
    const QString text = typed.trimmed();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

bool sameReach(const Prospect &other, const QString &digits, const std::optional<QString> &email)
{
    if (!digits.isEmpty() && normalizePhone(other.phone) == digits)
        return true;
    return email && other.email && other.email->compare(*email, Qt::CaseInsensitive) == 0;
}

} // namespace

Refusal ProspectStore::add(const QString &name, const QString &phone, const QString &email,
                           const QString &department, const QString &profession)
{
    const QString digits = normalizePhone(phone);
    const auto address = validEmail(email);
    if (Refusal refusal = checkReachable(digits, address))
        return refusal;
    const QString id = isComplete(digits) ? digits : u"email:"_s + *address;
    if (this->prospect(id))
        return alreadyListed;
    Prospect contact;
    contact.id = id;
    contact.label = u"%1 — AJOUT MANUEL (%2)"_s.arg(
        textOrNothing(name).value_or(u"NOUVEAU CONTACT"_s).toUpper(), department);
    contact.phone = formatPhone(digits);
    contact.email = address;
    contact.department = department;
    contact.isCustom = true;
    contact.profession = textOrNothing(profession);
    m_state->customProspects.append(std::move(contact));
    m_state->publish(Collection::customProspects);
    return {};
}

Refusal ProspectStore::update(const Prospect &prospect, const ContactEdit &edit)
{
    if (edit.name.trimmed().isEmpty())
        return needsName;
    const QString digits = normalizePhone(edit.phone);
    const auto address = validEmail(edit.email);
    if (Refusal refusal = checkReachable(digits, address))
        return refusal;
    if (!edit.email.trimmed().isEmpty() && !address)
        return invalidEmail;
    const QString id = prospect.id; // publishing rebuilds the list that the contact may come from
    for (const Prospect &other : allProspects()) {
        if (firstId(other.id) != firstId(id) && sameReach(other, digits, address))
            return belongsToAnother;
    }
    const QString shownPhone = formatPhone(digits);
    m_state->contactOverrides.set(
        id, {contactLabel(edit.name.trimmed(), edit.commune.trimmed(), edit.department, shownPhone),
             shownPhone, address, edit.department, textOrNothing(edit.profession)});
    m_state->publish(Collection::contactOverrides, {id});
    m_state->emailOverrides.remove(id);
    m_state->publish(Collection::emailOverrides, {id});
    return {};
}

/// A backup of before they asked for no message must not bring consent back once no newer one
/// knows better.
void StoreState::rememberStopsOf(const IdSet &ids)
{
    IdSet keys;
    for (const QString &id : ids) {
        if (const Prospect *contact = store.prospect(id); contact && store.isStopped(*contact))
            keys.merge(keysOf(*contact));
    }
    if (!keys.empty())
        doNotContact.addDeletedStops(keys);
}

/// Takes whatever is kept about the contacts out of the collections and the selections.
void StoreState::forget(const IdSet &ids)
{
    std::map<int, const CollectionDescriptor *> turns;
    for (const CollectionDescriptor &row : collections()) {
        if (row.deletionTurn > 0)
            turns[row.deletionTurn] = &row;
    }
    for (const auto &[turn, row] : turns) {
        row->forget(*this, ids);
        publish(row->collection, ids);
    }
    for (const Channel channel : allChannels) {
        for (const QString &id : ids)
            selection(channel).erase(id);
        announce(SelectionChanged{channel, ids});
    }
}

int ProspectStore::deleteProspects(const IdSet &ids)
{
    IdSet targets;
    for (const QString &id : ids) {
        if (this->prospect(id))
            targets.insert(id);
    }
    if (targets.empty())
        return 0;
    Q_EMIT aboutToSweep();
    m_state->rememberStopsOf(targets);
    for (const Prospect &prospect : m_state->prospects) {
        if (targets.contains(prospect.id))
            m_state->deletedProspectIDs.insert(prospect.id);
    }
    m_state->publish(Collection::deletedProspectIDs);
    m_state->customProspects.removeIf(
        [&targets](const Prospect &prospect) { return targets.contains(prospect.id); });
    m_state->publish(Collection::customProspects);
    m_state->forget(targets);
    return int(targets.size());
}

} // namespace quenoria
