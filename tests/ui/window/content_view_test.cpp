#include "ui/window/window_fixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSemaphore>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QToolButton>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class Window : public WindowTest {
protected:
    bool shows(const QString &text)
    {
        for (const auto *label : window().findChildren<QLabel *>()) {
            if (label->isVisible() && label->text() == text)
                return true;
        }
        return false;
    }
    /// Puts a folder where the collection's file belongs; its path.
    QString obstruct(Collection collection)
    {
        const QString path = store().file(collection);
        QFile::remove(path);
        QDir().mkpath(path + u"/in the way"_s);
        return path;
    }
    void search(const QString &text)
    {
        window().findChild<QLineEdit *>()->setText(text);
        settle();
    }
};

TEST_F(Window, EveryCommandHasAButtonAndAMenuEntry)
{
    const QStringList commands{u"Ajouter un contact"_s,
                               u"Importer Excel"_s,
                               u"Format Excel attendu"_s,
                               u"Départements"_s,
                               u"Gérer les SMS"_s,
                               u"Gérer les e-mails"_s,
                               u"Tester un message"_s,
                               u"À propos"_s,
                               u"Quitter l’application"_s,
                               u"Préparer les SMS (0)"_s,
                               u"Préparer les e-mails (0)"_s,
                               u"Supprimer les contacts cochés (0)"_s,
                               u"Automatiser envoi SMS"_s,
                               u"Forfait Free Pro"_s,
                               u"Automatiser envoi e-mail"_s};
    QToolButton *more = window().findChild<QToolButton *>();
    Q_EMIT more->menu()->aboutToShow();
    QStringList folded;
    for (const QAction *entry : more->menu()->actions())
        folded << entry->text();
    EXPECT_FALSE(folded.isEmpty()) << "the window is narrow";
    QStringList entries;
    for (const QAction *menu : window().menuBar()->actions()) {
        for (const QAction *entry : menu->menu()->actions())
            entries << entry->text();
    }
    for (const QString &command : commands) {
        EXPECT_NE(button(command) != nullptr, folded.contains(command)) << command.toStdString();
        EXPECT_TRUE(entries.contains(command)) << command.toStdString();
    }
}

TEST_F(Window, AnEmptyOneOffersTheFirstSteps)
{
    store().deleteProspects(model().shownContacts());
    settle();
    for (const char16_t *step :
         {u"Importer Excel", u"Ajouter un contact", u"Voir la démonstration", u"Moyens d’envoi…"})
        EXPECT_NE(button(QString::fromUtf16(step)), nullptr)
            << QString::fromUtf16(step).toStdString();
    int started = 0;
    window().setDemonstration([&started] { return ++started > 0; });
    press(u"Voir la démonstration"_s);
    EXPECT_EQ(started, 1);
}

TEST_F(Window, NoShortcutStandsForTwoCommands)
{
    QSet<QString> taken;
    for (const QAction *action : window().findChildren<QAction *>()) {
        const QString keys = action->shortcut().toString();
        EXPECT_TRUE(keys.isEmpty() || !taken.contains(keys)) << keys.toStdString();
        taken << keys;
    }
}

TEST_F(Window, TheHeaderCounts)
{
    EXPECT_TRUE(shows(u"SMS : 0  •  E-mails : 0"_s));
    EXPECT_TRUE(shows(u"SMS ce mois : 0/250"_s));
    store().recordSentNow(alix());
    store().setSelectedForSending(true, chloe());
    store().setSelectedForEmailSending(true, alix());
    tick(chloe(), 0);
    EXPECT_TRUE(shows(u"SMS : 1  •  E-mails : 0"_s));
    EXPECT_TRUE(shows(u"SMS ce mois : 1/250"_s));
    EXPECT_NE(button(u"Préparer les SMS (1)"_s), nullptr);
    EXPECT_NE(button(u"Supprimer les contacts cochés (1)"_s), nullptr);
    EXPECT_EQ(button(u"Réponses STOP (0)"_s), nullptr);
    desk().stopReplies().setOn(true);
    Q_EMIT desktop.carriers.received({alix().phone, u"STOP"_s, desktop.clock.now() + 1min});
    EXPECT_NE(button(u"Réponses STOP (1)"_s), nullptr);
    press(u"Automatiser envoi e-mail"_s);
    EXPECT_NE(button(u"Envoyer les e-mails (1)"_s), nullptr);
    press(u"Forfait Free Pro"_s);
    EXPECT_TRUE(shows(u"SMS : sans limite"_s));
    EXPECT_TRUE(switches.freeProPlan() && switches.autoValidateEmail());
}

