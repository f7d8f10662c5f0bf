#include "ui/sheets/export_view.h"

#include "export/export_tables.h"
#include "model/local_time.h"
#include "model/text_order.h"
#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"
#include "ui/sheets/export_run.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QDateEdit>
#include <QFileInfo>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString workbookSuffix = u"xlsx"_s;
const QString csvSuffix = u"csv"_s;
constexpr int besideDay = 56; ///< the arrow and the frame

QString counted(const QString &text, std::size_t count)
{
    return u"%1 (%2)"_s.arg(text, displayLocale().toString(qulonglong(count)));
}

QDateEdit *makeDay(const QString &name, QDate day)
{
    auto *edit = new QDateEdit(day);
    edit->setAccessibleName(name);
    edit->setCalendarPopup(true);
    edit->setDisplayFormat(u"dd/MM/yyyy"_s);
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(u"00/00/0000"_s) + besideDay);
    return edit;
}

/// What the user should know of a file that was written.
QString told(const ExportOutcome &outcome, const QString &fileName)
{
    QString text = u"%1 ligne(s) enregistrée(s) dans « %2 »."_s.arg(
        displayLocale().toString(qulonglong(outcome.rows)), oneLine(fileName));
    if (outcome.cutTexts > 0)
        text += u" %1 texte(s) de plus de 32 767 caractères y sont coupés."_s.arg(outcome.cutTexts);
    return text;
}

} // namespace

ExportView::ExportView(const Platform &platform, const ProspectStore &store,
                       std::vector<Prospect> shownContacts, QWidget *parent)
    : Sheet(u"Exporter"_s, {560, 440}, parent), m_platform(platform), m_store(store),
      m_shownContacts(std::move(shownContacts)), m_what(new QButtonGroup(this)),
      m_format(new QButtonGroup(this)), m_first(nullptr), m_last(nullptr),
      m_progress(new QProgressBar), m_status(new StatusLabel), m_save(nullptr),
      m_stopButton(nullptr), m_run(new ExportRun(this))
{
    addHeader(windowTitle(), u"Vers un fichier que tout tableur ouvre."_s);
    addChoices();
    addFormats();
    column()->addStretch();
    addFooter();
    connect(m_run, &ExportRun::progressed, m_progress, &QProgressBar::setValue);
    connect(m_run, &ExportRun::finished, this, &ExportView::conclude);
    showRunning(false);
}

void ExportView::addChoices()
{
    column()->addWidget(makeLabel(u"Que voulez-vous exporter ?"_s, TextStyle::headline));
    const std::pair<What, QString> choices[] = {
        {What::shownContacts, counted(u"Contacts affichés"_s, m_shownContacts.size())},
        {What::allContacts, counted(u"Tous les contacts"_s, m_store.allProspects().size())},
        {What::stops, counted(u"Liste STOP"_s, stopTable(m_store, m_platform.clock.zone()).rows)},
        {What::sends, u"Envois d’une période"_s}};
    auto *list = new QVBoxLayout;
    list->setSpacing(8);
    for (const auto &[what, text] : choices) {
        auto *button = new QRadioButton(text);
        m_what->addButton(button, int(what));
        m_choices << button;
        list->addWidget(button);
    }
    m_what->button(int(What::shownContacts))->setChecked(true);
    m_what->button(int(What::shownContacts))->setFocus();
    column()->addLayout(list);
    addPeriod();
}

void ExportView::addPeriod()
{
    const QDate today = localDateTime(m_platform.clock.now(), m_platform.clock.zone()).date();
    m_first = makeDay(u"Premier jour"_s, QDate(today.year(), today.month(), 1));
    m_last = makeDay(u"Dernier jour"_s, today);
    auto *row = new QHBoxLayout;
    constexpr int underText = 28;
    row->setContentsMargins(underText, 0, 0, 0);
    row->addWidget(makeCaption(u"Du"_s, m_first));
    row->addWidget(m_first);
    row->addWidget(makeCaption(u"au"_s, m_last));
    row->addWidget(m_last);
    row->addStretch();
    column()->addLayout(row);
    QAbstractButton *sends = m_what->button(int(What::sends));
    for (QDateEdit *day : {m_first, m_last}) {
        day->setEnabled(false);
        connect(sends, &QAbstractButton::toggled, day, &QWidget::setEnabled);
    }
    connect(m_first, &QDateEdit::dateChanged, m_last, &QDateEdit::setMinimumDate);
    m_last->setMinimumDate(m_first->date());
}

