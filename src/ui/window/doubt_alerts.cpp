#include "ui/window/doubt_alerts.h"

#include "model/local_time.h"
#include "ui/kit/alert.h"

#include <QDateTime>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// Label, recipient, channel and hour, one line each.
QString account(const SendIntent &doubt, const QTimeZone &zone)
{
    const QDateTime hour = localDateTime(doubt.instant, zone);
    const QString channel = doubt.channel == u"sms"_s ? u"SMS"_s : u"E-mail"_s;
    return QStringList{doubt.label, doubt.recipient, channel,
                       hour.toString(u"dd/MM/yyyy 'à' HH:mm:ss"_s)}
        .join(u'\n');
}

} // namespace

DoubtAlerts::DoubtAlerts(SendDesk &desk, const QTimeZone &zone, QWidget *window)
    : QObject(window), m_desk(desk), m_zone(zone), m_window(window)
{
    connect(&desk, &SendDesk::doubtRaised, this, &DoubtAlerts::ask);
    // The window that it is asked over is not there yet.
    QMetaObject::invokeMethod(
        this,
        [this] {
            for (const SendIntent &doubt : m_desk.doubts())
                ask(doubt);
        },
        Qt::QueuedConnection);
}

void DoubtAlerts::ask(const SendIntent &doubt)
{
    if (std::ranges::find(m_waiting, doubt) != m_waiting.end())
        return;
    m_waiting.push_back(doubt);
    if (m_waiting.size() == 1)
        askNext();
}

void DoubtAlerts::askNext()
{
    if (m_waiting.empty())
        return;
    const auto answer = [this](DoubtAnswer given) { return [this, given] { settle(given); }; };
    m_alert =
        offerChoices(m_window, u"Cet envoi a été interrompu. Le message est peut-être parti."_s,
                     account(m_waiting.front(), m_zone),
                     {{u"Enregistrer l’envoi"_s, answer(DoubtAnswer::left)},
                      {u"Il n’est pas parti"_s, answer(DoubtAnswer::stayed)},
                      {u"Décider plus tard"_s, answer(DoubtAnswer::later)}});
}

void DoubtAlerts::settle(DoubtAnswer answer)
{
    const SendIntent doubt = m_waiting.front();
    m_waiting.erase(m_waiting.begin());
    m_desk.answer(doubt, answer);
    askNext();
}

} // namespace quenoria
