#include "app/appearance.h"
#include "app/command_line.h"
#include "app/data_folder.h"
#include "app/first_picture.h"
#include "app/olvak_sms_manual_app.h"
#include "app/screen.h"
#include "app/second_start.h"
#include "model/text_order.h"
#include "platform/demo/demo_desktop.h"
#include "platform/linux/bus_run_signs.h"
#include "platform/linux/color_scheme_setting.h"
#include "platform/linux/held_keys.h"
#include "platform/linux/linux_desktop.h"
#include "platform/linux/memory.h"
#include "platform/qt/main_window.h"
#include "platform/qt/single_instance.h"
#include "platform/qt/termination_signals.h"
#include "resources/resources.h"
#include "tour/demonstration.h"
#include "tour/rehearsal.h"
#include "tour/tour.h"
#include "ui/kit/deliberate_input.h"
#include "ui/kit/symbol.h"
#include "ui/sheets/about_view.h"
#include "ui/window/content_view.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QPointer>
#include <QSessionManager>
#include <QTimer>
#include <QTranslator>

#include <csignal>
#include <iostream>

using namespace Qt::StringLiterals;
using namespace quenoria;

namespace {

void nameApplication()
{
    QCoreApplication::setOrganizationName(u"Quenoria"_s);
    QCoreApplication::setApplicationName(u"Quenoria"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(QUENORIA_VERSION));
}

/// The toolkit's own texts: buttons of dialogs, file panels, help.
void speakFrench(QTranslator &translator)
{
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (translator.load(u"qtbase_fr"_s, folder))
        QCoreApplication::installTranslator(&translator);
}

std::variant<StartOptions, Answer> readCommandLine(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QTranslator translator;
    speakFrench(translator);
    return parseCommandLine(QCoreApplication::arguments());
}

int print(const Answer &answer, std::ostream &out)
{
    out << answer.text.toStdString() << std::flush;
    return answer.status;
}

std::unique_ptr<Desktop> makeDesktop(const StartOptions &options)
{
    if (options.tourFolder && !options.dataFolder)
        return std::make_unique<DemoDesktop>(Tour::freshDataFolder(*options.tourFolder));
    if (options.demonstration)
        return std::make_unique<DemoDesktop>(
            options.dataFolder.value_or(DemoDesktop::standardFolder()));
    return std::make_unique<LinuxDesktop>(
        options.dataFolder.value_or(LinuxDesktop::standardDataFolder()));
}

/// Lets the session end, or the user stay, once nothing is under way.
void followSession(ContentView &window)
{
    const auto commit = [&window](QSessionManager &session) {
        const bool mayAsk = session.allowsInteraction();
        if (!window.settle(mayAsk))
            session.cancel();
        session.release();
    };
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, &window, commit,
                     Qt::DirectConnection);
}

void showRuns(const ContentView &window, RunSigns &signs)
{
    QObject::connect(&window, &ContentView::runProgressed, &window,
                     [&signs](int done, int total) { signs.showProgress(done, total); });
    QObject::connect(
        &window, &ContentView::runEndedUnseen, &window,
        [&signs](const QString &title, const QString &text) { signs.notify(title, text); });
}

constexpr int startAgain = -1; ///< instead of an exit code: the files are to be read anew

/// Lives until the window has been left; gives the exit code, which tells a signal.
int execute(ContentView &window, TerminationSignals &termination)
{
    int asked = 0;
    followSession(window);
    QObject::connect(&termination, &TerminationSignals::received, &window, [&](int exitCode) {
        asked = exitCode;
        window.quit();
    });
    QObject::connect(&window, &ContentView::stayed, &termination, [&] {
        asked = 0;
        termination.rearm();
    });
    QObject::connect(&window, &ContentView::restoreDecided, qApp,
                     [] { QCoreApplication::exit(startAgain); });
    QTimer::singleShot(0, &window, &returnFreeMemory); // of the files that were read
    const int failure = QApplication::exec();
    return failure != 0 ? failure : asked;
}

/// What lives longer than a window, of which there is another after a restore.
struct Process {
    const StartOptions &options;
    const Desktop &desktop;
    OlvakSMSManualApp &application;
    TerminationSignals &termination;
    RunSigns &signs;
    QPointer<ContentView> shown = {};
    bool isFirst = true; ///< of the windows
};

