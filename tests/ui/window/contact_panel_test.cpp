#include "ui/window/contact_panel.h"
#include "ui/window/window_fixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class Panel : public WindowTest {
protected:
    ContactPanel &panel()
    {
        auto *found = window().findChild<ContactPanel *>();
        if (found->isHidden())
            window().togglePanel();
        return *found;
    }
    void choose(const Prospect &contact, int column = 0)
    {
        table().setCurrentIndex(model().index(model().contacts().rowOf(contact.id), column));
        settle();
    }
    template <typename Control>
    Control &control(const QString &name)
    {
        for (auto *each : panel().findChildren<Control *>()) {
            const QString text = each->property("text").toString();
            if (each->isVisible() && (text == name || each->accessibleName() == name))
                return *each;
        }
        throw std::runtime_error(name.toStdString());
    }
    bool shows(const QString &text)
    {
        const auto labels = panel().findChildren<QLabel *>();
        return std::ranges::any_of(labels, [&text](const QLabel *label) {
            return label->isVisible() && label->text() == text;
        });
    }

    QString file(const QString &name)
    {
        desktop.writeFile(name, "x");
        return desktop.folders.data() + u'/' + name;
    }
    /// On the contact's row, or beside the table.
    void drop(const QString &path, const Prospect *contact)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        const int row = contact ? model().contacts().rowOf(contact->id) : 0;
        const QPoint place = table().visualRect(model().index(row, 0)).center();
        const QPoint point = contact ? table().viewport()->mapTo(&window(), place) : QPoint(2, 2);
        QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &enter);
        const QImage before = table().viewport()->grab().toImage();
        QDragMoveEvent move(point, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &move);
        EXPECT_EQ(table().viewport()->grab().toImage() != before, contact && enter.isAccepted())
            << "a mark on the row";
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(&window(), &leave);
        EXPECT_TRUE(table().viewport()->grab().toImage() == before);
        QCoreApplication::sendEvent(&window(), &enter);
        QDropEvent event(point, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &event);
        settle();
    }
};

TEST_F(Panel, FollowsTheRowAndDoesWhatItsCellsDo)
{
    choose(alix());
    EXPECT_TRUE(shows(alix().label));
    control<QCheckBox>(u"Envoyer SMS"_s).click();
    EXPECT_TRUE(store().isSelectedForSending(alix()));
    control<QCheckBox>(u"STOP"_s).click();
    EXPECT_TRUE(store().isStopped(alix()));
    EXPECT_FALSE(control<QCheckBox>(u"Envoyer SMS"_s).isEnabled());
    window().undoLast();
    EXPECT_TRUE(control<QCheckBox>(u"Envoyer SMS"_s).isChecked());

    const QString reminder = store().createMessage(u"Relance"_s, u"…"_s);
    settle();
    auto &picker = control<QComboBox>(u"Message SMS"_s);
    picker.setCurrentIndex(picker.findText(u"Relance"_s));
    Q_EMIT picker.activated(picker.currentIndex());
    EXPECT_EQ(store().assignedMessageID(alix()), reminder);
    control<QPushButton>(u"Préparer SMS"_s).click();
    EXPECT_EQ(desktop.workspace.opened.size(), 1);
    choose(chloe());
    EXPECT_TRUE(shows(chloe().label));
    EXPECT_FALSE(control<QCheckBox>(u"Envoyer SMS"_s).isChecked());
}

TEST_F(Panel, WhatIsTypedGoesToTheContactForWhomItWasTyped)
{
    choose(alix());
    auto &comment = control<QLineEdit>(u"Commentaire"_s);
    comment.setFocus();
    QTest::keyClicks(&comment, u"rappeler"_s);
    store().recordSentNow(alix());
    EXPECT_EQ(comment.text(), u"rappeler"_s) << "the contact changed meanwhile";
    choose(chloe());
    EXPECT_EQ(store().status(alix())->comment, u"rappeler"_s);
    EXPECT_EQ(comment.text(), QString());
    QTest::keyClicks(&comment, u"devis"_s);
    store().deleteProspects({alix().id});
    settle();
    EXPECT_EQ(store().status(chloe())->comment, u"devis"_s);
    QTest::keyClicks(&comment, u" fait"_s);
    EXPECT_TRUE(window().close());
    EXPECT_EQ(store().status(chloe())->comment, u"devis fait"_s);
}

TEST_F(Panel, IsRememberedAndLeftByTheKeyThatEntersIt)
{
    EXPECT_TRUE(window().findChild<ContactPanel *>()->isHidden()) << "the window is narrow";
    choose(alix());
    window().enterPanel();
    EXPECT_TRUE(panel().isAncestorOf(window().focusWidget()));
    window().enterPanel();
    EXPECT_EQ(window().focusWidget(), &table());
    closeWindow();
    EXPECT_FALSE(window().findChild<ContactPanel *>()->isHidden());
}

TEST_F(Panel, ADroppedFileGoesToTheRowUnderIt)
{
    const QString first = file(u"devis.pdf"_s);
    const QString second = file(u"tarif.pdf"_s);
    drop(first, nullptr);
    drop(first, &alix());
    EXPECT_EQ(store().attachmentPath(alix()), first);
    drop(second, &alix());
    press(u"Remplacer"_s);
    EXPECT_EQ(store().attachmentPath(alix()), second);
    window().undoLast();
    EXPECT_EQ(store().attachmentPath(alix()), first);
    const QString workbook = file(u"liste.xlsx"_s);
    drop(workbook, &chloe());
    press(u"Joindre au contact"_s);
    EXPECT_EQ(store().attachmentPath(chloe()), workbook);
    drop(desktop.folders.data(), &chloe());
    EXPECT_EQ(store().attachmentPath(chloe()), workbook) << "a folder is no file";
}

} // namespace
