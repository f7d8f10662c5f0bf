#include "export/export_tables.h"

#include "export/contact_cells_out.h"
#include "import/contact_cells.h"
#include "import/contact_keys.h"
#include "store/channel_records.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

using enum ExportKind;

/// Titles as an import reads them; then what each channel has.
std::vector<ExportColumn> contactColumns()
{
    std::vector<ExportColumn> columns{
        {u"Département"_s, 24},    {u"Nom de l’entreprise"_s, 36}, {u"Commune"_s, 24},
        {u"Adresse e-mail"_s, 34}, {u"Téléphone mobile"_s, 18},    {u"Métier"_s, 20},
        {u"Autre numéro"_s, 18},   {u"Autre adresse"_s, 34},       {u"STOP"_s, 8}};
    for (const Channel channel : allChannels) {
        const ChannelWords &words = channelRecords(channel).words;
        columns.push_back({u"Dernier "_s + words.inText, 18, moment});
        columns.push_back({u"Nombre "_s + words.ofMany, 15 + words.extraWidth, number});
    }
    for (const Channel channel : allChannels)
        columns.push_back({u"Message "_s + channelRecords(channel).words.inText, 24});
    columns.push_back({u"Fichier joint"_s, 24});
    columns.push_back({u"Commentaire"_s, 48});
    return columns;
}

/// What is told of one contact, as it was when the export began.
struct Exported {
    Prospect contact;
    QString departmentName;
    bool isKnownByReach; ///< an import takes number and address for this contact's
    bool isStopped;
    PerChannel<std::vector<Instant>> sends;
    PerChannel<QString> messages;
    QString attachment, comment;
};

/// What an import would know the contact by, if it reads its number and its address at all.
bool isFoundAgain(const Prospect &contact, const IdsByKey &ids)
{
    const auto mobile = mobileIn(contact.phone.toStdString());
    const auto email = emailIn(contact.email.value_or(QString()).toStdString());
    if (email != contact.email && !contact.email.value_or(QString()).isEmpty())
        return false;
    if (!mobile && !email)
        return contact.phone.isEmpty();
    return idOf(ids, mobile ? *mobile : u"email:"_s + *email) == contact.id;
}

ExportCell lastOf(const std::vector<Instant> &history)
{
    return history.empty() ? ExportCell() : ExportCell(std::ranges::max(history));
}

ExportCell countOf(const std::vector<Instant> &history)
{
    return history.empty() ? ExportCell() : ExportCell(int(history.size()));
}

void fillRow(const Exported &row, std::vector<ExportCell> &cells)
{
    const Prospect &contact = row.contact;
    const auto [name, town] = labelParts(contact.label);
    const QString phone = shownPhone(contact);
    const QString email = contact.email.value_or(QString());
    const bool known = row.isKnownByReach;
    cells = {departmentCell(contact.department, row.departmentName),
             name,
             town,
             known ? email : QString(),
             known ? phone : QString(),
             contact.profession.value_or(QString()),
             known ? QString() : phone,
             known ? QString() : email,
             row.isStopped ? u"oui"_s : QString()};
    for (const std::vector<Instant> &history : row.sends) {
        cells.push_back(lastOf(history));
        cells.push_back(countOf(history));
    }
    cells.insert(cells.end(), row.messages.begin(), row.messages.end());
    cells.insert(cells.end(), {row.attachment, row.comment});
}

} // namespace

ExportTable contactTable(const ProspectStore &store, const std::vector<Prospect> &contacts,
                         const QTimeZone &zone)
{
    const IdsByKey ids = idsByKey(store.allProspects());
    const auto rows = std::make_shared<std::vector<Exported>>();
    rows->reserve(contacts.size());
    for (const Prospect &contact : contacts) {
        const SendStatus *status = store.status(contact);
        Exported row{.contact = contact,
                     .departmentName = store.departmentName(contact.department),
                     .isKnownByReach = isFoundAgain(contact, ids),
                     .isStopped = store.isStopped(contact),
                     .sends = {},
                     .messages = {},
                     .attachment = store.attachmentName(contact).value_or(QString()),
                     .comment = status ? status->comment.value_or(QString()) : QString()};
        for (const Channel channel : allChannels) {
            const auto sends = store.sends(channel, contact);
            row.sends[std::size_t(channel)] = {sends.begin(), sends.end()};
            row.messages[std::size_t(channel)] = store.assignedTemplate(channel, contact).title;
        }
        rows->push_back(std::move(row));
    }
    return {.name = u"Contacts"_s,
            .columns = contactColumns(),
            .rows = rows->size(),
            .fill = [rows](std::size_t row,
                           std::vector<ExportCell> &cells) { fillRow((*rows)[row], cells); },
            .zone = zone};
}

} // namespace quenoria
