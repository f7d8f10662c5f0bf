#include "support/fake_desktop.h"
#include "ui/kit/form.h"
#include "ui/kit/sheet.h"
#include "ui/kit/symbol.h"
#include "ui/kit/text_boxes.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>

#include <gtest/gtest.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

struct NameSheet : Sheet {
    explicit NameSheet(QWidget *parent) : Sheet(u"Nom"_s, {300, 200}, parent)
    {
        addHeader(u"Nom"_s, u"Une note"_s);
        column()->addWidget(field);
        confirm = addConfirmRow(u"Ajouter"_s);
        field->setFocus();
    }

    QLineEdit *field = makeField(u"Nom"_s);
    QPushButton *confirm = nullptr;
};

QPushButton *button(const QWidget *window, const QString &text)
{
    for (auto *candidate : window->findChildren<QPushButton *>()) {
        if (candidate->text() == text)
            return candidate;
    }
    return nullptr;
}

struct WayOut {
    const char *name;
    void (*leave)(NameSheet &);
};

class Leaving : public testing::TestWithParam<WayOut> {};

TEST_P(Leaving, RejectsOnceAndDestroysTheSheet)
{
    QWidget window;
    window.show();
    QPointer<NameSheet> sheet = new NameSheet(&window);
    sheet->present();
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    QSignalSpy rejected(sheet, &Sheet::rejected);
    GetParam().leave(*sheet);
    EXPECT_EQ(rejected.count(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(sheet);
}

INSTANTIATE_TEST_SUITE_P(
    Sheet, Leaving,
    testing::Values(
        WayOut{"Fermer", [](NameSheet &sheet) { button(&sheet, u"Fermer"_s)->click(); }},
        WayOut{"Annuler", [](NameSheet &sheet) { button(&sheet, u"Annuler"_s)->click(); }},
        WayOut{"Escape", [](NameSheet &sheet) { QTest::keyClick(sheet.field, Qt::Key_Escape); }},
        WayOut{"WindowClose", [](NameSheet &sheet) { sheet.close(); }}),
    [](const auto &test) { return std::string(test.param.name); });

TEST(Sheet, EnterPressesTheConfirmationOnlyWhileItIsEnabled)
{
    NameSheet sheet(nullptr);
    sheet.show();
    QSignalSpy pressed(sheet.confirm, &QPushButton::clicked);
    QTest::keyClick(sheet.field, Qt::Key_Return);
    EXPECT_EQ(pressed.count(), 1);
    sheet.confirm->setEnabled(false);
    QTest::keyClick(sheet.field, Qt::Key_Return);
    EXPECT_EQ(pressed.count(), 1);
    EXPECT_TRUE(sheet.isVisible());
}

TEST(TextBox, KeepsATextToTheCharacter)
{
    TextBox box(u"Contenu"_s);
    QSignalSpy changed(&box, &TextBox::textChanged);
    const QString text = u"Prêt\u00a0?\n\nOui\u202f! 👩🏽‍🌾"_s;
    box.setText(text);
    EXPECT_EQ(box.text(), text);
    EXPECT_EQ(changed.count(), 0) << "what the program shows is not what the user typed";
    box.moveCursor(QTextCursor::End);
    box.setText(text);
    EXPECT_TRUE(box.textCursor().atEnd());
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.text(), text + u'\n');
    EXPECT_EQ(changed.count(), 1);
}

TEST(Form, ABlankFieldKeepsTheButtonDisabled)
{
    QPushButton confirm;
    const std::unique_ptr<QLineEdit> code(makeField(u"Code"_s));
    const std::unique_ptr<QLineEdit> name(makeField(u"Nom"_s));
    enableWhenFilled(&confirm, {code.get(), name.get()});
    EXPECT_FALSE(confirm.isEnabled());
    code->setText(u"75"_s);
    name->setText(u" \t"_s);
    EXPECT_FALSE(confirm.isEnabled());
    name->setText(u"Paris"_s);
    EXPECT_TRUE(confirm.isEnabled());
    code->clear();
    EXPECT_FALSE(confirm.isEnabled());
}

} // namespace
