#include "ui/sheets/report_chart.h"

#include "ui/kit/plain_text.h"
#include "ui/kit/theme.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QBuffer>
#include <QEvent>
#include <QGraphicsLayout>
#include <QLegend>
#include <QLineSeries>
#include <QPixmap>
#include <QValueAxis>

#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::size_t mostCategories = 12;
constexpr qsizetype longestName = 14;
constexpr int hundred = 100;

/// Rows of the page that the chart has room for, from left to right.
std::vector<std::size_t> drawnRows(const ReportPage &page)
{
    std::vector<std::size_t> rows(std::min(page.rows.size(), mostCategories));
    std::iota(rows.begin(), rows.end(), 0);
    if (page.newestFirst)
        std::ranges::reverse(rows);
    return rows;
}

/// The library reads its labels as markup, and shows each name once.
QStringList categoryNames(const ReportPage &page, const std::vector<std::size_t> &rows)
{
    QStringList names;
    for (const std::size_t row : rows) {
        const QString name =
            oneLine(shownCell(page.rows[row].front()), longestName).toHtmlEscaped();
        QString unique = name;
        for (int copy = 2; names.contains(unique); ++copy)
            unique = u"%1 (%2)"_s.arg(name).arg(copy);
        names << unique;
    }
    return names;
}

double heightOf(const ExportCell &cell)
{
    if (const auto *count = std::get_if<int>(&cell))
        return *count;
    const auto *part = std::get_if<Share>(&cell);
    return part ? hundred * part->value : 0;
}

double highestOf(const ReportPage &page, const std::vector<std::size_t> &rows)
{
    double highest = page.limit.value_or(1);
    for (const std::size_t row : rows) {
        for (const ReportBar &bar : page.bars)
            highest = std::max(highest, heightOf(page.rows[row][bar.column]));
    }
    return highest;
}

Tint barTint(qsizetype bar)
{
    constexpr std::array tints{Tint::accent, Tint::positive, Tint::secondary, Tint::text};
    return tints[std::size_t(bar) % tints.size()];
}

void paintBars(const QBarSeries &bars, const QPalette &colors)
{
    const QList<QBarSet *> sets = bars.barSets();
    for (qsizetype bar = 0; bar < sets.size(); ++bar) {
        sets[bar]->setColor(tintColor(barTint(bar), colors));
        sets[bar]->setBorderColor(colors.color(QPalette::Base));
    }
}

} // namespace

ReportChart::ReportChart(QWidget *parent) : QChartView(parent)
{
    constexpr int leastWidth = 300;
    constexpr int leastHeight = 200;
    setMinimumSize(leastWidth, leastHeight);
    setFocusPolicy(Qt::NoFocus);
    setInteractive(false);
    setFrameShape(QFrame::NoFrame);
    setRenderHint(QPainter::Antialiasing);
    setAccessibleName(u"Graphique"_s);
    setAccessibleDescription(u"Le tableau à côté donne les mêmes nombres."_s);
    chart()->setBackgroundRoundness(0);
    chart()->layout()->setContentsMargins(0, 0, 0, 0);
    chart()->legend()->setAlignment(Qt::AlignTop);
}

void ReportChart::setPage(const ReportPage &page)
{
    m_page = page;
    draw();
}

void ReportChart::draw()
{
    chart()->removeAllSeries();
    for (QAbstractAxis *axis : chart()->axes()) {
        chart()->removeAxis(axis);
        delete axis;
    }
    const std::vector<std::size_t> rows = drawnRows(m_page);
    if (rows.empty())
        return;
    chart()->setTitle(m_page.chartTitle);
    addBars(rows);
    if (m_page.limit)
        addLimit(int(rows.size()));
    addAxes(rows);
    paintParts();
}

void ReportChart::addBars(const std::vector<std::size_t> &rows)
{
    auto *bars = new QBarSeries;
    for (const ReportBar &bar : m_page.bars) {
        auto *set = new QBarSet(bar.name);
        for (const std::size_t row : rows)
            *set << heightOf(m_page.rows[row][bar.column]);
        bars->append(set);
    }
    chart()->addSeries(bars);
}

void ReportChart::addLimit(int categories)
{
    auto *line = new QLineSeries;
    line->setName(m_page.limitName);
    constexpr double besideBars = 0.5;
    line->append(-besideBars, *m_page.limit);
    line->append(categories - besideBars, *m_page.limit);
    chart()->addSeries(line);
}

void ReportChart::addAxes(const std::vector<std::size_t> &rows)
{
    const QStringList names = categoryNames(m_page, rows);
    auto *across = new QBarCategoryAxis;
    across->append(names);
    constexpr int turned = -90;
    across->setLabelsAngle(names.size() > 2 ? turned : 0);
    auto *up = new QValueAxis;
    const bool isShare =
        std::holds_alternative<Share>(m_page.rows.front()[m_page.bars.front().column]);
    up->setLabelFormat(isShare ? u"%.0f %%"_s : u"%.0f"_s);
    chart()->addAxis(across, Qt::AlignBottom);
    chart()->addAxis(up, Qt::AlignLeft);
    for (QAbstractSeries *series : chart()->series()) {
        series->attachAxis(across);
        series->attachAxis(up);
    }
    up->setRange(0, highestOf(m_page, rows));
    up->applyNiceNumbers();
}

void ReportChart::paintParts()
{
    const QPalette &colors = palette();
    const QColor text = colors.color(QPalette::WindowText);
    setBackgroundBrush(colors.brush(QPalette::Base));
    chart()->setBackgroundBrush(colors.brush(QPalette::Base));
    chart()->setTitleBrush(text);
    chart()->legend()->setLabelColor(text);
    for (QAbstractAxis *axis : chart()->axes()) {
        axis->setLabelsColor(text);
        axis->setGridLineColor(colors.color(QPalette::Midlight));
        axis->setLinePenColor(colors.color(QPalette::Mid));
    }
    for (QAbstractSeries *series : chart()->series()) {
        if (const auto *bars = qobject_cast<QBarSeries *>(series))
            paintBars(*bars, colors);
        else if (auto *line = qobject_cast<QLineSeries *>(series))
            line->setPen({tintColor(Tint::negative, colors), 2, Qt::DashLine});
    }
}

void ReportChart::changeEvent(QEvent *event)
{
    QChartView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        paintParts();
}

QByteArray chartPicture(const ReportPage &page)
{
    constexpr QSize size{1600, 900};
    ReportChart chart;
    chart.setPalette(themePalette(Appearance::light));
    chart.resize(size);
    chart.setPage(page);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!chart.grab().save(&buffer, "PNG"))
        bytes.clear();
    return bytes;
}

} // namespace quenoria
