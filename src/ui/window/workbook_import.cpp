#include "ui/window/workbook_import.h"

#include "import/import_error.h"
#include "import/import_undo.h"
#include "import/prospect_excel_importer.h"
#include "model/text_order.h"
#include "platform/file_panels.h"
#include "store/prospect_store.h"
#include "ui/kit/alert.h"
#include "ui/sheets/workbook_reading.h"
#include "ui/window/import_progress.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString impossible = u"Import impossible"_s;
const QString undoText = u"Annuler cet import"_s;

QString counted(std::size_t count, const QString &text)
{
    return displayLocale().toString(qulonglong(count)) + text;
}

/// "12 contact(s) retiré(s).": the verbs say whether it is done.
QString inWords(const ImportedChanges &changes, const QString &removed, const QString &putBack)
{
    QStringList lines;
    if (!changes.added.empty())
        lines << counted(changes.added.size(), u" contact(s) "_s + removed);
    if (changes.addresses() > 0)
        lines << counted(changes.addresses(), u" adresse(s) e-mail "_s + putBack);
    return lines.join(u'\n');
}

} // namespace

WorkbookImport::WorkbookImport(ProspectStore &store, FilePanels &panels, QWidget *window)
    : QObject(window), m_store(store), m_panels(panels), m_window(window),
      m_reading(new WorkbookReading(this)), m_undo(new ImportUndo(store, this))
{
    connect(m_undo, &ImportUndo::offeredChanged, this, &WorkbookImport::undoOffered);
    connect(m_reading, &WorkbookReading::finished, this, &WorkbookImport::conclude);
}

void WorkbookImport::choose()
{
    const auto path = m_panels.chooseFile(
        {u"Importer des contacts depuis Excel"_s,
         u"Choisissez un fichier .xlsx contenant le nom du contact et au moins un mobile ou une "
         "adresse e-mail."_s,
         u"Importer"_s, u"xlsx"_s});
    if (path)
        run(*path);
}

void WorkbookImport::run(const QString &workbookPath)
{
    const QFileInfo file(workbookPath);
    const Workbook workbook{file.absoluteFilePath(), file.lastModified()};
    if (!isBusy())
        return read(workbook);
    if (m_current == workbook || m_waiting.contains(workbook))
        return;
    m_waiting << workbook;
    Q_EMIT postponed(workbook.path);
}

void WorkbookImport::read(const Workbook &workbook)
{
    m_current = workbook;
    m_isReading = true;
    showProgress(QFileInfo(workbook.path).fileName());
    try {
        m_reading->start(workbook.path, m_store.duplicateKeys());
    } catch (const std::bad_alloc &) {
        m_isReading = false;
        m_progress->accept();
        say(showAlert(m_window, impossible, OutOfMemory().message()));
    }
}

void WorkbookImport::showProgress(const QString &fileName)
{
    m_progress = new ImportProgress(fileName, m_window);
    m_progress->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_progress, &QDialog::rejected, m_reading, &WorkbookReading::stop);
    connect(m_reading, &WorkbookReading::progressed, m_progress, &ImportProgress::setStep);
    openInFront(m_progress, m_window);
}

void WorkbookImport::conclude(ReadWorkbook &outcome)
{
    m_isReading = false;
    if (m_progress)
        m_progress->accept(); // and not deleted: an alert may stand over it
    if (outcome.failure)
        say(showAlert(m_window, impossible, *outcome.failure));
    else if (outcome.analysis)
        merge(std::move(*outcome.analysis));
    startNext();
}

/// An alert that another one follows, as after "Annuler cet import", is gone only after that came.
void WorkbookImport::say(QWidget *alert)
{
    ++m_toBeRead;
    connect(alert, &QObject::destroyed, this, [this] {
        --m_toBeRead;
        startNext();
    });
}

void WorkbookImport::startNext()
{
    if (isBusy())
        return;
    m_current = {};
    if (m_waiting.isEmpty())
        return;
    read(m_waiting.takeFirst());
    Q_EMIT followed();
}

void WorkbookImport::merge(ProspectImportAnalysis analysis)
{
    try {
        tell(m_undo->merge(std::move(analysis)));
    } catch (const ImportFailure &failure) {
        say(showAlert(m_window, impossible, failure.message()));
    } catch (const std::bad_alloc &) {
        say(showAlert(m_window, impossible, OutOfMemory().message()));
    }
}

void WorkbookImport::tell(const ImportReport &report)
{
    Q_EMIT merged();
    if (m_undo->isOffered())
        say(showAlert(m_window, report.title, report.message, {undoText, [this] { undo(); }}));
    else
        say(showAlert(m_window, report.title, report.message));
}

bool WorkbookImport::canBeUndone() const { return m_undo->isOffered(); }

void WorkbookImport::noteSend(const QString &contactId) { m_undo->noteSend(contactId); }

void WorkbookImport::askToUndo()
{
    if (!m_undo->isOffered())
        return;
    say(offerChoices(m_window, undoText + u" ?"_s,
                     inWords(m_undo->changes(), u"ajouté(s) par cet import : à retirer."_s,
                             u"à remettre comme avant."_s),
                     {{undoText, [this] { undo(); }}, {u"Garder l’import"_s, [] {}}}));
}

void WorkbookImport::undo()
{
    const QString done = inWords(m_undo->changes(), u"retiré(s)."_s, u"remise(s) comme avant."_s);
    if (m_undo->undo())
        say(showAlert(m_window, u"Import annulé"_s, done));
    else
        say(showAlert(m_window, u"Annulation impossible"_s,
                      u"Un contact de cet import a été modifié ou a pu recevoir un message depuis. "
                      "Rien n’a été retiré."_s));
}

} // namespace quenoria