void ExportView::addFormats()
{
    column()->addWidget(makeLabel(u"Dans quel format ?"_s, TextStyle::headline));
    auto *list = new QVBoxLayout;
    list->setSpacing(8);
    const std::pair<ExportFormat, QString> formats[] = {
        {ExportFormat::workbook, u"Classeur Excel (.xlsx), qui peut être importé à nouveau"_s},
        {ExportFormat::csv, u"Texte séparé par des points-virgules (.csv)"_s}};
    for (const auto &[format, text] : formats) {
        auto *button = new QRadioButton(text);
        m_format->addButton(button, int(format));
        m_choices << button;
        list->addWidget(button);
    }
    m_format->button(int(ExportFormat::workbook))->setChecked(true);
    column()->addLayout(list);
}

void ExportView::addFooter()
{
    m_progress->setRange(0, ExportRun::steps);
    m_progress->setTextVisible(false);
    m_progress->setAccessibleName(u"Écriture du fichier"_s);
    m_save = new QPushButton(u"Enregistrer…"_s);
    makeProminent(m_save);
    m_save->setDefault(true);
    m_stopButton = new QPushButton(u"Arrêter"_s);
    connect(m_save, &QPushButton::clicked, this, &ExportView::save);
    connect(m_stopButton, &QPushButton::clicked, m_run, &ExportRun::stop);
    auto *row = new QHBoxLayout;
    row->addWidget(m_progress, 1);
    row->addWidget(m_status, 1);
    row->addStretch();
    row->addWidget(m_stopButton);
    row->addWidget(m_save);
    footer()->addLayout(row);
}

ExportTable ExportView::table() const
{
    const QTimeZone zone = m_platform.clock.zone();
    switch (What(m_what->checkedId())) {
    case What::shownContacts:
        return contactTable(m_store, m_shownContacts, zone);
    case What::sends:
        return sendTable(m_store, m_first->date(), m_last->date(), zone);
    case What::stops:
        return stopTable(m_store, zone);
    case What::allContacts:
        break;
    }
    return contactTable(m_store, m_store.allProspects(), zone);
}

void ExportView::save()
{
    if (m_run->isRunning())
        return;
    const auto format = ExportFormat(m_format->checkedId());
    const QString suffix = format == ExportFormat::csv ? csvSuffix : workbookSuffix;
    const ExportTable contents = table();
    const auto path =
        m_platform.panels.chooseDestination({u"Exporter"_s, contents.name + u'.' + suffix, suffix});
    if (!path)
        return;
    m_fileName = QFileInfo(*path).fileName();
    m_status->setStatus({}, Tint::secondary);
    m_progress->setValue(0);
    showRunning(true);
    m_run->start([contents, target = ExportTarget{*path, format},
                  files = &m_platform.files](const ImportWatch &watch) {
        return writeExport(contents, target, *files, watch);
    });
}

void ExportView::showRunning(bool running)
{
    for (QWidget *choice : m_choices)
        choice->setEnabled(!running);
    const bool dated = !running && m_what->checkedId() == int(What::sends);
    m_first->setEnabled(dated);
    m_last->setEnabled(dated);
    m_progress->setVisible(running);
    m_status->setVisible(!running && !m_status->text().isEmpty());
    m_stopButton->setVisible(running);
    m_save->setVisible(!running);
    (running ? m_stopButton : m_save)->setFocus();
}

void ExportView::conclude(const ExportOutcome &outcome)
{
    showRunning(false);
    if (outcome.failure)
        m_status->setStatus(u"Enregistrement impossible : "_s + *outcome.failure, Tint::negative,
                            u"exclamationmark.triangle.fill"_s);
    else if (outcome.stopped)
        m_status->setStatus(u"Export arrêté : aucun fichier n’a été changé."_s, Tint::secondary);
    else
        m_status->setStatus(told(outcome, m_fileName), Tint::positive, u"checkmark.circle.fill"_s);
}

/// Leaving stops what is being written.
void ExportView::reject()
{
    m_run->stop();
    Sheet::reject();
}

} // namespace quenoria
