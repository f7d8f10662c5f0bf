#include "export/export_tables.h"

#include "export/contact_cells_out.h"
#include "import/contact_cells.h"
#include "import/contact_keys.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

using enum ExportKind;

const std::vector<ExportColumn> contactColumns{
    {u"Département", 24},
    {u"Nom de l’entreprise", 36},
    {u"Commune", 24},
    {u"Adresse e-mail", 34},
    {u"Téléphone mobile", 18},
    {u"Métier", 20},
    {u"Autre numéro", 18},
    {u"Autre adresse", 34},
    {u"STOP", 8},
    {u"Dernier SMS", 18, moment},
    {u"Nombre de SMS", 15, number},
    {u"Dernier e-mail", 18, moment},
    {u"Nombre d’e-mails", 17, number},
    {u"Message SMS", 24},
    {u"Message e-mail", 24},
    {u"Fichier joint", 24},
    {u"Commentaire", 48},
};

/// What is told of one contact, as it was when the export began.
struct Exported {
    Prospect contact;
    QString departmentName;
    bool isKnownByReach; ///< an import takes number and address for this contact's
    bool isStopped;
    std::vector<Instant> sms, emails;
    QString message, emailMessage, attachment, comment;
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
             row.isStopped ? u"oui"_s : QString(),
             lastOf(row.sms),
             countOf(row.sms),
             lastOf(row.emails),
             countOf(row.emails),
             row.message,
             row.emailMessage,
             row.attachment,
             row.comment};
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
        rows->push_back({.contact = contact,
                         .departmentName = store.departmentName(contact.department),
                         .isKnownByReach = isFoundAgain(contact, ids),
                         .isStopped = store.isStopped(contact),
                         .sms = store.sendHistory(contact),
                         .emails = store.emailHistory(contact),
                         .message = store.assignedMessage(contact).title,
                         .emailMessage = store.assignedEmailTemplate(contact).title,
                         .attachment = store.attachmentName(contact).value_or(QString()),
                         .comment = status ? status->comment.value_or(QString()) : QString()});
    }
    return {.name = u"Contacts"_s,
            .columns = contactColumns,
            .rows = rows->size(),
            .fill = [rows](std::size_t row,
                           std::vector<ExportCell> &cells) { fillRow((*rows)[row], cells); },
            .zone = zone};
}

} // namespace quenoria
