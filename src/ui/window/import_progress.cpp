#include "ui/window/import_progress.h"

#include "ui/kit/labels.h"
#include "ui/sheets/workbook_reading.h"

#include <QBoxLayout>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr qsizetype longestName = 100;

} // namespace

ImportProgress::ImportProgress(const QString &fileName, QWidget *parent)
    : Sheet(u"Importer Excel"_s, {440, 150}, parent), m_bar(new QProgressBar)
{
    m_bar->setRange(0, WorkbookReading::steps);
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(u"Lecture du classeur"_s);
    auto *stop = new QPushButton(u"Arrêter"_s);
    stop->setAutoDefault(false); // Enter closes the report of the import before
    connect(stop, &QPushButton::clicked, this, &Sheet::reject);
    column()->addWidget(makeLabel(u"Lecture de « %1 »…"_s.arg(oneLine(fileName, longestName)),
                                  TextStyle::headline));
    column()->addWidget(m_bar);
    column()->addWidget(stop, 0, Qt::AlignRight);
}

void ImportProgress::setStep(int step) { m_bar->setValue(step); }

} // namespace quenoria
