// What the store adds to its files: one tick against writing the same bytes, a start against
// reading and parsing the same files, and what its report on all sends takes.

#include "contact_files.h"
#include "report.h"
#include "store/collection.h"
#include "store/prospect_store.h"
#include "store/send_report.h"
#include "support/fake_desktop.h"
#include "synced_file.h"

#include <QCoreApplication>
#include <QDir>

#include <simdjson.h>

#include <chrono>

namespace quenoria::bench {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr int sends = 12; ///< in the history of each contact, one a month

constexpr int runs = 15;

/// A store's files once every contact has a full history.
void writeFiles(const test::FakeDesktop &desktop, int contacts)
{
    Sequence<Prospect> prospects;
    Dictionary<SendStatus> statuses;
    Dictionary<EmailSendStatus> emailStatuses;
    Dictionary<QString> assignments;
    std::map<QString, std::vector<QString>> months;
    for (int contact = 0; contact < contacts; ++contact) {
        const QString id = idOf(contact);
        const QString address = u"contact%1@example.org"_s.arg(contact);
        prospects.append({id, u"ENTREPRISE %1 — QUIMPER (29) — %2"_s.arg(contact).arg(id), id,
                          address, u"29"_s, true, u"Artisan"_s});
        std::vector<Instant> history;
        for (int send = 0; send < sends; ++send) {
            history.push_back(desktop.clock.now() - std::chrono::days(30 * (sends - send)));
            months[u"2025-%1"_s.arg(send + 1, 2, 10, QChar(u'0'))].push_back(id);
        }
        statuses.set(id, {true, history.back(), u"À rappeler"_s, std::nullopt, history});
        emailStatuses.set(id, {true, history.back(), history});
        assignments.set(id, ProspectStore::defaultMessageID);
    }
    Dictionary<TextSet> recipients;
    for (auto &[month, ids] : months)
        recipients.set(month, TextSet(std::move(ids)));
    desktop.writeFile(u"nouveaux-numeros.json"_s, fileOf(prospects));
    desktop.writeFile(u"suivi-envois.json"_s, fileOf(statuses));
    desktop.writeFile(u"suivi-envois-mails.json"_s, fileOf(emailStatuses));
    desktop.writeFile(u"associations-messages.json"_s, fileOf(assignments));
    desktop.writeFile(u"quota-destinataires-sms.json"_s, fileOf(recipients));
}

/// Milliseconds of the fastest run.
template <typename Work, typename Prepare = void (*)()>
double measure(
    Work &&work, Prepare &&prepare = [] {})
{
    std::chrono::duration<double, std::milli> best = 1h;
    for (int run = 0; run < runs; ++run) {
        prepare();
        const auto start = std::chrono::steady_clock::now();
        work(run);
        best = std::min<decltype(best)>(best, std::chrono::steady_clock::now() - start);
    }
    return best.count();
}

void reportTick(Report &report, int contacts)
{
    test::FakeDesktop desktop;
    writeFiles(desktop, contacts);
    ProspectStore store(desktop.platform());
    const QString path = store.file(Collection::statuses);
    store.setComment(u"À rappeler"_s, store.allProspects().front());
    const QByteArray bytes = desktop.file(u"suivi-envois.json"_s);
    const double floor = measure([&](int) { writeSynced(path, bytes); });
    const double tick =
        measure([&](int run) { store.setSent(false, store.allProspects()[std::size_t(run)]); });
    report.ratio("one tick, file written", contacts, floor, tick, 1.3);
}

void parse(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray bytes = file.readAll();
    simdjson::dom::parser parser;
    if (parser.parse(bytes.constData(), std::size_t(bytes.size())).error())
        std::fputs("the floor could not parse\n", stderr);
}

void reportStart(Report &report, int contacts, double budget)
{
    test::FakeDesktop desktop;
    writeFiles(desktop, contacts);
    const QDir folder(desktop.folders.data());
    const double floor = measure([&](int) {
        for (const CollectionDescriptor &entry : collections())
            parse(folder.filePath(QString::fromUtf16(entry.fileName)));
    });
    std::optional<ProspectStore> store;
    const double start =
        measure([&](int) { store.emplace(desktop.platform()); }, [&] { store.reset(); });
    report.ratio("start of the store", contacts, floor, start, budget);
}

/// Eight sends of each contact, four on each channel, over three years.
void writeVariedSends(const test::FakeDesktop &desktop, int contacts)
{
    constexpr int groups = 96;
    constexpr int sendsPerChannel = 4;
    Sequence<Prospect> prospects;
    Dictionary<SendStatus> statuses;
    Dictionary<EmailSendStatus> emailStatuses;
    for (int contact = 0; contact < contacts; ++contact) {
        const QString id = idOf(contact);
        const QString group = QString::number(contact % groups);
        prospects.append({id, u"ENTREPRISE"_s, id, {}, group, true, u"Métier "_s + group});
        std::vector<Instant> history;
        for (int send = sendsPerChannel; send > 0; --send)
            history.push_back(desktop.clock.now() - std::chrono::days(270 * send + contact % 270));
        const bool isStopped = contact % 50 == 0;
        statuses.set(id, {true, history.back(), {}, isStopped, history});
        emailStatuses.set(id, {true, history.back(), history});
    }
    desktop.writeFile(u"nouveaux-numeros.json"_s, fileOf(prospects));
    desktop.writeFile(u"suivi-envois.json"_s, fileOf(statuses));
    desktop.writeFile(u"suivi-envois-mails.json"_s, fileOf(emailStatuses));
}

void reportSends(Report &report, int contacts)
{
    test::FakeDesktop desktop;
    writeVariedSends(desktop, contacts);
    const ProspectStore store(desktop.platform());
    const Instant now = desktop.clock.now();
    const double taken = measure([&](int) { (void)sendReport(store, desktop.clock.zone(), now); });
    constexpr double budget = 100;
    report.figure("report on all sends, ms", contacts, taken, budget);
}

} // namespace
} // namespace quenoria::bench

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    quenoria::bench::Report report;
    report.heading("floor, ms");
    for (const int contacts : {5'000, 100'000})
        quenoria::bench::reportTick(report, contacts);
    quenoria::bench::reportStart(report, 10'000, 4.0);
    quenoria::bench::reportStart(report, 100'000, 2.5);
    quenoria::bench::reportSends(report, 100'000);
    return report.exitStatus();
}
