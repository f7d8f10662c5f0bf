#include "model/contact_rules.h"
#include "model/large_area.h"
#include "store/prospect_store.h"
#include "store/store_state.h"
#include "store/twins.h"

#include <QRegularExpression>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

std::optional<QString> decodeUtf8(const QByteArray &bytes)
{
    QStringDecoder decode(QStringDecoder::Utf8);
    QString text = decode(bytes);
    return decode.hasError() ? std::nullopt : std::optional(std::move(text));
}

/// The text before each of the first three tabs, then all the rest.
QStringList fieldsOfLine(const QString &line)
{
    constexpr int most = 4;
    QStringList fields = line.split(u'\t');
    if (fields.size() > most) {
        const QString rest = fields.sliced(most - 1).join(u'\t');
        fields = fields.first(most - 1);
        fields << rest;
    }
    return fields;
}

QString departmentInLabel(const QString &label)
{
    static const QRegularExpression pattern(uR"(\((\d{2,3}|2A|2B)\))"_s,
                                            QRegularExpression::UseUnicodePropertiesOption);
    return pattern.match(label).captured(1);
}

std::optional<Prospect> builtInContact(const QString &line)
{
    const QStringList fields = fieldsOfLine(line);
    if (fields.size() < 2)
        return std::nullopt;
    Prospect prospect;
    prospect.id = normalizePhone(fields[1]);
    prospect.label = fields[0];
    prospect.phone = fields[1];
    prospect.email = validEmail(fields.value(2));
    prospect.department = departmentInLabel(fields[0]);
    if (const QString profession = fields.value(3).trimmed(); !profession.isEmpty())
        prospect.profession = profession;
    return prospect;
}

} // namespace

std::vector<Prospect> ProspectStore::loadProspects(const Resources &resources)
{
    static const QRegularExpression lineBreak(u"[\\n\\r\\x0B\\x0C\\x{85}\\x{2028}\\x{2029}]"_s);
    std::vector<Prospect> prospects;
    const auto bytes = resources.read(u"prospects"_s, u"tsv"_s);
    const auto text = bytes ? decodeUtf8(*bytes) : std::nullopt;
    if (!text)
        return prospects;
    for (const QString &line : text->split(lineBreak, Qt::SkipEmptyParts)) {
        if (auto prospect = builtInContact(line))
            prospects.push_back(std::move(*prospect));
    }
    return prospects;
}

const std::vector<Prospect> &ProspectStore::allProspects() const
{
    return m_state.contacts().mergedList();
}

const std::vector<Prospect> &StoreState::mergedList()
{
    if (mergedIsCurrent)
        return merged;
    merged.clear();
    merged.reserve(prospects.size() + customProspects.size());
    expectFilling(merged);
    for (const Prospect &prospect : prospects) {
        if (!deletedProspectIDs.contains(prospect.id))
            merged.push_back(effective(prospect));
    }
    customProspects.forEach(
        [this](const Prospect &prospect) { merged.push_back(effective(prospect)); });

    indexOfMerged.reset();
    mergedIsCurrent = true;
    return merged;
}

const StoreState::MergedIndex &StoreState::mergedIndex()
{
    (void)mergedList();
    if (indexOfMerged)
        return *indexOfMerged;
    const auto idAt = [this](quint32 place) -> const QString & { return merged[place].id; };
    MergedIndex index;
    index.firstPlaces.reserve(merged.size(), idAt);
    for (quint32 place = 0; place < merged.size(); ++place) {
        const QString &id = merged[place].id;
        if (index.firstPlaces.insertNew(place, idAt) != KeyIndex::none)
            index.idsAreShared = true;
        else if (isTwin(id))
            index.twinsByFirst[firstId(id)] << id;
    }
    for (auto &[first, ids] : index.twinsByFirst) {
        if (index.firstPlaces.find(first, idAt) != KeyIndex::none)
            ids.prepend(first);
    }
    return indexOfMerged.emplace(std::move(index));
}

const Prospect *ProspectStore::prospect(const QString &id) const
{
    const std::vector<Prospect> &all = allProspects();
    const quint32 place = m_state.contacts().mergedIndex().firstPlaces.find(
        id, [&all](quint32 at) -> const QString & { return all[at].id; });
    return place == KeyIndex::none ? nullptr : &all[place];
}

Prospect StoreState::effective(const Prospect &prospect) const
{
    Prospect shown = prospect;
    if (const ContactOverride *edited = contactOverrides.find(prospect.id)) {
        shown.label = edited->label;
        shown.phone = edited->phone;
        shown.email = edited->email;
        shown.department = edited->department;
        if (edited->profession)
            shown.profession = edited->profession;
    } else if (const QString *address = emailOverrides.find(prospect.id);
               address && !address->isEmpty()) {
        shown.email = *address;
    }
    return shown;
}

} // namespace quenoria
