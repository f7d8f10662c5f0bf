#include "ui/kit/alert.h"
#include "ui/kit/theme.h"
#include "ui/window/commands.h"
#include "ui/window/window_fixture.h"

#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QTextDocument>
#include <QToolTip>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

constexpr QSize smallScreen{1280, 720};

/// Markup that opens a device, a text that turns round, lines, and a word without an end.
const QString hostile =
    u"<img src=/dev/zero><b>gras</b> \u202Etourne\n\n\u2028ligne\tcolonne & "_s +
    QString(40, u'\n') + QString(10'000, u'W');

QByteArray quoted(const QString &text)
{
    return QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact).chopped(1).sliced(1);
}

class HostileTexts : public WindowTest {
protected:
    HostileTexts()
    {
        applyTheme(Appearance::light);
        const QByteArray text = quoted(hostile);
        desktop.writeFile(u"contacts-modifies.json"_s,
                          R"({"0639980010":{"label":)" + text + R"(,"phone":"06 39 98 00 10",)" +
                              R"("email":)" + text + R"(,"department":"29","profession":)" + text +
                              "}}");
        desktop.writeFile(u"departements.json"_s, R"([{"code":"29","name":)" + text + "}]");
        for (const QString &file : {u"modeles-messages.json"_s, u"modeles-mails.json"_s})
            desktop.writeFile(file, R"([{"id":"a","title":)" + text + R"(,"subject":)" + text +
                                        R"(,"body":)" + text + "}]");
        desktop.writeFile(u"fichiers-joints.json"_s,
                          R"({"0639980010":)" + quoted(u"/tmp/"_s + hostile.left(200)) + "}");
        window().resize(smallScreen);
        const Prospect contact = alix();
        store().setSelectedForSending(true, contact);
        store().setSelectedForEmailSending(true, contact);
        store().recordSentNow(contact);
        table().setCurrentIndex(
            model().index(model().contacts().rowOf(contact.id), columnOf(SortColumn::name)));
    }

    ~HostileTexts() override { closeWindow(); }

    /// Everything that stands open is plain text and fits the screen.
    static void expectCalm(const std::string &what)
    {
        for (QWidget *widget : QApplication::allWidgets()) {
            if (widget->isWindow() && widget->isVisible()) {
                EXPECT_LE(widget->width(), smallScreen.width()) << what;
                EXPECT_LE(widget->height(), smallScreen.height()) << what;
            }
            const auto *label = qobject_cast<QLabel *>(widget);
            if (!label || !label->text().contains(u"<img"_s))
                continue;
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << what;
            EXPECT_FALSE(label->text().contains(u'\u202E')) << what;
            EXPECT_LT(label->text().size(), 2'200) << what;
        }
    }
};

TEST_F(HostileTexts, EverySheetShowsThemPlainAndKeepsItsSize)
{
    int sheets = 0;
    for (const Command &command : windowCommands()) {
        const QString text = QString::fromUtf16(command.text);
        if (text.startsWith(u"Quitter"_s) || text.contains(u"plein écran"_s))
            continue;
        command.runIn(window());
        settle();
        expectCalm(text.toStdString());
        const auto open = window().findChildren<QDialog *>();
        sheets += int(open.size());
        qDeleteAll(open);
    }
    EXPECT_GE(sheets, 11);
}

TEST_F(HostileTexts, AlertsTipsAndTheStatusLineShowThemPlain)
{
    showAlert(&window(), hostile, hostile);
    settle();
    expectCalm("alert");
    delete window().findChild<QDialog *>();

    const QModelIndex name = table().currentIndex();
    table().scrollTo(name);
    const QPoint centre = table().visualRect(name).center();
    QHelpEvent help(QEvent::ToolTip, centre, table().viewport()->mapToGlobal(centre));
    QApplication::sendEvent(table().viewport(), &help);
    EXPECT_TRUE(QToolTip::text().startsWith(u"<img"_s));
    expectCalm("tip of a cell");
    QToolTip::showText({}, u"<img src=/dev/zero> que rien n’a préparé"_s, &window());
    expectCalm("any other tip");
    QToolTip::hideText();

    const QModelIndex picker = model().index(name.row(), columnOf(SortColumn::message));
    table().setCurrentIndex(picker);
    QTest::keyClick(&table(), Qt::Key_Space);
    expectCalm("menu of a picker");
    delete table().findChild<QMenu *>();

    switches.setAutoValidateSMS(true);
    Q_EMIT table().actionRequested(RowAction::send(Channel::sms), alix().id);
    EXPECT_LT(window().statusBar()->currentMessage().size(), 300);
    EXPECT_FALSE(window().statusBar()->currentMessage().contains(u'\u202E'));
}

} // namespace
