#include "ui/table/contact_columns.h"

#include "model/local_time.h"
#include "model/sequence.h"
#include "model/text_order.h"
#include "ui/channels/channel_descriptor.h"
#include "ui/table/channel_columns.h"
#include "ui/table/tick_columns.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QString label(const Cell &cell) { return cell.contact.label; }

ContactMark mark(const Cell &cell)
{
    if (cell.store.isStopped(cell.contact))
        return ContactMark::stopped;
    return isSentOnAnyChannel(cell) ? ContactMark::sent : ContactMark::none;
}

/// A contact without a department has nothing to name.
QString department(const Cell &cell)
{
    const QString &code = cell.contact.department;
    return code.isEmpty() ? QString() : u"%1 (%2)"_s.arg(cell.store.departmentName(code), code);
}

QString departmentTexts(const Cell &cell)
{
    const QString &code = cell.contact.department;
    return code + textSeparator + cell.store.departmentName(code);
}

SortValue departmentCode(const Cell &cell) { return cell.contact.department; }

QString profession(const Cell &cell) { return cell.contact.profession.value_or(QString()); }

QString attachmentName(const Cell &cell)
{
    return cell.store.attachmentName(cell.contact).value_or(QString());
}

QVariant attachmentPath(const Cell &cell) { return cell.store.attachmentPath(cell.contact); }

void attach(const Cell &cell, const QVariant &path)
{
    cell.store.setAttachment(path.toString(), cell.contact);
}

QString attachmentWarning(const Cell &cell)
{
    return attachmentIsMissing(cell)
               ? u"Le fichier a été déplacé ou supprimé. Choisissez-le à nouveau."_s
               : QString();
}

CellButtons attachmentButtons(const Cell &cell)
{
    const QString choose = u"Choisir un fichier joint"_s;
    if (attachmentName(cell).isEmpty())
        return {{RowAction::chooseAttachment, choose, choose, u"paperclip"_s}};
    CellButtons buttons{
        {RowAction::removeAttachment, u"Retirer le fichier joint"_s, {}, u"xmark"_s}};
    if (attachmentIsMissing(cell))
        buttons.prepend({RowAction::chooseAttachment, choose, {}, u"paperclip"_s});
    return buttons;
}

QString emailAddress(const Cell &cell) { return cell.contact.email.value_or(QString()); }
QString phone(const Cell &cell) { return cell.contact.phone; }
SortValue contactID(const Cell &cell) { return cell.contact.id; }

/// A contact that was only stopped or commented has a record, and no send in it.
bool wasSent(const Cell &cell) { return !cell.store.sendHistory(cell.contact).empty(); }

/// Editing starts from now where nothing was sent.
QVariant lastDate(const Cell &cell)
{
    return localDateTime(wasSent(cell) ? cell.store.status(cell.contact)->sentAt
                                       : cell.state.clock.now(),
                         cell.state.zone);
}

QString lastDateText(const Cell &cell)
{
    if (!wasSent(cell))
        return {};
    return displayLocale().toString(lastDate(cell).toDateTime(), u"dd/MM/yyyy HH:mm"_s);
}

/// The typed day and time are the user's: they only become an instant in the user's zone.
void setLastDate(const Cell &cell, const QVariant &typed)
{
    const QDateTime local = typed.toDateTime();
    const QDateTime date(local.date(), local.time(), cell.state.zone);
    cell.store.setDate(Instant(std::chrono::milliseconds(date.toMSecsSinceEpoch())), cell.contact);
}

SortValue lastSend(const Cell &cell)
{
    const SendStatus *status = cell.store.status(cell.contact);
    return status ? status->sentAt : Instant::min();
}

CellButtons historyButton(const Cell &cell)
{
    return {{RowAction::showHistory, u"Voir tout l’historique des envois"_s,
             QString::number(cell.store.sendHistory(cell.contact).size()),
             u"clock.arrow.circlepath"_s}};
}

QString comment(const Cell &cell)
{
    const SendStatus *status = cell.store.status(cell.contact);
    return status ? status->comment.value_or(QString()) : QString();
}

QVariant commentValue(const Cell &cell) { return comment(cell); }

void setComment(const Cell &cell, const QVariant &text)
{
    cell.store.setComment(text.toString(), cell.contact);
}

