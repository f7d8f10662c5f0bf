#include "ui/sheets/workbook_check_view.h"

#include "export/export_file.h"
#include "export/rejected_export.h"
#include "model/text_order.h"
#include "store/collection.h"
#include "store/prospect_store.h"
#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"
#include "ui/sheets/check_model.h"
#include "ui/sheets/check_table.h"
#include "ui/sheets/export_run.h"
#include "ui/sheets/workbook_reading.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QFileInfo>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString warning = u"exclamationmark.triangle.fill"_s;
const QString sameFile = u"Choisissez un autre nom : ce fichier est le classeur vérifié, que ses "
                         "seules lignes rejetées remplaceraient."_s;
const QString changedMeanwhile =
    u"Vos contacts ont changé : le classeur a été vérifié à nouveau."_s;

QString savedInWords(const ExportOutcome &outcome, const RejectedRows &rows, const QString &name)
{
    QString text =
        u"%1 ligne(s) enregistrée(s) dans « %2 ». Corrigez-les, puis importez ce classeur."_s.arg(
            displayLocale().toString(qulonglong(rows.rows())), oneLine(name));
    if (rows.dropped() > 0)
        text += u" %1 autre(s) n’ont pas pu être gardées."_s.arg(
            displayLocale().toString(qulonglong(rows.dropped())));
    if (outcome.cutTexts > 0)
        text += u" %1 texte(s) de plus de 32 767 caractères y sont coupés."_s.arg(outcome.cutTexts);
    return text;
}

/// Whether the change is of who the contacts are, or by what they are known.
bool changesContacts(const Change &change)
{
    if (const auto *contacts = std::get_if<ContactsChanged>(&change))
        return descriptor(contacts->collection).shapesList;
    return std::holds_alternative<ListReshaped>(change);
}

} // namespace

WorkbookCheckView::WorkbookCheckView(const Platform &platform, ProspectStore &store,
                                     const QString &path, Import import, QWidget *parent)
    : Sheet(u"Vérifier un classeur"_s, {920, 640}, parent), m_platform(platform), m_store(store),
      m_path(path), m_import(std::move(import)), m_model(new CheckModel(this)),
      m_reading(new WorkbookReading(this)), m_saving(new ExportRun(this)),
      m_columns(makeLabel({}, TextStyle::footnote, Tint::secondary)),
      m_counts(makeLabel({}, TextStyle::headline)), m_results(new QWidget), m_choice(new QComboBox),
      m_rest(makeLabel({}, TextStyle::footnote, Tint::secondary)), m_progress(new QProgressBar),
      m_status(new StatusLabel), m_stopButton(new QPushButton(u"Arrêter"_s)),
      m_save(new QPushButton(u"Enregistrer les lignes rejetées…"_s)),
      m_confirm(new QPushButton(u"Importer"_s))
{
    addHeader(u"Vérifier « %1 »"_s.arg(oneLine(QFileInfo(path).fileName())),
              u"Rien n’est importé avant « Importer »."_s);
    addParts();
    addFooter();
    connect(m_reading, &WorkbookReading::progressed, m_progress, &QProgressBar::setValue);
    connect(m_reading, &WorkbookReading::finished, this, &WorkbookCheckView::conclude);
    connect(m_saving, &ExportRun::progressed, m_progress, &QProgressBar::setValue);
    connect(m_saving, &ExportRun::finished, this, &WorkbookCheckView::tellSaved);
    followStore();
    read();
}

void WorkbookCheckView::addParts()
{
    m_choice->setAccessibleName(u"Lignes affichées"_s);
    connect(m_choice, &QComboBox::activated, this, &WorkbookCheckView::choose);
    auto *choice = new QHBoxLayout;
    choice->addWidget(makeCaption(u"Afficher"_s, m_choice));
    choice->addWidget(m_choice);
    choice->addStretch();
    auto *results = new QVBoxLayout(m_results);
    results->setContentsMargins({});
    results->addLayout(choice);
    results->addWidget(new CheckTable(*m_model), 1);
    results->addWidget(m_rest);
    column()->addWidget(m_counts);
    column()->addWidget(m_columns);
    column()->addWidget(m_results, 1);
    column()->addStretch();
}

void WorkbookCheckView::addFooter()
{
    m_progress->setRange(0, WorkbookReading::steps);
    m_progress->setTextVisible(false);
    m_save->setAutoDefault(false);
    makeProminent(m_confirm);
    m_confirm->setDefault(true);
    connect(m_save, &QPushButton::clicked, this, &WorkbookCheckView::saveRejected);
    connect(m_confirm, &QPushButton::clicked, this, &WorkbookCheckView::import);
    connect(m_stopButton, &QPushButton::clicked, this, [this] {
        if (m_phase == Phase::saving)
            m_saving->stop();
        else
            reject();
    });
    auto *row = new QHBoxLayout;
    row->addWidget(m_save);
    row->addWidget(m_progress, 1);
    row->addStretch();
    row->addWidget(m_stopButton);
    row->addWidget(m_confirm);
    footer()->addWidget(m_status);
    footer()->addLayout(row);
}

