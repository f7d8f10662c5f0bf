#include "ui/sheets/sending_section.h"

#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"

#include <QCoreApplication>
#include <QFutureWatcher>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int padding = 16;
constexpr int spacing = 12;

} // namespace

SendingSection::SendingSection(const QString &heading, QWidget *parent)
    : QFrame(parent), m_column(new QVBoxLayout(this)), m_outcome(new StatusLabel)
{
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(heading);
    m_column->setContentsMargins(padding, padding, padding, padding);
    m_column->setSpacing(spacing);
    m_column->addWidget(makeLabel(heading, TextStyle::headline));
}

void SendingSection::tryOut(const Trial &trial)
{
    if (std::exchange(m_isTrying, true))
        return;
    refresh();
    m_outcome->setStatus(trial.underWay, Tint::secondary);
    revealOutcome();
    auto *watcher = new QFutureWatcher<TransportResult>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, trial] {
        watcher->deleteLater();
        conclude(trial, watcher->result());
    });
    watcher->setFuture(trial.send());
}

void SendingSection::conclude(const Trial &trial, const TransportResult &result)
{
    m_isTrying = false;
    refresh();
    if (result)
        m_outcome->setStatus(result->message.value_or(trial.refused), Tint::negative,
                             u"exclamationmark.triangle.fill"_s);
    else
        tellAccepted();
    revealOutcome();
}

/// Scrolls the sheet to an outcome that has just appeared, once it has its place.
void SendingSection::revealOutcome()
{
    QTimer::singleShot(0, m_outcome, [outcome = m_outcome] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        for (QWidget *each = outcome; each; each = each->parentWidget()) {
            if (auto *area = qobject_cast<QScrollArea *>(each))
                area->ensureWidgetVisible(outcome);
        }
    });
}

} // namespace quenoria
