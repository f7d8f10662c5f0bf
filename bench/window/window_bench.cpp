// What a start costs the user: the time until the window is on the screen, against that with an
// empty folder, and the memory that many contacts take, against their files.

#include "contact_files.h"
#include "messaging/send_desk.h"
#include "platform/linux/memory.h"
#include "report.h"
#include "store/prospect_store.h"
#include "support/fake_desktop.h"
#include "ui/kit/switches.h"
#include "ui/kit/theme.h"
#include "ui/window/content_view.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QProcess>

#include <chrono>

namespace quenoria::bench {
namespace {

using namespace Qt::StringLiterals;

constexpr int sends = 8;
constexpr int runs = 15;
constexpr double mega = 1 << 20;

/// The files of contacts who had as many e-mails as SMS.
void writeFiles(const test::FakeDesktop &desktop, int contacts)
{
    Sequence<Prospect> prospects;
    Dictionary<SendStatus> statuses;
    Dictionary<EmailSendStatus> emailStatuses;
    for (int contact = 0; contact < contacts; ++contact) {
        const QString id = idOf(contact);
        const int mixed = int(qint64(contact) * 7919 % contacts);
        prospects.append({id, u"ENTREPRISE %1 — QUIMPER (29) — %2"_s.arg(mixed).arg(id), id,
                          u"contact%1@example.org"_s.arg(contact), u"29"_s, true, u"Artisan"_s});
        std::vector<Instant> history;
        for (int send = 0; send < sends; ++send)
            history.push_back(desktop.clock.now() -
                              std::chrono::hours(700 * (sends - send) + mixed));
        statuses.set(id, {true, history.back(), u"À rappeler"_s, std::nullopt, history});
        emailStatuses.set(id, {true, history.back(), history});
    }
    desktop.writeFile(u"nouveaux-numeros.json"_s, fileOf(prospects));
    desktop.writeFile(u"suivi-envois.json"_s, fileOf(statuses));
    desktop.writeFile(u"suivi-envois-mails.json"_s, fileOf(emailStatuses));
}

/// Of this process, as the system counts it: "VmRSS" now, "VmHWM" at its highest.
double megabytes(const QByteArray &name)
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.simplified().split(' ')[1].toDouble() / 1024;
    }
    return 0;
}

/// The program's part of a start over the files of a folder, in a process of its own.
int showWindow(int argc, char **argv, const QString &folder, bool searches)
{
    const QApplication application(argc, argv);
    applyTheme(Appearance::light);
    test::FakeDesktop desktop;
    QDir().mkpath(QFileInfo(desktop.folders.data()).path());
    QFile::link(folder, desktop.folders.data());
    Switches switches(desktop.preferences);
    ProspectStore store(desktop.platform(), FirstReading::contacts);
    SendDesk desk(store, desktop.platform());
    ContentView window(desk, switches, desktop.platform());
    window.show();
    while (!window.isActiveWindow())
        QApplication::processEvents();
    window.grab();
    if (!searches)
        _exit(0); // what comes after is not the user's
    store.complete();
    const auto search = [&](const QString &text) {
        window.findChild<QLineEdit *>()->setText(text);
        QApplication::processEvents();
    };
    search(u"a"_s);
    search({});
    const double peak = megabytes("VmHWM");
    returnFreeMemory();
    std::printf("%f %f\n", megabytes("VmRSS"), peak);
    std::fflush(stdout);
    _exit(0);
}

QByteArray run(const QString &folder, const QString &mode)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {mode, folder});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        std::fputs("the window could not be shown\n", stderr);
    return process.readAllStandardOutput();
}

/// Milliseconds of the fastest of several starts.
double start(const QString &folder)
{
    std::chrono::duration<double, std::milli> best = std::chrono::hours(1);
    for (int each = 0; each < runs; ++each) {
        const auto begin = std::chrono::steady_clock::now();
        run(folder, u"--show"_s);
        best = std::min<decltype(best)>(best, std::chrono::steady_clock::now() - begin);
    }
    return best.count();
}

struct Filled {
    explicit Filled(int contacts)
    {
        if (contacts > 0)
            writeFiles(desktop, contacts);
        else
            QDir().mkpath(desktop.folders.data());
        run(desktop.folders.data(), u"--search"_s); // writes the files of a first start
    }

    double size() const
    {
        qint64 bytes = 0;
        for (const QFileInfo &file : QDir(desktop.folders.data()).entryInfoList(QDir::Files))
            bytes += file.size();
        return double(bytes) / mega;
    }

    test::FakeDesktop desktop;
};

int reportAll()
{
    Report report;
    report.heading("empty, ms");
    const Filled empty(0);
    const Filled tenThousand(10'000);
    const Filled hundredThousand(100'000);
    const double floor = start(empty.desktop.folders.data());
    report.ratio("window visible", 10'000, floor, start(tenThousand.desktop.folders.data()), 1.5);
    report.ratio("window visible", 100'000, floor, start(hundredThousand.desktop.folders.data()),
                 5);
    const QList<QByteArray> memory =
        run(hundredThousand.desktop.folders.data(), u"--search"_s).simplified().split(' ');
    report.heading("files, MB");
    report.ratio("memory, searched once, MB", 100'000, hundredThousand.size(),
                 memory.value(0).toDouble(), 250 / 105.0);
    report.ratio("memory at its highest, MB", 100'000, hundredThousand.size(),
                 memory.value(1).toDouble(), 300 / 105.0);
    return report.exitStatus();
}

} // namespace
} // namespace quenoria::bench

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 3)
        return quenoria::bench::showWindow(argc, argv, QString::fromLocal8Bit(argv[2]),
                                           QByteArrayView(argv[1]) == "--search");
    const QCoreApplication application(argc, argv);
    return quenoria::bench::reportAll();
}
