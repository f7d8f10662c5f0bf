#include "ui/window/window_fixture.h"

#include "ui/kit/screen_room.h"
#include "ui/kit/widget_style.h"
#include "ui/queue/queue_sheet.h"
#include "ui/window/contact_panel.h"
#include "ui/window/filter_bar.h"
#include "ui/window/outcome_line.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

struct Setting {
    const char *name;
    const char16_t *screen; ///< of tests/data/screens.json: what a task bar of 48 points leaves
    double fontScale;
    int rows; ///< of the table that are whole in sight
};

class OnScreen : public WindowTest, public testing::WithParamInterface<Setting> {
protected:
    OnScreen()
    {
        QFont larger = m_font;
        larger.setPointSizeF(m_font.pointSizeF() * GetParam().fontScale);
        QApplication::setFont(larger);
    }
    ~OnScreen() override
    {
        closeWindow();
        QApplication::setFont(m_font);
    }

    void openWindow()
    {
        const auto screens = QGuiApplication::screens();
        const auto named = [](const QScreen *screen) {
            return screen->name() == QString::fromUtf16(GetParam().screen);
        };
        window().setScreen(*std::ranges::find_if(screens, named));
        window().resize(QSize(1280, 800).boundedTo(screenRoom(window())));
        settle();
    }

    void expectEachStateWhole();

private:
    QFont m_font = QApplication::font();
};

/// The area whose scrolling brings the widget into sight, or the window itself.
const QWidget *sightOf(const QWidget *widget)
{
    for (const QWidget *above = widget->parentWidget(); above; above = above->parentWidget()) {
        const auto *area = qobject_cast<const QScrollArea *>(above);
        if (area && area->widget()->isAncestorOf(widget))
            return area->widget();
        if (above->isWindow())
            return above;
    }
    return widget->window();
}

bool isCut(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget); label && label->wordWrap())
        return label->height() < label->heightForWidth(label->width());
    if (qobject_cast<const QScrollBar *>(widget) || qobject_cast<const QLineEdit *>(widget))
        return widget->height() < widget->minimumSizeHint().height();
    if (qobject_cast<const QAbstractScrollArea *>(widget) || widget->inherits("QComboBox"))
        return false;
    return widget->width() < widget->sizeHint().width() ||
           widget->height() < widget->minimumSizeHint().height();
}

QList<const QWidget *> partsOf(const QWidget &window)
{
    QList<const QWidget *> parts;
    for (const auto *each : window.findChildren<QWidget *>()) {
        const auto *label = qobject_cast<const QLabel *>(each);
        const bool isPart =
            qobject_cast<const QAbstractButton *>(each) || qobject_cast<const QLineEdit *>(each) ||
            qobject_cast<const QComboBox *>(each) ||
            qobject_cast<const QAbstractScrollArea *>(each) || (label && !label->text().isEmpty());
        const bool isInner = each->parentWidget()->inherits("QLineEdit") ||
                             each->parentWidget()->inherits("QAbstractSpinBox") ||
                             each->parentWidget()->inherits("QAbstractItemView");
        if (isPart && !isInner && each->isVisible() && each->window() == &window)
            parts << each;
    }
    return parts;
}

QString nameOf(const QWidget *widget)
{
    const QString text = widget->property("text").toString();
    return QString::fromLatin1(widget->metaObject()->className()) + u" "_s +
           (text.isEmpty() ? widget->accessibleName() : text);
}

