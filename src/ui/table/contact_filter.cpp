#include "ui/table/contact_filter.h"

#include "model/local_time.h"
#include "model/text_order.h"

#include <QDateTime>
#include <QLocale>

#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::array<ContactTrait, traitCount> traitTable{
    ContactTrait{u"Jamais contactés",
                 [](const Cell &cell) { return !cell.store.lastContact(cell.contact); }},
    ContactTrait{u"STOP", [](const Cell &cell) { return cell.store.isStopped(cell.contact); }},
    ContactTrait{u"Avec fichier manquant", attachmentIsMissing, true},
    ContactTrait{u"Sans mobile", [](const Cell &cell) { return cell.contact.phone.isEmpty(); }},
    ContactTrait{u"Sans e-mail",
                 [](const Cell &cell) { return cell.contact.email.value_or(QString()).isEmpty(); }},
};

bool isAmong(const IdSet &wanted, const QString &text)
{
    return wanted.empty() || wanted.contains(text);
}

/// What is asked of the disk comes last, for those contacts only of whom everything else holds.
bool holdsOnDisk(const Traits &wanted, const Cell &cell)
{
    for (std::size_t trait = 0; trait < traitCount; ++trait) {
        if (wanted[trait] && traitTable[trait].followsDisk && !traitTable[trait].holds(cell))
            return false;
    }
    return true;
}

Traits diskTraits()
{
    Traits traits;
    for (std::size_t trait = 0; trait < traitCount; ++trait)
        traits[trait] = traitTable[trait].followsDisk;
    return traits;
}

} // namespace

std::span<const ContactTrait> contactTraits() { return traitTable; }

FilteredBy FilteredBy::of(const Cell &cell)
{
    FilteredBy known{.traits = {}, .lastContact = cell.store.lastContact(cell.contact)};
    for (std::size_t trait = 0; trait < traitCount; ++trait)
        known.traits[trait] = !traitTable[trait].followsDisk && traitTable[trait].holds(cell);
    return known;
}

bool ContactFilter::accepts(const Cell &cell, const FilteredBy &known) const
{
    static const Traits onDisk = diskTraits();
    const Traits asked = traits & ~onDisk;
    return (known.traits & asked) == asked &&
           (!contactedSince || (known.lastContact && *known.lastContact >= *contactedSince)) &&
           isAmong(departments, cell.contact.department) &&
           isAmong(professions,
                   professions.empty() ? QString() : cell.contact.profession.value_or(QString())) &&
           ((traits & onDisk).none() || holdsOnDisk(traits, cell));
}

QStringList ContactFilter::inWords(const ProspectStore &store, const QTimeZone &zone) const
{
    QStringList words;
    for (std::size_t trait = 0; trait < traitCount; ++trait) {
        if (traits[trait])
            words << QString::fromUtf16(traitTable[trait].name);
    }
    for (const QString &code : departments)
        words << (code.isEmpty() ? u"sans département"_s
                                 : u"%1 (%2)"_s.arg(store.departmentName(code), code));
    for (const QString &profession : professions)
        words << (profession.isEmpty() ? u"sans métier"_s : profession);
    if (contactedSince) {
        const QDate day = localDateTime(*contactedSince, zone).date();
        words << u"contactés depuis le "_s + displayLocale().toString(day, u"dd/MM/yyyy"_s);
    }
    return words;
}

} // namespace quenoria
