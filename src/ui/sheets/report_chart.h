#pragma once

#include "ui/sheets/report_pages.h"

#include <QChartView>

namespace quenoria {

/// Bars of one page of the report, in the colours of the palette. The table beside it says the
/// same; no key or pointer does anything here.
class ReportChart : public QChartView {
    Q_OBJECT

public:
    explicit ReportChart(QWidget *parent = nullptr);

    void setPage(const ReportPage &page);

protected:
    void changeEvent(QEvent *event) override;

private:
    void draw();
    void addBars(const std::vector<std::size_t> &rows);
    void addLimit(int categories);
    void addAxes(const std::vector<std::size_t> &rows);
    void paintParts();

    ReportPage m_page;
};

/// The chart as a picture for a document: light, and larger than most screens show it.
[[nodiscard]] QByteArray chartPicture(const ReportPage &page);

} // namespace quenoria