/// What is imported must be what was shown, of the contacts as they are by then.
void WorkbookCheckView::followStore()
{
    connect(&m_store, &ProspectStore::published, this, [this](const Change &change) {
        if (!isVisible() || m_phase == Phase::failed || !changesContacts(change))
            return;
        m_saving->stop();
        m_status->setStatus(changedMeanwhile, Tint::secondary);
        read();
    });
}

void WorkbookCheckView::read()
{
    enter(Phase::reading);
    m_checker = std::make_shared<WorkbookChecker>(KnownContacts::of(m_store));
    m_reading->start(m_path, m_store.duplicateKeys(), m_checker);
}

void WorkbookCheckView::conclude(ReadWorkbook &outcome)
{
    if (outcome.failure)
        return fail(*outcome.failure);
    if (!outcome.analysis)
        return;
    m_analysis = std::move(*outcome.analysis);
    m_model->setCheck(m_checker->take());
    m_checker.reset();
    showCheck();
    enter(Phase::shown);
}

void WorkbookCheckView::fail(const QString &message)
{
    m_status->setStatus(message, Tint::negative, warning);
    enter(Phase::failed);
}

void WorkbookCheckView::showCheck()
{
    const WorkbookCheck &check = m_model->check();
    m_counts->setText(countsInWords(check));
    m_columns->setText(headersInWords(check));
    m_choices = choicesOf(check);
    m_choice->clear();
    for (const CheckedChoice &choice : m_choices)
        m_choice->addItem(choice.text);
    choose(0);
}

void WorkbookCheckView::choose(int choice)
{
    m_model->show(m_choices[std::size_t(choice)].ends);
    const bool isCut = m_model->matching() > m_model->rowCount();
    m_rest->setText(isCut ? u"Les %1 premières lignes sont affichées."_s.arg(
                                displayLocale().toString(m_model->rowCount()))
                          : QString());
    m_rest->setVisible(isCut);
}

void WorkbookCheckView::saveRejected()
{
    if (m_phase != Phase::shown)
        return;
    const QString name = u"%1 - lignes rejetées.xlsx"_s.arg(QFileInfo(m_path).completeBaseName());
    const auto path = m_platform.panels.chooseDestination(
        {u"Enregistrer les lignes rejetées"_s, name, u"xlsx"_s});
    if (!path)
        return;
    if (QFileInfo(*path) == QFileInfo(m_path))
        return m_status->setStatus(sameFile, Tint::negative, warning);
    m_savedName = QFileInfo(*path).fileName();
    m_status->setStatus({}, Tint::secondary);
    enter(Phase::saving);
    m_saving->start([contents = rejectedTable(m_model->check().rejected),
                     target = ExportTarget{*path, ExportFormat::workbook},
                     files = &m_platform.files](const ImportWatch &watch) {
        return writeExport(contents, target, *files, watch);
    });
}

void WorkbookCheckView::tellSaved(const ExportOutcome &outcome)
{
    if (m_phase != Phase::saving)
        return;
    enter(Phase::shown);
    if (outcome.failure)
        m_status->setStatus(u"Enregistrement impossible : "_s + *outcome.failure, Tint::negative,
                            warning);
    else if (outcome.stopped)
        m_status->setStatus(u"Enregistrement arrêté : aucun fichier n’a été changé."_s,
                            Tint::secondary);
    else
        m_status->setStatus(savedInWords(outcome, *m_model->check().rejected, m_savedName),
                            Tint::positive, u"checkmark.circle.fill"_s);
}

/// The sheet is left first: the import's report stands over the window.
void WorkbookCheckView::import()
{
    if (m_phase != Phase::shown)
        return;
    m_phase = Phase::failed; // nothing more comes of it
    accept();
    m_import(std::move(m_analysis));
}

void WorkbookCheckView::enter(Phase phase)
{
    m_phase = phase;
    const bool isBusy = phase == Phase::reading || phase == Phase::saving;
    const bool hasResults = phase == Phase::shown || phase == Phase::saving;
    m_progress->setValue(0);
    m_progress->setAccessibleName(phase == Phase::saving ? u"Écriture du fichier"_s
                                                         : u"Lecture du classeur"_s);
    m_progress->setVisible(isBusy);
    m_stopButton->setVisible(isBusy);
    for (QWidget *part : std::initializer_list<QWidget *>{m_counts, m_columns, m_results})
        part->setVisible(hasResults);
    m_save->setVisible(phase == Phase::shown && m_model->check().rejected->rows() > 0);
    m_confirm->setVisible(phase == Phase::shown);
    m_confirm->setEnabled(!m_analysis.prospects.empty() || !m_analysis.emailUpdates.empty());
    if (phase == Phase::shown)
        m_choice->setFocus();
}

/// Leaving stops what is under way.
void WorkbookCheckView::reject()
{
    m_reading->stop();
    m_saving->stop();
    Sheet::reject();
}

} // namespace quenoria
