#include "ui/window/file_drop.h"

#include "ui/kit/alert.h"
#include "ui/kit/plain_text.h"
#include "ui/table/contact_table_view.h"
#include "ui/table/undo_list.h"
#include "ui/window/workbook_import.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int nameRoom = 80;

/// The one file among what is dragged, if it is one.
std::optional<QString> fileIn(const QDropEvent &event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    if (urls.size() != 1)
        return std::nullopt;
    const QString path = urls.first().toLocalFile();
    return QFileInfo(path).isFile() ? std::optional(path) : std::nullopt;
}

bool isWorkbook(const QString &path) { return path.endsWith(u".xlsx"_s, Qt::CaseInsensitive); }

QString quotedName(const QString &path)
{
    return u"« %1 »"_s.arg(oneLine(QFileInfo(path).fileName(), nameRoom));
}

} // namespace

FileDrop::FileDrop(ContactTableView &table, ProspectStore &store, UndoList &undo,
                   const WorkbookImport &import, QWidget *window)
    : QObject(window), m_table(table), m_store(store), m_undo(undo), m_import(import),
      m_window(window)
{
}

bool FileDrop::mayTake(const QDropEvent &event) const
{
    const auto path = fileIn(event);
    return path && (!QApplication::activeModalWidget() || (m_import.isBusy() && isWorkbook(*path)));
}

bool FileDrop::follow(const QDropEvent &event)
{
    const bool isOnRow = mayTake(event) && contactAt(event);
    m_table.markDrop(isOnRow ? std::optional(inTable(event)) : std::nullopt);
    return isOnRow || (mayTake(event) && isWorkbook(*fileIn(event)));
}

void FileDrop::leave() { m_table.markDrop({}); }

bool FileDrop::take(const QDropEvent &event)
{
    const bool takes = follow(event);
    leave();
    if (!takes)
        return false;
    const QString path = *fileIn(event);
    const Prospect *contact = contactAt(event);
    if (!contact)
        Q_EMIT importRequested(path);
    else if (isWorkbook(path))
        askAboutWorkbook(path, *contact);
    else
        attach(path, contact->id);
    return true;
}

QPoint FileDrop::inTable(const QDropEvent &event) const
{
    return m_table.viewport()->mapFrom(m_window, event.position().toPoint());
}

const Prospect *FileDrop::contactAt(const QDropEvent &event) const
{
    const QWidget *viewport = m_table.viewport();
    const QPoint point = inTable(event);
    if (!viewport->isVisible() || !viewport->rect().contains(point))
        return nullptr;
    return m_table.contactAt(point);
}

void FileDrop::askAboutWorkbook(const QString &path, const Prospect &contact)
{
    offerChoices(m_window, u"Importer ou joindre ce classeur ?"_s,
                 u"%1 a été déposé sur la ligne de %2."_s.arg(quotedName(path),
                                                              oneLine(contact.label, nameRoom)),
                 {{u"Importer ses contacts"_s, [this, path] { Q_EMIT importRequested(path); }},
                  {u"Joindre au contact"_s, [this, path, id = contact.id] { attach(path, id); }},
                  {u"Annuler"_s, [] {}}});
}

void FileDrop::attach(const QString &path, const QString &contactId)
{
    const Prospect *contact = m_store.prospect(contactId);
    if (!contact)
        return;
    const auto before = m_store.attachmentName(*contact);
    if (!before || m_store.attachmentPath(*contact) == path)
        return replace(path, contactId);
    offerChoices(m_window, u"Remplacer le fichier joint ?"_s,
                 u"%1 a déjà le fichier %2. %3 prendrait sa place."_s.arg(
                     oneLine(contact->label, nameRoom), quotedName(*before), quotedName(path)),
                 {{u"Remplacer"_s, [this, path, contactId] { replace(path, contactId); }},
                  {u"Annuler"_s, [] {}}});
}

void FileDrop::replace(const QString &path, const QString &contactId)
{
    m_undo.record(columnOf(SortColumn::attachment), {contactId}, [&] {
        if (const Prospect *contact = m_store.prospect(contactId))
            m_store.setAttachment(path, *contact);
    });
}

} // namespace quenoria
