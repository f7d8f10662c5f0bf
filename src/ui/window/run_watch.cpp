#include "ui/window/run_watch.h"

#include "platform/preferences.h"
#include "ui/queue/batch_queue.h"

#include <QAction>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString name = u"Quenoria"_s;
const QString noticeKey = u"EnvoiAvisDeFin"_s;

bool isWanted(const Preferences &preferences)
{
    return preferences.flag(noticeKey).value_or(false);
}

QString titleDuring(const BatchQueue &queue)
{
    return u"%1 %2 sur %3 — %4"_s.arg(queue.channel().noun,
                                      QString::number(queue.state().completedCount + 1),
                                      QString::number(queue.state().initialQueueCount), name);
}

} // namespace

RunWatch::RunWatch(const BatchQueue &queue, const Preferences &preferences, QWidget *parent)
    : QObject(parent), m_queue(queue), m_preferences(preferences), m_window(parent->window())
{
    connect(&queue, &BatchQueue::changed, this, &RunWatch::look);
    connect(&queue, &QObject::destroyed, this, &QObject::deleteLater);
}

void RunWatch::addSwitch(QMenu &menu, Preferences &preferences)
{
    QAction *entry = menu.addAction(u"Prévenir à la fin d’un envoi"_s);
    entry->setCheckable(true);
    entry->setChecked(isWanted(preferences));
    connect(entry, &QAction::toggled, &menu,
            [&preferences](bool on) { preferences.setFlag(noticeKey, on); });
}

void RunWatch::look()
{
    const bool isSending = m_queue.isSending();
    const bool isAlive = qobject_cast<QMainWindow *>(m_window); // not about to be destroyed
    if (!isAlive || (!isSending && !m_wasSending))
        return;
    const QueueState &state = m_queue.state();
    m_window->setWindowTitle(isSending ? titleDuring(m_queue) : name);
    Q_EMIT progressed(state.completedCount, isSending ? state.initialQueueCount : 0);
    if (!std::exchange(m_wasSending, isSending) || isSending)
        return;
    if (isWanted(m_preferences) && QGuiApplication::applicationState() != Qt::ApplicationActive)
        Q_EMIT endedUnseen(m_queue.channel().queue.title, m_queue.report().summary());
}

} // namespace quenoria
