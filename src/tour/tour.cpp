#include "tour/tour.h"

#include "tour/demonstration.h"
#include "tour/visits.h"
#include "ui/kit/screen_room.h"
#include "ui/kit/switches.h"
#include "ui/window/content_view.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>

#include <iostream>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr QSize windowSize{1440, 900};

} // namespace

Tour::Tour(ContentView &window, ProspectStore &store, Switches &switches, const Platform &platform)
    : m_window(window), m_store(store), m_switches(switches), m_platform(platform)
{
}

QString Tour::freshDataFolder(const QString &pictures)
{
    const QString now = QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH.mm.ss"_s);
    return QDir(pictures).absoluteFilePath(u"donnees "_s + now);
}

void Tour::enlargeLetters()
{
    const int percent = qEnvironmentVariableIntValue("QUENORIA_LETTERS");
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * (percent > 0 ? percent : 100) / 100);
    QApplication::setFont(font);
}

int Tour::run(const QString &pictures)
{
    try {
        m_window.resize(windowSize.boundedTo(screenRoom(m_window)));
        m_switches.setAutoValidateSMS(false);
        m_switches.setAutoValidateEmail(false);
        Guide guide(m_window, pictures);
        guide.picture(u"premier-demarrage"_s);
        importDemonstration(m_window, m_store, m_platform);
        visitImport(guide);
        const VisitedContacts visited = visitQueues(guide, m_store);
        visitSheets(guide, m_window, m_platform);
        checkFiles(guide, m_store, visited);
        guide.say(u"Visite terminée."_s);
        return 0;
    } catch (const TourFailure &failure) {
        std::cerr << "La visite s’arrête : " << failure.what() << std::endl;
        return 1;
    }
}

} // namespace quenoria
