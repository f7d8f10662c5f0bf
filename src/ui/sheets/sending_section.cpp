#include "ui/sheets/sending_section.h"

#include "ui/kit/labels.h"

#include <QCoreApplication>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

namespace quenoria {

namespace {

constexpr int padding = 16;
constexpr int spacing = 12;

} // namespace

SendingSection::SendingSection(const QString &heading, QWidget *parent)
    : QFrame(parent), m_column(new QVBoxLayout(this))
{
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(heading);
    m_column->setContentsMargins(padding, padding, padding, padding);
    m_column->setSpacing(spacing);
    m_column->addWidget(makeLabel(heading, TextStyle::headline));
}

void SendingSection::reveal(QWidget *outcome)
{
    QTimer::singleShot(0, outcome, [outcome] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        for (QWidget *each = outcome; each; each = each->parentWidget()) {
            if (auto *area = qobject_cast<QScrollArea *>(each))
                area->ensureWidgetVisible(outcome);
        }
    });
}

} // namespace quenoria