/// What the command line asks of the first window, and what a restore leaves to say.
void beginWith(Process &process, ContentView &window, DataFiles files)
{
    const StartOptions &options = process.options;
    OlvakSMSManualApp &application = process.application;
    const bool isFirst = std::exchange(process.isFirst, false);
    if (files == DataFiles::restored)
        window.tellOfRestore();
    else if (options.demonstration)
        importDemonstration(window, application.store(), application.platform());
    if (isFirst && options.workbook)
        window.openWorkbook(*options.workbook);
    if (isFirst && options.rehearsal)
        rehearse(window, application.desk(), application.switches(), *options.rehearsal);
}

int runWindow(Process &process)
{
    const StartOptions &options = process.options;
    OlvakSMSManualApp &application = process.application;
    int asked = EXIT_FAILURE;
    // A question before the window must not outlast a signal.
    const auto asking =
        QObject::connect(&process.termination, &TerminationSignals::received, qApp,
                         [&asked](int code) { QCoreApplication::exit(asked = code); });
    const DataFiles files = prepareDataFiles(application.platform());
    if (files == DataFiles::outOfReach ||
        !openData([&application] { application.desk(); }, application.platform()))
        return asked;
    ContentView window(application.desk(), application.switches(), application.platform());
    window.setDemonstration(openDemonstration);
    if (const QString notice = process.desktop.notice(); !notice.isEmpty())
        window.showBanner(notice);
    showRuns(window, process.signs);
    process.shown = &window;
    const bool stays = showFirstPicture(window); // before the histories of its contacts are read
    if (!stays && asked == EXIT_FAILURE)
        return EXIT_SUCCESS;
    if (asked != EXIT_FAILURE ||
        !openData([&application] { application.completeStore(); }, application.platform()))
        return asked;
    QObject::disconnect(asking);
    if (options.tourFolder)
        return Tour(window, application.store(), application.switches(), application.platform())
            .run(*options.tourFolder);
    beginWith(process, window, files);
    window.startBackups();
    return execute(window, process.termination);
}

int run(const StartOptions &options)
{
    TerminationSignals termination;
    const std::unique_ptr<Desktop> desktop = makeDesktop(options);
    OlvakSMSManualApp application(*desktop);
    const Platform &platform = application.platform();
    BusRunSigns signs(QDBusConnection::sessionBus(), QGuiApplication::desktopFileName());
    Process process{options, *desktop, application, termination, signs};
    SingleInstance instance(platform.folders.data(), [&process](const QString &workbook) {
        bringMainWindowToFront();
        if (process.shown && !workbook.isEmpty())
            process.shown->openWorkbook(workbook);
    });
    if (options.tourFolder)
        Tour::enlargeLetters();
    if (const auto answer =
            enterDataFolder(platform, instance, options.workbook.value_or(QString())))
        return print(*answer, std::cerr);
    ColorSchemeSetting colorScheme(QDBusConnection::sessionBus());
    keepAppearance(options.darkAppearance, colorScheme);
    int status = runWindow(process);
    while (status == startAgain) {
        application.closeStore();
        status = runWindow(process);
    }
    return status;
}

} // namespace

int main(int argc, char **argv)
{
    nameApplication();
    const auto parsed = readCommandLine(argc, argv);
    if (const auto *answer = std::get_if<Answer>(&parsed))
        return print(*answer, answer->status == 0 ? std::cout : std::cerr);
    const StartOptions &options = std::get<StartOptions>(parsed);
    if (const auto answer = missingScreen()) {
        if (!options.tourFolder)
            return print(*answer, std::cerr);
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // Without a window manager every sheet would be a warning about what cannot be asked of it.
        QLoggingCategory::setFilterRules(u"default.warning=false"_s);
    }
    QGuiApplication::setDesktopFileName(u"com.example.Quenoria"_s);
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow is a failed write like others
    std::optional<ScreenWatch> watch(std::in_place);
    QApplication application(argc, argv);
    watch.reset();
    if (const auto answer = missingFonts())
        return print(*answer, std::cerr);
    askForHeldKeys();
    const DeliberateInput input(application, isKeyDown);
    application.setProperty(buildNumberProperty, QStringLiteral(QUENORIA_BUILD));
    QLocale::setDefault(displayLocale());
    QTranslator translator;
    speakFrench(translator);
    initResources();
    QGuiApplication::setWindowIcon(QIcon::fromTheme(
        QGuiApplication::desktopFileName(), symbol(u"paperplane.circle.fill"_s, Tint::accent)));
    return run(options);
}