TEST_F(Window, TellsOfDataThatCouldNotBeRead)
{
    desktop.writeFile(u"departements.json"_s, "{");
    window();
    const QString told = alert();
    EXPECT_TRUE(told.startsWith(u"Données illisibles mises de côté | "_s));
    EXPECT_TRUE(told.contains(store().filesSetAside().front()));
}

TEST_F(Window, OffersToWriteAgainWhatCouldNotBeWrittenAlsoBeforeItCloses)
{
    window();
    const QString path = obstruct(Collection::statuses);
    store().setComment(u"un"_s, alix());
    store().setComment(u"deux"_s, alix());
    press(u"Réessayer"_s);
    EXPECT_EQ(window().findChildren<QMessageBox *>().size(), 1) << "it failed again";
    press(u"Plus tard"_s);
    EXPECT_FALSE(window().close());
    press(u"Plus tard"_s);
    EXPECT_TRUE(window().close());
    EXPECT_EQ(alert(), QString()) << "nothing holds the application open";
    EXPECT_TRUE(QDir(path).removeRecursively());
    window().show();
    EXPECT_TRUE(window().close());
    EXPECT_TRUE(desktop.file(u"suivi-envois.json"_s).contains("deux"));
}

TEST_F(Window, TheNoticeOfAFailureGoesOnceEverythingIsSavedAfterAll)
{
    window();
    desktop.files.refusal = desktop.preferences.refusal = u"plein"_s;
    store().setComment(u"un"_s, alix());
    switches.setFreeProPlan(true);
    switches.setAutoValidateSMS(true);
    EXPECT_EQ(window().findChildren<QMessageBox *>().size(), 1);
    EXPECT_NE(button(u"Forfait Free Pro (non enregistré)"_s), nullptr);
    EXPECT_NE(button(u"Automatiser envoi e-mail"_s), nullptr) << "was not touched";
    desktop.files.refusal.reset();
    store().setComment(u"deux"_s, alix());
    settle();
    EXPECT_EQ(window().findChildren<QMessageBox *>().size(), 1) << "the switches are not stored";
    desktop.preferences.refusal.reset();
    press(u"Réessayer"_s);
    EXPECT_EQ(alert(), QString());
    EXPECT_NE(button(u"Forfait Free Pro"_s), nullptr);

    desktop.files.refusal = u"plein"_s;
    store().setComment(u"trois"_s, alix());
    EXPECT_EQ(window().findChildren<QMessageBox *>().size(), 1);
    desktop.files.refusal.reset();
    store().setComment(u"quatre"_s, alix());
    settle();
    EXPECT_EQ(alert(), QString()) << "it went by itself";
}

TEST_F(Window, WhateverSettingIsNotStoredIsTold)
{
    window();
    desktop.preferences.refusal = u"plein"_s;
    desktop.preferences.setText(u"any"_s, u"x"_s);
    settle();
    EXPECT_TRUE(alert().contains(u"Impossible d’enregistrer les réglages : plein"_s));
}

TEST_F(Window, AnAlertStandsOverAnOpenSheetAndOutlivesIt)
{
    press(u"À propos"_s);
    auto *sheet = window().findChild<QDialog *>();
    obstruct(Collection::statuses);
    store().setComment(u"un"_s, alix());
    const auto *told = window().findChild<QMessageBox *>();
    EXPECT_EQ(told->parentWidget(), sheet) << "beside the sheet, each would block the other";
    sheet->reject();
    settle();
    EXPECT_EQ(told->parentWidget(), &window());
    EXPECT_TRUE(told->isVisible());
}

