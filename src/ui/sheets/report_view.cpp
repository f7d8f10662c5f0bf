#include "ui/sheets/report_view.h"

#include "ui/kit/empty_state.h"
#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"
#include "ui/sheets/choice_picker.h"
#include "ui/sheets/export_run.h"
#include "ui/sheets/report_chart.h"
#include "ui/sheets/report_model.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QHeaderView>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int refreshDelay = 300; ///< milliseconds: a run changes the store again and again

bool isEmpty(const SendReport &report)
{
    return std::ranges::none_of(report.months, [](const MonthLine &month) {
        return std::ranges::any_of(month.sends, [](auto &count) { return count.sends > 0; });
    });
}

} // namespace

ReportView::ReportView(const Platform &platform, const ProspectStore &store, QWidget *parent)
    : Sheet(u"Bilan des envois"_s, {1080, 680}, parent), m_platform(platform), m_store(store),
      m_picker(new ChoicePicker(u"Bilan"_s)),
      m_note(makeLabel({}, TextStyle::footnote, Tint::secondary)), m_contents(new QStackedWidget),
      m_table(new QTableView), m_model(new ReportModel(this)), m_chart(new ReportChart),
      m_status(new StatusLabel), m_picture(new QPushButton(u"Enregistrer l’image…"_s)),
      m_workbook(new QPushButton(u"Exporter en classeur…"_s)), m_run(new ExportRun(this))
{
    addHeader(windowTitle());
    addPicker();
    addContents();
    addFooter();
    refresh();
    auto *delay = new QTimer(this);
    delay->setSingleShot(true);
    delay->setInterval(refreshDelay);
    connect(delay, &QTimer::timeout, this, &ReportView::refresh);
    connect(&store, &ProspectStore::published, delay, qOverload<>(&QTimer::start));
    connect(m_run, &ExportRun::finished, this, &ReportView::conclude);
}

void ReportView::addPicker()
{
    std::vector<Choice> choices;
    for (const ReportPage &each : reportPages({}, m_store))
        choices.push_back({each.name, each.name});
    m_picker->setChoices(choices, choices.front().id);
    connect(m_picker, &QComboBox::currentIndexChanged, this, &ReportView::showPage);
    m_picker->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto *row = new QHBoxLayout;
    row->addWidget(makeCaption(u"Bilan"_s, m_picker));
    row->addWidget(m_picker);
    row->addStretch();
    column()->addLayout(row);
    column()->addWidget(m_note);
}

void ReportView::addContents()
{
    m_table->setModel(m_model);
    m_table->setAccessibleName(windowTitle());
    m_table->setTabKeyNavigation(false);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setAlternatingRowColors(true);
    m_table->setShowGrid(false);
    m_table->verticalHeader()->hide();
    m_table->setMinimumSize(m_chart->minimumSize());
    auto *sides = new QSplitter;
    sides->setChildrenCollapsible(false);
    sides->addWidget(m_table);
    sides->addWidget(m_chart);
    sides->setSizes({1, 1}); // halves
    m_contents->addWidget(sides);
    m_contents->addWidget(new EmptyState(
        u"clock"_s, u"Aucun envoi enregistré"_s,
        u"Le bilan se remplit avec les SMS et les e-mails envoyés ou marqués envoyés."_s));
    column()->addWidget(m_contents, 1);
}

void ReportView::addFooter()
{
    makeProminent(m_workbook);
    m_workbook->setDefault(true);
    connect(m_picture, &QPushButton::clicked, this, &ReportView::savePicture);
    connect(m_workbook, &QPushButton::clicked, this, &ReportView::saveWorkbook);
    auto *row = new QHBoxLayout;
    row->addWidget(m_status, 1);
    row->addStretch();
    row->addWidget(m_picture);
    row->addWidget(m_workbook);
    footer()->addLayout(row);
}

void ReportView::refresh()
{
    const SendReport report = sendReport(m_store, m_platform.clock.zone(), m_platform.clock.now());
    m_shown = reportPages(report, m_store);
    const bool nothing = isEmpty(report);
    m_contents->setCurrentIndex(nothing ? 1 : 0);
    m_note->setVisible(!nothing);
    for (QWidget *part : {static_cast<QWidget *>(m_picker), static_cast<QWidget *>(m_picture),
                          static_cast<QWidget *>(m_workbook)})
        part->setEnabled(!nothing);
    showPage();
}

void ReportView::showPage()
{
    m_note->setText(page().note);
    m_model->setPage(page());
    m_chart->setPage(page());
    const QFontMetrics metrics = m_table->fontMetrics();
    for (std::size_t column = 0; column < page().columns.size(); ++column)
        m_table->setColumnWidth(int(column),
                                page().columns[column].width * metrics.averageCharWidth() +
                                    metrics.height());
}

const ReportPage &ReportView::page() const
{
    return m_shown[std::size_t(std::max(m_picker->currentIndex(), 0))];
}

void ReportView::savePicture()
{
    const ReportPage drawn = page(); // another may be shown once the panel is closed
    const auto path = m_platform.panels.chooseDestination(
        {u"Enregistrer l’image"_s, u"%1 - %2.png"_s.arg(windowTitle(), drawn.name.toLower()),
         u"png"_s});
    if (path)
        tell(m_platform.files.write(*path, chartPicture(drawn)), *path);
}

void ReportView::saveWorkbook()
{
    if (m_run->isRunning())
        return;
    const auto path = m_platform.panels.chooseDestination(
        {u"Exporter en classeur"_s, windowTitle() + u".xlsx"_s, u"xlsx"_s});
    if (!path)
        return;
    m_path = *path;
    m_workbook->setEnabled(false);
    m_run->start([contents = reportTable(m_shown, m_platform.clock.zone()),
                  target = ExportTarget{*path, ExportFormat::workbook},
                  files = &m_platform.files](const ImportWatch &watch) {
        return writeExport(contents, target, *files, watch);
    });
}

void ReportView::conclude(const ExportOutcome &outcome)
{
    m_workbook->setEnabled(true);
    if (!outcome.stopped)
        tell(outcome.failure, m_path);
}

void ReportView::tell(const Refusal &failure, const QString &path)
{
    if (failure)
        m_status->setStatus(u"Enregistrement impossible : "_s + *failure, Tint::negative,
                            u"exclamationmark.triangle.fill"_s);
    else
        m_status->setStatus(u"Enregistré dans « %1 »."_s.arg(oneLine(QFileInfo(path).fileName())),
                            Tint::positive, u"checkmark.circle.fill"_s);
}

} // namespace quenoria