/// What a person could not see or reach in the window.
QStringList faultsOf(const QWidget &window)
{
    QStringList faults;
    const QSize room = screenRoom(window);
    if (window.width() > room.width() || window.height() > room.height())
        faults << u"the window, of %1 × %2"_s.arg(window.width()).arg(window.height());
    const QList<const QWidget *> parts = partsOf(window);
    for (const QWidget *part : parts) {
        const QWidget *sight = sightOf(part);
        const QRect place(part->mapTo(sight, QPoint()), part->size());
        if (!sight->rect().contains(place))
            faults << u"out of sight: "_s + nameOf(part);
        if (isCut(part))
            faults << u"cut: "_s + nameOf(part);
        const auto *area = qobject_cast<const QScrollArea *>(part);
        if (area && area->horizontalScrollBar()->maximum() > 0)
            faults << u"wider than what shows it: "_s + nameOf(part->parentWidget());
        for (const QWidget *other : parts) {
            const bool areApart =
                sightOf(other) == sight && !other->isAncestorOf(part) && !part->isAncestorOf(other);
            if (other <= part || !areApart)
                continue;
            if (QRect(other->mapTo(sight, QPoint()), other->size()).intersects(place))
                faults << u"over each other: %1, %2"_s.arg(nameOf(part), nameOf(other));
        }
    }
    return faults;
}

/// Buttons with a text that Alt and a letter of their own do not reach.
QStringList withoutLetter(const QWidget &window)
{
    QStringList faults;
    QSet<QString> taken;
    for (const auto *button : window.findChildren<QAbstractButton *>()) {
        const QString keys = button->shortcut().toString();
        const bool isShown = button->isVisible() && button->window() == &window;
        if (!isShown || button->text().isEmpty())
            continue;
        if (!keys.startsWith(u"Alt+"_s) || taken.contains(keys))
            faults << button->text() + u" "_s + keys;
        taken << keys;
    }
    return faults;
}

/// The same of a menu's entries, while it is open; closed, their texts are as written.
QStringList withoutLetter(QMenu &menu)
{
    WidgetStyle().polish(&menu);
    Q_EMIT menu.aboutToShow();
    QStringList faults;
    QList<QKeySequence> taken{QKeySequence()};
    for (const QAction *entry : menu.actions()) {
        const QKeySequence letter = QKeySequence::mnemonic(entry->text());
        if (!entry->isSeparator() && taken.contains(letter))
            faults << entry->text();
        taken << letter;
        faults << (entry->menu() ? withoutLetter(*entry->menu()) : QStringList());
    }
    Q_EMIT menu.aboutToHide();
    for (const QAction *entry : menu.actions())
        EXPECT_FALSE(entry->text().contains(u'&')) << entry->text().toStdString();
    return faults;
}