TEST_F(Window, DeletionAsksFirst)
{
    press(u"Supprimer les contacts cochés (0)"_s);
    EXPECT_EQ(alert(), QString());
    tick(chloe(), 0);
    press(u"Supprimer les contacts cochés (1)"_s);
    press(u"Annuler"_s);
    EXPECT_EQ(model().deleteSelection().size(), 1U);
    press(u"Supprimer les contacts cochés (1)"_s);
    EXPECT_EQ(window().findChild<QMessageBox *>()->text(),
              u"Supprimer définitivement 1 contact(s) ?"_s);
    press(u"Supprimer les contacts et leurs données"_s);
    EXPECT_EQ(store().prospect(u"0639980012"_s), nullptr);
    EXPECT_TRUE(model().deleteSelection().empty());
    EXPECT_EQ(model().rowCount(), 2);
}

TEST_F(Window, ATextBeingTypedInACellIsKeptWhateverComesOverIt)
{
    const auto type = [this](const QString &text) {
        const QModelIndex cell =
            model().index(model().contacts().rowOf(chloe().id), columnOf(SortColumn::comment));
        table().setCurrentIndex(cell);
        table().edit(cell);
        QTest::keyClicks(table().indexWidget(cell), text);
    };
    window().activateWindow();
    type(u"un"_s);
    window().addContact();
    settle();
    EXPECT_EQ(store().status(chloe())->comment, u"un"_s);
    delete window().findChild<QDialog *>();
    type(u"deux"_s);
    EXPECT_TRUE(window().close());
    EXPECT_TRUE(store().status(chloe())->comment->contains(u"deux"_s));
}

TEST_F(Window, DeletionNamesTenContactsAndWithoutATickTheCurrentOne)
{
    table().setCurrentIndex(model().index(0, 6));
    press(u"Supprimer les contacts cochés (0)"_s);
    const auto *box = window().findChild<QMessageBox *>();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->defaultButton()->text(), u"Annuler"_s);
    EXPECT_TRUE(alert().endsWith(u"également supprimés.\n\nALIX — BREST (29)"_s));

    for (const char16_t letter : std::u16string_view(u"efghijklmnop"))
        ASSERT_FALSE(store().add(QString(QChar(letter)), {},
                                 QString(QChar(letter)) + u"@example.fr"_s, u"29"_s, {}));
    settle();
    model().tickAll(true);
    press(u"Supprimer les contacts cochés (15)"_s);
    const QString told = alert();
    EXPECT_EQ(told.count(u'\n'), 12) << told.toStdString();
    EXPECT_TRUE(told.endsWith(u"\n… et 5 autres"_s));
    model().tickAll(false);
}

TEST_F(Window, AnEmptyTableSaysWhatToDo)
{
    search(u"zzz"_s);
    EXPECT_TRUE(shows(u"Aucun contact trouvé"_s));
    press(u"Filtrer"_s);
    press(u"Sans mobile"_s);
    EXPECT_TRUE(shows(u"0 sur 3"_s));
    EXPECT_TRUE(
        shows(u"Aucun contact qui contient « zzz » ne répond au filtre « Sans mobile »."_s));
    press(u"Tout afficher"_s);
    EXPECT_EQ(model().rowCount(), 3);
    EXPECT_TRUE(window().findChild<QLineEdit *>()->text().isEmpty());
    press(u"Sans mobile"_s);
    EXPECT_EQ(model().rowCount(), 1);
    press(u"Filtrer"_s);
    EXPECT_EQ(model().rowCount(), 3) << "no filter works unseen";
    EXPECT_TRUE(table().isVisible());
    store().deleteProspects({alix().id, chloe().id, QString()});
    settle();
    EXPECT_TRUE(shows(u"Aucun contact pour le moment"_s));
}