ContactColumn nameColumn()
{
    return {.header = u"Contact",
            .width = 680,
            .sort = SortColumn::name,
            .text = label,
            .mark = mark,
            .searched = label,
            .namesContact = true};
}

ContactColumn departmentColumn()
{
    return {.header = u"Département",
            .width = 160,
            .sort = SortColumn::department,
            .text = department,
            .key = departmentCode,
            .searched = departmentTexts};
}

ContactColumn professionColumn()
{
    return {.header = u"Métier",
            .width = 100,
            .sort = SortColumn::profession,
            .text = profession,
            .searched = profession};
}

ContactColumn attachmentColumn()
{
    return {.header = u"Fichier joint",
            .width = 220,
            .kind = CellKind::buttons,
            .sort = SortColumn::attachment,
            .text = attachmentName,
            .value = attachmentPath,
            .edit = attach,
            .buttons = attachmentButtons,
            .warning = attachmentWarning,
            .searched = attachmentName,
            .followsDisk = true,
            .undoable = true};
}

ContactColumn emailColumn()
{
    return {.header = u"Adresse e-mail",
            .width = 230,
            .sort = SortColumn::email,
            .text = emailAddress,
            .searched = emailAddress};
}

ContactColumn phoneColumn()
{
    return {.header = u"Mobile",
            .width = 125,
            .sort = SortColumn::phone,
            .text = phone,
            .key = contactID,
            .searched = phone};
}

ContactColumn dateColumn()
{
    return {.header = u"Dates et heures d’envoi",
            .width = 230,
            .kind = CellKind::date,
            .sort = SortColumn::date,
            .text = lastDateText,
            .value = lastDate,
            .edit = setLastDate,
            .key = lastSend,
            .buttons = historyButton,
            .placeholder = u"Aucune date",
            .tellsOfSends = true};
}

ContactColumn commentColumn()
{
    return {.header = u"Commentaire",
            .width = 250,
            .kind = CellKind::field,
            .sort = SortColumn::comment,
            .text = comment,
            .value = commentValue,
            .edit = setComment,
            .placeholder = u"Ajouter un commentaire",
            .searched = comment,
            .undoable = true,
            .tellsOfSends = true};
}

std::vector<ContactColumn> allColumns()
{
    std::vector<ContactColumn> all{deletionColumn()};
    for (const ChannelDescriptor *channel : channels()) {
        all.push_back(selectionColumn(*channel));
        all.push_back(sentColumn(*channel));
    }
    for (const auto &column : {stopColumn, nameColumn, departmentColumn, professionColumn})
        all.push_back(column());
    for (const ChannelDescriptor *channel : channels())
        all.push_back(templateColumn(*channel));
    for (const auto &column :
         {attachmentColumn, emailColumn, phoneColumn, dateColumn, commentColumn, actionsColumn})
        all.push_back(column());
    return all;
}

} // namespace

bool attachmentIsMissing(const Cell &cell)
{
    if (attachmentName(cell).isEmpty())
        return false;
    auto found = cell.state.attachmentsFound.constFind(cell.contact.id);
    if (found == cell.state.attachmentsFound.cend())
        found = cell.state.attachmentsFound.insert(cell.contact.id,
                                                   cell.store.attachmentExists(cell.contact));
    return !*found;
}

std::span<const ContactColumn> contactColumns()
{
    static const std::vector<ContactColumn> columns = allColumns();
    return columns;
}

int tableContentWidth()
{
    const auto wider = [](int sum, const ContactColumn &column) { return sum + column.width; };
    const auto columns = contactColumns();
    return std::accumulate(columns.begin(), columns.end(), 0, wider);
}

int columnOf(SortColumn column)
{
    const auto sorts = [column](const ContactColumn &entry) { return entry.sort == column; };
    const auto columns = contactColumns();
    return int(std::ranges::find_if(columns, sorts) - columns.begin());
}

std::vector<int> columnsThat(bool ContactColumn::*property)
{
    std::vector<int> found;
    const auto columns = contactColumns();
    for (std::size_t column = 0; column < columns.size(); ++column) {
        if (columns[column].*property)
            found.push_back(int(column));
    }
    return found;
}

SortValue sortValue(const ContactColumn &column, const Cell &cell)
{
    if (column.key)
        return column.key(cell);
    if (column.text)
        return column.text(cell);
    return column.value(cell).toBool();
}

} // namespace quenoria