TEST_P(OnScreen, EverySheetCanBeSeenAndUsedWhole)
{
    openWindow();
    for (int send = 0; send < 40; ++send)
        store().recordSentNow(alix());
    store().setSelectedForSending(true, alix());
    store().setSelectedForEmailSending(true, alix());
    table().setCurrentIndex(model().index(model().contacts().rowOf(alix().id), 0));
    desktop.panels.answer = QStringLiteral(QUENORIA_TEST_DATA "/workbooks/openpyxl.xlsx");
    std::vector<std::function<void(ContentView &)>> commands;
    for (const Channel channel : allChannels) {
        for (const auto command : {&ContentView::manageTemplates, &ContentView::openQueue})
            commands.emplace_back([=](ContentView &view) { (view.*command)(channel); });
    }
    for (const auto command :
         {&ContentView::addContact, &ContentView::editCurrentContact, &ContentView::showImportHelp,
          &ContentView::manageDepartments, &ContentView::testMessage, &ContentView::showAbout,
          &ContentView::showCurrentHistory, &ContentView::showCurrentDossier,
          &ContentView::showReport, &ContentView::checkWorkbook, &ContentView::chooseCarriers,
          &ContentView::exportData, &ContentView::restoreBackup})
        commands.emplace_back(command);
    for (const auto &command : commands) {
        command(window());
        QThreadPool::globalInstance()->waitForDone();
        settle();
        auto *sheet = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        ASSERT_NE(sheet, nullptr);
        EXPECT_EQ(faultsOf(*sheet), QStringList()) << sheet->windowTitle().toStdString();
        EXPECT_EQ(withoutLetter(*sheet), QStringList()) << sheet->windowTitle().toStdString();
        if (auto *queue = qobject_cast<QueueSheet *>(sheet)) {
            desktop.scripts.answer = [](const QString &) { return ScriptDone{}; };
            const auto buttons = queue->findChildren<QPushButton *>();
            (*std::ranges::find_if(buttons, &QPushButton::isDefault))->click();
            settle();
            EXPECT_EQ(faultsOf(*sheet), QStringList()) << sheet->windowTitle().toStdString();
        }
        sheet->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// With and without what can be shown and hidden around the table.
void OnScreen::expectEachStateWhole()
{
    auto *panel = window().findChild<ContactPanel *>();
    auto *filters = window().findChild<FilterBar *>();
    for (const int state : {0, 1, 2, 3, 4, 5, 6, 7}) {
        if (panel->isHidden() != bool(state & 1))
            window().togglePanel();
        if (filters->isHidden() != bool(state & 2))
            window().toggleFilters();
        window().findChild<OutcomeLine *>()->tell(
            state & 4 ? QString() : u"12 contact(s) coché(s)"_s, u"Annuler"_s, [] {});
        settle();
        EXPECT_EQ(faultsOf(window()), QStringList()) << state;
        EXPECT_GE(table().viewport()->height(), table().rowHeight(0)) << state;
    }
}

TEST_P(OnScreen, TheWindowCanBeSeenAndUsedWhole)
{
    openWindow();
    EXPECT_EQ(faultsOf(window()), QStringList());
    table().setCurrentIndex(model().index(0, 0));
    QSet<QKeySequence> titles;
    for (const QAction *title : window().menuBar()->actions()) {
        titles << QKeySequence::mnemonic(title->text());
        EXPECT_EQ(withoutLetter(*title->menu()), QStringList()) << title->text().toStdString();
    }
    EXPECT_TRUE(titles.size() == window().menuBar()->actions().size() &&
                !titles.contains(QKeySequence()));
    const int rows = (table().viewport()->height() - 1) / table().rowHeight(0);
    EXPECT_GE(rows, GetParam().rows);
    const int department = columnOf(SortColumn::department);
    EXPECT_TRUE(GetParam().fontScale > 1 ||
                table().columnViewportPosition(department) + table().columnWidth(department) <=
                    table().viewport()->width());
    expectEachStateWhole();
    window().findChild<QLineEdit *>()->setText(u"qui n’est pas là"_s);
    expectEachStateWhole();
    store().deleteProspects(model().shownContacts());
    window().showAll();
    store().deleteProspects(model().shownContacts());
    settle();
    ASSERT_EQ(model().contacts().total(), 0);
    expectEachStateWhole();
}

INSTANTIATE_TEST_SUITE_P(
    Window, OnScreen,
    testing::Values(Setting{"Laptop", u"1280x800", 1, 14},
                    Setting{"LaptopLargeFont", u"1280x800", 1.5, 7},
                    Setting{"LaptopLargestFont", u"1280x800", 2, 4},
                    Setting{"Small", u"1366x768 at 125 %", 1, 7},
                    Setting{"SmallLargeFont", u"1366x768 at 125 %", 1.5, 3},
                    Setting{"SmallLargestFont", u"1366x768 at 125 %", 2, 1},
                    Setting{"Smallest", u"1920x1080 at 200 %", 1, 5},
                    Setting{"SmallestLargeFont", u"1920x1080 at 200 %", 1.5, 2},
                    Setting{"SmallestLargestFont", u"1920x1080 at 200 %", 2, 1}),
    [](const auto &test) { return std::string(test.param.name); });

TEST_F(WindowTest, OpensOnItsScreenWhereverItStoodOnAnother)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QWidget before;
    before.setGeometry(screen.translated(screen.width() / 2, screen.height() / 2));
    desktop.preferences.setText(u"FenetrePrincipaleGeometrie"_s,
                                QString::fromLatin1(before.saveGeometry().toBase64()));
    EXPECT_TRUE(screen.contains(window().geometry()));
}

} // namespace
