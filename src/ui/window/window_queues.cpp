#include "ui/queue/batch_queue.h"
#include "ui/queue/contact_list_view.h"
#include "ui/queue/queue_sheet.h"
#include "ui/window/content_view.h"
#include "ui/window/outcome_line.h"
#include "ui/window/run_watch.h"

using namespace Qt::StringLiterals;

namespace quenoria {

void ContentView::openQueue(Channel channel)
{
    auto &queue = *new QueueSheet(channelDescriptor(channel), m_desk, m_switches, m_platform, this);
    connect(&queue, &QueueSheet::carriersRequested, this, &ContentView::chooseCarriers);
    connect(&m_platform.carriers, &Carriers::composeAnswered, &queue, &QueueSheet::tellOutcome);
    connect(&queue, &QueueSheet::stopRepliesRequested, this, &ContentView::showStopReplies);
    auto *watch = new RunWatch(*queue.queue(), m_platform.preferences, m_outcome);
    connect(watch, &RunWatch::progressed, this, &ContentView::runProgressed);
    connect(watch, &RunWatch::endedUnseen, this, &ContentView::runEndedUnseen);
    // The line is the context: a sheet that goes with its window closes its queue, too.
    connect(queue.queue(), &BatchQueue::closed, m_outcome,
            [this, line = m_outcome](const RunReport &report) {
                if (report.isWorthTelling())
                    line->tell(
                        u"%1 : %2"_s.arg(report.title, report.summary()), u"Voir"_s,
                        [this, report] { (new ContactListView(listOf(report), this))->present(); });
            });
    queue.present();
}

} // namespace quenoria
