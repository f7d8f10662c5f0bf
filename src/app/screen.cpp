#include "app/screen.h"

#include <QFont>
#include <QFontMetrics>

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string_view>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int failed = 1;
constexpr unsigned patience = 10; ///< seconds that a screen gets to answer
constexpr std::string_view noAnswer =
    "Aucun écran ne répond : vérifiez DISPLAY ou WAYLAND_DISPLAY, ou essayez "
    "« quenoria --demo --tour DOSSIER » sans écran.\n";

/// Also called in a signal handler, where little is allowed.
[[noreturn]] void giveUp()
{
    const ssize_t written = ::write(STDERR_FILENO, noAnswer.data(), noAnswer.size());
    ::_exit(written < 0 ? failed + 1 : failed);
}

void giveUpOnFatal(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    if (type == QtFatalMsg)
        giveUp();
    if (type == QtCriticalMsg)
        ::fputs((text + u'\n').toLocal8Bit().constData(), stderr);
}

} // namespace

std::optional<Answer> missingScreen()
{
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return std::nullopt;
    }
    return Answer{u"Aucun écran n’est disponible. Essayez « quenoria --demo --tour DOSSIER ».\n"_s,
                  failed};
}

ScreenWatch::ScreenWatch() : m_before(qInstallMessageHandler(giveUpOnFatal))
{
    std::signal(SIGALRM, [](int) { giveUp(); });
    ::alarm(patience);
}

ScreenWatch::~ScreenWatch()
{
    ::alarm(0);
    std::signal(SIGALRM, SIG_DFL);
    qInstallMessageHandler(m_before);
}

std::optional<Answer> missingFonts()
{
    // Without any font the toolkit still names families, but none of them draws a letter.
    if (QFontMetrics(QFont()).inFont(u'a'))
        return std::nullopt;
    return Answer{u"Aucune police de caractères n’est installée : aucun texte ne pourrait être "
                  "affiché.\n"_s,
                  failed};
}

} // namespace quenoria
