#include "ui/kit/deliberate_input.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>

#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

class Hand : public testing::Test {
protected:
    DeliberateInput input{*qApp};

    static void doubleClick(QWidget &target)
    {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                        QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, {9, 9}, {9, 9}, Qt::LeftButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(&target, &event);
        }
    }

    /// As a display tells it that marks what it repeats, or one that only presses again.
    void hold(QWidget &target, Qt::Key key, const QString &text)
    {
        for (int press = 0; press < 3; ++press) {
            QKeyEvent event(QEvent::KeyPress, key, {}, text, isMarked && press > 0);
            QCoreApplication::sendEvent(&windowOf(target), &event);
        }
        QKeyEvent release(QEvent::KeyRelease, key, {});
        QCoreApplication::sendEvent(&windowOf(target), &release);
    }

    QObject &windowOf(QWidget &target) const
    {
        target.setFocus();
        if (isMarked)
            return target;
        return *target.window()->windowHandle();
    }

    bool isMarked = true;
};

TEST_F(Hand, ADoubleClickPressesOnce)
{
    QPushButton button(u"Ignorer"_s);
    QCheckBox box(u"Automatiser"_s);
    QToolButton nextMonth;
    nextMonth.setAutoRepeat(true);
    for (const auto &[control, times] :
         {std::pair<QAbstractButton *, int>(&button, 1), {&box, 1}, {&nextMonth, 2}}) {
        control->resize(200, 30);
        QSignalSpy clicks(control, &QAbstractButton::clicked);
        doubleClick(*control);
        EXPECT_EQ(clicks.size(), times) << control->metaObject()->className();
    }
    EXPECT_TRUE(box.isChecked());
}

TEST_F(Hand, AHeldKeyPressesOnceAndStillWrites)
{
    QDialog sheet;
    auto *column = new QVBoxLayout(&sheet);
    auto *field = new QLineEdit;
    auto *text = new QPlainTextEdit;
    auto *confirm = new QPushButton(u"Ajouter"_s);
    for (QWidget *each : std::initializer_list<QWidget *>{field, text, confirm})
        column->addWidget(each);
    confirm->setDefault(true);
    sheet.show();
    QSignalSpy clicks(confirm, &QPushButton::clicked);
    for (const bool marks : {true, false}) {
        isMarked = marks;
        text->clear();
        field->clear();
        clicks.clear();
        hold(*field, Qt::Key_Return, u"\r"_s);
        hold(*confirm, Qt::Key_Return, u"\r"_s);
        hold(*confirm, Qt::Key_Return, u"\r"_s);
        EXPECT_EQ(clicks.size(), 3) << "once each time, from the field and from the button";
        hold(*text, Qt::Key_Return, u"\r"_s);
        hold(*field, Qt::Key_Space, u" "_s);
        EXPECT_EQ(text->toPlainText(), u"\n\n\n"_s);
        EXPECT_EQ(field->text(), u"   "_s);
    }
}

/// Offered to one widget after the other; those of one press have its time. Accepted, it triggers
/// no command again.
TEST_F(Hand, AHeldShortcutTriggersOnce)
{
    QWidget focused, around;
    struct Offer {
        quint64 time;
        bool isMarked;
        bool isHeld;
    };
    for (const Offer &offer : {Offer{10'000, false, false},
                               {10'660, false, true},
                               {10'700, false, true},
                               {13'000, false, false},
                               {13'040, true, true}}) {
        for (QWidget *target : {&focused, &around}) {
            QKeyEvent shortcut(QEvent::ShortcutOverride, Qt::Key_Delete, {}, {}, offer.isMarked);
            shortcut.setTimestamp(offer.time);
            shortcut.ignore();
            QCoreApplication::sendEvent(target, &shortcut);
            EXPECT_EQ(shortcut.isAccepted(), offer.isHeld) << offer.time;
        }
    }
}

TEST_F(Hand, TheWheelScrollsThePageAndChangesNoValue)
{
    QScrollArea page;
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    auto *picker = new QComboBox;
    picker->addItems({u"a"_s, u"b"_s, u"c"_s});
    auto *date = new QDateTimeEdit(QDateTime(QDate(2026, 3, 10), QTime(9, 0)));
    const QDateTime before = date->dateTime();
    content->resize(200, 2000);
    page.resize(200, 200);
    column->addWidget(picker);
    column->addWidget(date);
    page.setWidget(content);
    page.show();
    date->setFocus();
    for (QWidget *control : {static_cast<QWidget *>(picker), static_cast<QWidget *>(date)}) {
        page.verticalScrollBar()->setValue(0);
        QWheelEvent turn({9, 9}, control->mapToGlobal(QPointF(9, 9)), {}, {0, -120}, {}, {},
                         Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&turn);
        qApp->notify(control, &turn);
        EXPECT_GT(page.verticalScrollBar()->value(), 0) << control->metaObject()->className();
    }
    EXPECT_EQ(picker->currentIndex(), 0);
    EXPECT_EQ(date->dateTime(), before);
}

TEST(Keyboard, AReleaseThatWentWithAClosedWindowLeavesTheNextAlertItsEnter)
{
    for (const bool isDown : {true, false}) {
        DeliberateInput input(*qApp, [isDown](quint32) { return isDown; });
        int pressed = 0;
        for (int alert = 0; alert < 2; ++alert) { // each closes on the press
            QDialog window;
            QPushButton ok(u"OK"_s, &window);
            QObject::connect(&ok, &QPushButton::clicked, [&] { ++pressed; });
            ok.setDefault(true);
            window.show();
            window.activateWindow();
            QTest::qWait(60);
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s);
            QCoreApplication::sendEvent(window.windowHandle(), &press);
            window.hide();
            QTest::qWait(60);
        }
        EXPECT_EQ(pressed, isDown ? 1 : 2);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Return, {});
        QCoreApplication::sendEvent(qApp, &release);
    }
}

} // namespace