TEST_F(Window, GeometryAndColumnsAreKept)
{
    window().resize(780, 700);
    table().setColumnWidth(0, 140);
    window().close();
    closeWindow();
    EXPECT_EQ(window().size(), QSize(780, 700));
    EXPECT_EQ(table().columnWidth(0), 140);
    window().resetColumnWidths();
    EXPECT_EQ(table().columnWidth(0), 95);
}

TEST_F(Window, WaitsForASendBeforeItCloses)
{
    switches.setAutoValidateSMS(true);
    QSemaphore messages;
    desktop.scripts.answer = [&messages](const QString &) {
        messages.acquire();
        return ScriptDone{};
    };
    Q_EMIT table().actionRequested(RowAction::send(Channel::sms), chloe().id);
    EXPECT_FALSE(window().close());
    EXPECT_TRUE(shows(u"Un envoi est en cours."_s));
    messages.release();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window().isVisible(); }));
    EXPECT_EQ(store().sendHistory(chloe()).size(), 1U);
}

TEST_F(Window, AnExitThatIsCalledOffLeavesTheRowsSending)
{
    switches.setAutoValidateEmail(true);
    desktop.workspace.mailApplication = u"com.apple.mail"_s;
    window();
    const QString path = obstruct(Collection::departments);
    store().save(Collection::departments);
    QSignalSpy stayed(&window(), &ContentView::stayed);
    EXPECT_FALSE(window().close());
    EXPECT_EQ(stayed.size(), 1);
    EXPECT_TRUE(QDir(path).removeRecursively());
    Q_EMIT table().actionRequested(RowAction::send(Channel::email), alix().id);
    settle();
    EXPECT_EQ(store().emailHistory(alix()).size(), 1U);
}

TEST_F(Window, AFilledFormAsksOnceBeforeTheExit)
{
    press(u"Départements"_s);
    EXPECT_TRUE(window().settle(true)) << "an open sheet alone asks nothing";
    window().findChild<QDialog *>()->reject();
    press(u"Gérer les SMS"_s);
    window().findChild<QPlainTextEdit *>()->setPlainText(u"brouillon"_s);
    EXPECT_FALSE(window().close());
    press(u"Rester"_s);
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(window().close());
    press(u"Quitter"_s);
    EXPECT_FALSE(window().isVisible());
    QApplication::closeAllWindows();
    EXPECT_EQ(alert(), QString()) << "the sheet does not ask again";
}

TEST_F(Window, ADoubtIsAskedAtTheStartWithAllThatIsKnown)
{
    desktop.writeFile(u".envoi-en-cours"_s,
                      R"([{"contact": "0639980010", "channel": "sms", "label": "ALIX <b>&amp;</b>",
                           "recipient": "06 39 98 00 10", "instant": "2026-02-28T23:30:00Z",
                           "digest": "", "known": []}])");
    EXPECT_TRUE(shows(u"Cet envoi a été interrompu. Le message est peut-être parti."_s));
    EXPECT_TRUE(shows(u"ALIX <b>&amp;</b>\n06 39 98 00 10\nSMS\n01/03/2026 à 00:30:00"_s));
    Q_EMIT table().actionRequested(RowAction::send(Channel::sms), alix().id);
    EXPECT_TRUE(desktop.workspace.opened.isEmpty());
    press(u"Décider plus tard"_s);
    Q_EMIT table().actionRequested(RowAction::send(Channel::sms), alix().id);
    press(u"Enregistrer l’envoi"_s);
    EXPECT_EQ(store().sendHistory(alix()).size(), 1U);
    EXPECT_TRUE(store().smsMonthlyRecipientsByMonth().find(u"2026-03"_s)->contains(alix().id))
        << "in the month of that instant";
    EXPECT_TRUE(desktop.file(u".envoi-en-cours"_s).isNull());
}

} // namespace
