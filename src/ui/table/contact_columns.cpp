#include "ui/table/contact_columns.h"

#include "model/local_time.h"
#include "model/sequence.h"
#include "model/text_order.h"
#include "ui/table/tick_operations.h"

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
    if (isStopped(cell).toBool())
        return ContactMark::stopped;
    return isSent<Channel::sms>(cell).toBool() || isSent<Channel::email>(cell).toBool()
               ? ContactMark::sent
               : ContactMark::none;
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

template <typename Template>
CellChoices choicesFrom(const Sequence<Template> &templates)
{
    CellChoices choices;
    templates.forEach([&choices](const Template &entry) {
        choices << CellChoice{entry.id, entry.title};
    });
    return choices;
}

QString messageTitle(const Cell &cell) { return cell.store.assignedMessage(cell.contact).title; }
QVariant messageID(const Cell &cell) { return cell.store.assignedMessageID(cell.contact); }
CellChoices messages(const ProspectStore &store) { return choicesFrom(store.messageTemplates()); }

void assignMessage(const Cell &cell, const QVariant &id)
{
    cell.store.assignMessage(id.toString(), cell.contact);
}

QString emailTitle(const Cell &cell)
{
    return cell.store.assignedEmailTemplate(cell.contact).title;
}

QVariant emailTemplateID(const Cell &cell)
{
    return cell.store.assignedEmailTemplateID(cell.contact);
}

CellChoices emailTemplates(const ProspectStore &store)
{
    return choicesFrom(store.emailTemplates());
}

void assignEmailTemplate(const Cell &cell, const QVariant &id)
{
    cell.store.assignEmailTemplate(id.toString(), cell.contact);
}

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

CellButton sendButton(RowAction action, const QString &caption, bool isUnderWay)
{
    const QString shown = isUnderWay ? u"Envoi automatique…"_s : caption;
    return {action, shown, shown, {}, !isUnderWay};
}

CellButtons actions(const Cell &cell)
{
    const TableState &state = cell.state;
    const QString email = state.emailIsAutomatic ? u"Envoyer mail"_s : u"Préparer mail"_s;
    return {sendButton(RowAction::sendSMS, u"Préparer SMS"_s,
                       state.smsUnderWay.contains(cell.contact.id)),
            sendButton(RowAction::sendEmail, email, state.emailUnderWay.contains(cell.contact.id))};
}

constexpr ContactColumn checkColumn(const char16_t *header, int width,
                                    std::optional<SortColumn> sort, const TickOperations &ticks)
{
    return {.header = header,
            .width = width,
            .kind = CellKind::check,
            .sort = sort,
            .value = ticks.value,
            .edit = ticks.edit,
            .available = ticks.available,
            .tickMany = ticks.tickMany,
            .unreachable = ticks.unreachable,
            .keptByTable = ticks.keptByTable,
            .undoable = ticks.undoable,
            .recordsDates = ticks.recordsDates};
}

constexpr std::array columns{
    checkColumn(u"Supprimer", 95, {}, deletionTicks),
    checkColumn(u"Envoyer SMS", 85, SortColumn::selection, selectionTicks<Channel::sms>),
    checkColumn(u"SMS envoyé", 80, SortColumn::sent, sentTicks<Channel::sms>),
    checkColumn(u"Envoyer mail", 90, SortColumn::emailSelection, selectionTicks<Channel::email>),
    checkColumn(u"Mail envoyé", 85, SortColumn::emailSent, sentTicks<Channel::email>),
    checkColumn(u"STOP", 60, SortColumn::stopped, stopTicks),
    ContactColumn{.header = u"Contact",
                  .width = 680,
                  .sort = SortColumn::name,
                  .text = label,
                  .mark = mark,
                  .searched = label,
                  .namesContact = true},
    ContactColumn{.header = u"Département",
                  .width = 160,
                  .sort = SortColumn::department,
                  .text = department,
                  .key = departmentCode,
                  .searched = departmentTexts},
    ContactColumn{.header = u"Métier",
                  .width = 100,
                  .sort = SortColumn::profession,
                  .text = profession,
                  .searched = profession},
    ContactColumn{.header = u"Message SMS",
                  .width = 180,
                  .kind = CellKind::picker,
                  .sort = SortColumn::message,
                  .text = messageTitle,
                  .value = messageID,
                  .edit = assignMessage,
                  .choices = messages,
                  .searched = messageTitle,
                  .undoable = true},
    ContactColumn{.header = u"Message e-mail",
                  .width = 180,
                  .kind = CellKind::picker,
                  .sort = SortColumn::emailMessage,
                  .text = emailTitle,
                  .value = emailTemplateID,
                  .edit = assignEmailTemplate,
                  .choices = emailTemplates,
                  .searched = emailTitle,
                  .undoable = true},
    ContactColumn{.header = u"Fichier joint",
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
                  .undoable = true},
    ContactColumn{.header = u"Adresse e-mail",
                  .width = 230,
                  .sort = SortColumn::email,
                  .text = emailAddress,
                  .searched = emailAddress},
    ContactColumn{.header = u"Mobile",
                  .width = 125,
                  .sort = SortColumn::phone,
                  .text = phone,
                  .key = contactID,
                  .searched = phone},
    ContactColumn{.header = u"Dates et heures d’envoi",
                  .width = 230,
                  .kind = CellKind::date,
                  .sort = SortColumn::date,
                  .text = lastDateText,
                  .value = lastDate,
                  .edit = setLastDate,
                  .key = lastSend,
                  .buttons = historyButton,
                  .placeholder = u"Aucune date"},
    ContactColumn{.header = u"Commentaire",
                  .width = 250,
                  .kind = CellKind::field,
                  .sort = SortColumn::comment,
                  .text = comment,
                  .value = commentValue,
                  .edit = setComment,
                  .placeholder = u"Ajouter un commentaire",
                  .searched = comment,
                  .undoable = true},
    ContactColumn{.header = u"Actions",
                  .width = 230,
                  .kind = CellKind::buttons,
                  .buttons = actions,
                  .followsSwitches = true},
};

static_assert(std::accumulate(columns.begin(), columns.end(), 0,
                              [](int sum, const ContactColumn &column) {
                                  return sum + column.width;
                              }) == tableContentWidth);

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

std::span<const ContactColumn> contactColumns() { return columns; }

int columnOf(SortColumn column)
{
    const auto sorts = [column](const ContactColumn &entry) { return entry.sort == column; };
    return int(std::ranges::find_if(columns, sorts) - columns.begin());
}

std::vector<int> columnsThat(bool ContactColumn::*property)
{
    std::vector<int> found;
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
