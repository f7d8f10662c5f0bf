// What a user waits for in the table: a letter in the search field, a click on a header, a tick
// with its file written, a page of scrolling.

#include "contact_files.h"
#include "report.h"
#include "store/collection.h"
#include "store/prospect_store.h"
#include "support/fake_desktop.h"
#include "synced_file.h"
#include "ui/kit/switches.h"
#include "ui/kit/theme.h"
#include "ui/table/contact_table_model.h"
#include "ui/table/contact_table_view.h"

#include <QApplication>
#include <QFile>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

namespace quenoria::bench {
namespace {

using namespace Qt::StringLiterals;

constexpr int runs = 9;
constexpr int pages = 60;
constexpr int views = 4;  ///< from left to right
constexpr int rounds = 3; ///< of all pages: the first draws the letters, any may be disturbed
constexpr int sends = 6;
constexpr double frame = 16;
constexpr double firstLetter = 150;
constexpr double onePage = 4;
constexpr int manyRows = 10'000;
constexpr double manyTicks = 150;

void writeFiles(const test::FakeDesktop &desktop, int contacts)
{
    const QStringList names{u"BOULANGERIE"_s, u"GARAGE"_s, u"ÉPICERIE"_s, u"MENUISERIE"_s,
                            u"ÎLOT FLEURI"_s};
    const QStringList codes{u"29"_s, u"22"_s, u"35"_s, u"56"_s};
    Sequence<Prospect> prospects;
    Dictionary<SendStatus> statuses;
    Sequence<MessageTemplate> templates;
    Dictionary<QString> assignments;
    for (int entry = 0; entry < 8; ++entry)
        templates.append({u"modele-%1"_s.arg(entry), u"Relance %1"_s.arg(entry), u"Bonjour"_s});
    for (int contact = 0; contact < contacts; ++contact) {
        const QString id = idOf(contact);
        const int mixed = int(qint64(contact) * 7919 % contacts);
        prospects.append({id,
                          u"%1 %2 — QUIMPER (29)"_s.arg(names[contact % names.size()]).arg(mixed),
                          id, u"contact%1@example.org"_s.arg(mixed), codes[contact % codes.size()],
                          true, u"Artisan"_s});
        std::vector<Instant> history;
        for (int send = 0; send < sends; ++send)
            history.push_back(desktop.clock.now() -
                              std::chrono::hours(24 * (sends - send) + mixed));
        statuses.set(id, {contact % 3 == 0, history.back(), u"À rappeler le %1"_s.arg(mixed % 31),
                          std::nullopt, history});
        assignments.set(id, u"modele-%1"_s.arg(contact % 8));
    }
    desktop.writeFile(u"nouveaux-numeros.json"_s, fileOf(prospects));
    desktop.writeFile(u"suivi-envois.json"_s, fileOf(statuses));
    desktop.writeFile(u"modeles-messages.json"_s, fileOf(templates));
    desktop.writeFile(u"associations-messages.json"_s, fileOf(assignments));
}

template <typename Work>
double milliseconds(Work &&work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

/// The fastest of several runs, each of which is told its number.
template <typename Work>
double fastest(Work &&work)
{
    double best = milliseconds([&work] { work(0); });
    for (int run = 1; run < runs; ++run)
        best = std::min(best, milliseconds([&work, run] { work(run); }));
    return best;
}

/// One contact list in a table on the screen.
class Scene {
public:
    Scene(Report &report, int contacts) : m_report(report), m_contacts(contacts)
    {
        writeFiles(m_desktop, contacts);
        m_store.emplace(m_desktop.platform());
        figure("open the table, ms", milliseconds([this] {
                   m_model.emplace(*m_store, m_switches, m_desktop.clock);
                   m_view.emplace(*m_model);
               }));
        m_view->resize(1280, 600);
        m_view->show();
        QApplication::processEvents();
    }

    void search()
    {
        figure("first letter ever, ms", milliseconds([this] { type(u"a"_s); }), firstLetter);
        figure("one letter, ms", fastest([this](int run) { type(run % 2 ? u"ga"_s : u"g"_s); }),
               frame);
        figure("search emptied, ms", milliseconds([this] { type({}); }));
        m_model->setFilter({.departments = {u"29"_s, u"22"_s, u"35"_s}});
        figure("one letter with a filter, ms",
               fastest([this](int run) { type(run % 2 ? u"ga"_s : u"g"_s); }), frame);
        type({});
        m_model->setFilter({});
    }

    void sort()
    {
        for (int column = 0; column < m_model->columnCount(); ++column) {
            if (contactColumns()[std::size_t(column)].sort)
                figure(qUtf8Printable(u"header « %1 », ms"_s.arg(
                           m_model->headerData(column, Qt::Horizontal).toString())),
                       milliseconds([this, column] { m_model->toggleSort(column); }));
        }
        m_model->sort(columnOf(SortColumn::name), Qt::AscendingOrder);
    }

    void tick()
    {
        const QByteArray bytes = m_desktop.file(u"suivi-envois.json"_s);
        const QString path = m_store->file(Collection::statuses);
        const double floor = fastest([&](int) { writeSynced(path, bytes); });
        const int column = columnOf(SortColumn::stopped);
        const double ticked = fastest([this, column](int run) {
            m_model->setData(m_model->index(run, column), Qt::Checked, Qt::CheckStateRole);
        });
        m_report.ratio("one tick, file written, ms", m_contacts, floor, ticked, 1.3);
    }

    void tickMany()
    {
        IdSet ids;
        for (int row = 0; row < std::min(manyRows, m_model->rowCount()); ++row)
            ids.insert(m_model->contacts().at(row).id);
        const int column = columnOf(SortColumn::stopped);
        figure("many selected rows ticked, file written, ms",
               fastest([&](int run) { m_model->tickMany(column, run % 2 == 0, ids); }), manyTicks);
    }

    void scroll()
    {
        std::array<double, pages> fastest{};
        for (int round = 0; round < rounds; ++round) {
            for (int page = 0; page < pages; ++page) {
                const double taken = paintPage(page);
                double &known = fastest[std::size_t(page)];
                known = round == 0 ? taken : std::min(known, taken);
            }
        }
        figure("slowest of 60 pages painted, ms", *std::ranges::max_element(fastest), onePage);
    }

private:
    double paintPage(int page)
    {
        QScrollBar *bar = m_view->verticalScrollBar();
        QScrollBar *sideways = m_view->horizontalScrollBar();
        sideways->setValue(sideways->maximum() * (page % views) / (views - 1));
        QApplication::processEvents();
        return milliseconds([this, bar, page] {
            bar->setValue(bar->maximum() / pages * page);
            QImage image(m_view->size(), QImage::Format_RGB32);
            m_view->render(&image);
        });
    }

    void figure(const char *what, double measured, double budget = 0)
    {
        m_report.figure(what, m_contacts, measured, budget);
    }

    void type(const QString &text)
    {
        m_model->setSearchText(text);
        QApplication::processEvents();
    }

    Report &m_report;
    int m_contacts;
    test::FakeDesktop m_desktop;
    Switches m_switches{m_desktop.preferences};
    std::optional<ProspectStore> m_store;
    std::optional<ContactTableModel> m_model;
    std::optional<ContactTableView> m_view;
};

} // namespace
} // namespace quenoria::bench

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    quenoria::applyTheme(quenoria::Appearance::light);
    quenoria::bench::Report report;
    report.heading("floor");
    for (const int contacts : {5'000, 10'000, 100'000}) {
        quenoria::bench::Scene scene(report, contacts);
        scene.scroll();
        scene.search();
        scene.sort();
        scene.tick();
        scene.tickMany();
    }
    return report.exitStatus();
}
