#include "ui/kit/text_boxes.h"
#include "ui/sheets/sheet_probe.h"
#include "ui/sheets/template_manager_view.h"
#include "ui/sheets/test_message_view.h"

using namespace quenoria;
using namespace quenoria::test;

namespace {

struct Rejected {
    const char *name;
    const ChannelDescriptor &(*channel)();
    TemplateDraft draft;
    QString message;
};

class Validation : public SheetTest, public testing::WithParamInterface<Rejected> {};

TEST_P(Validation, NamesWhatIsMissingAndCreatesNothing)
{
    const ChannelDescriptor &channel = GetParam().channel();
    TemplateEditor editor(store(), channel);
    editor.startNew();
    editor.draft = GetParam().draft;
    editor.save();
    EXPECT_EQ(editor.message(), GetParam().message);
    EXPECT_EQ(editor.messageTint(), Tint::negative);
    EXPECT_EQ(editor.draft, GetParam().draft);
    EXPECT_EQ(store().templates(channel.channel).size(), 1U);
}

const QString incomplete = u"Saisissez le titre, l’objet et le contenu."_s;

INSTANTIATE_TEST_SUITE_P(
    Templates, Validation,
    testing::Values(
        Rejected{"SmsTitle", smsChannel, {u" \n"_s, {}, u" "_s}, u"Saisissez un titre."_s},
        Rejected{
            "SmsBody", smsChannel, {u"T"_s, {}, u"\n \t"_s}, u"Saisissez le contenu du message."_s},
        Rejected{"EmailTitle", emailChannel, {u" "_s, u"O"_s, u"C"_s}, incomplete},
        Rejected{"EmailSubject", emailChannel, {u"T"_s, u" "_s, u"C"_s}, incomplete},
        Rejected{"EmailBody", emailChannel, {u"T"_s, u"O"_s, u" "_s}, incomplete}),
    [](const auto &test) { return std::string(test.param.name); });

using ManagerSheet = SheetTest;

class BothChannels : public SheetTest,
                     public testing::WithParamInterface<const ChannelDescriptor &(*)()> {
protected:
    const ChannelDescriptor &described = GetParam()();
    const Channel which = described.channel;
    const ChannelTemplates &channel = described.templates;
    const QString subject = channel.subjectField.isEmpty() ? QString() : u"Objet"_s;
};

/// The draft, the second template and the sheet: whatever would lose the first asks.
TEST_F(ManagerSheet, ADraftIsNeverLostUnasked)
{
    const QString other = store().createMessage(u"Relance"_s, u"Corps"_s);
    TemplateManagerView sheet(store(), smsChannel(), nullptr);
    const Probe probe(sheet);
    probe.choose(u"Modèle"_s, u"Relance"_s);
    EXPECT_FALSE(probe.answer(u"Annuler"_s)) << "nothing was typed";
    probe.type(u"Titre du message"_s, u"Relance d’été"_s);
    probe.choose(u"Modèle"_s, u"1er envoi"_s);
    ASSERT_TRUE(probe.answer(u"Annuler"_s));
    EXPECT_EQ(probe.field(u"Titre du message"_s)->text(), u"Relance d’été"_s);
    EXPECT_EQ(probe.picker(u"Modèle"_s)->currentText(), u"Relance"_s);
    probe.press(u"Nouveau"_s);
    ASSERT_TRUE(probe.answer(u"Ne pas enregistrer"_s));
    EXPECT_EQ(probe.field(u"Titre du message"_s)->text(), QString());
    probe.type(u"Titre du message"_s, u"Sans corps"_s);
    probe.press(u"Fermer"_s);
    ASSERT_TRUE(probe.answer(u"Enregistrer"_s));
    EXPECT_TRUE(sheet.isVisible()) << "it was refused";
    EXPECT_EQ(probe.status(), u"Saisissez le contenu du message."_s);
    sheet.findChild<TextBox *>()->setPlainText(u"Corps"_s);
    QTest::keyClick(&sheet, Qt::Key_Escape);
    ASSERT_TRUE(probe.answer(u"Enregistrer"_s));
    EXPECT_FALSE(sheet.isVisible());
    ASSERT_EQ(store().messageTemplates().size(), 3U);
    EXPECT_EQ(store()
                  .messageTemplates()
                  .find([&other](const MessageTemplate &each) { return each.id == other; })
                  ->title,
              u"Relance"_s);
}

TEST_P(BothChannels, ANewTemplateIsSelectedAndThenUpdated)
{
    TemplateEditor editor(store(), described);
    editor.startNew();
    EXPECT_EQ(editor.draft, TemplateDraft());
    EXPECT_FALSE(editor.canRemove());
    editor.draft = {u" Relance "_s, subject, u"\nCorps "_s};
    editor.save();
    EXPECT_EQ(editor.message(), channel.saved);
    EXPECT_EQ(editor.draft, (TemplateDraft{u"Relance"_s, subject, u"Corps"_s}));
    EXPECT_TRUE(editor.canRemove());
    editor.draft.body = u"  Autre  "_s;
    editor.save();
    EXPECT_EQ(editor.message(), channel.saved);
    EXPECT_EQ(editor.draft.body, u"  Autre  "_s) << "an update leaves what was typed";
    const auto templates = store().templates(which);
    ASSERT_EQ(templates.size(), 2U);
    EXPECT_EQ(templates[1],
              (EmailTemplate{editor.selectedID(), u"Relance"_s, subject, u"Autre"_s}));
}

TEST_P(BothChannels, ADeletedOrUnknownTemplateGivesTheDefault)
{
    TemplateEditor editor(store(), described);
    const QString standard = editor.selectedID();
    const TemplateDraft first = editor.draft;
    EXPECT_FALSE(first.body.isEmpty());
    EXPECT_FALSE(editor.canRemove());
    editor.select(store().createTemplate(which, {{}, u"T"_s, subject, u"C"_s}));
    editor.removeSelected();
    EXPECT_EQ(editor.selectedID(), standard);
    EXPECT_EQ(editor.draft, first);
    EXPECT_EQ(store().templates(which).size(), 1U);
    editor.startNew();
    editor.save();
    editor.select(u"disparu"_s);
    EXPECT_EQ(editor.selectedID(), standard);
    EXPECT_TRUE(editor.message().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Templates, BothChannels, testing::Values(smsChannel, emailChannel));

class ManagerSheets : public SheetTest {};

TEST_F(ManagerSheets, TheMessageSheetCountsCharactersAndSaysEverythingInRed)
{
    TemplateManagerView sheet(store(), smsChannel(), nullptr);
    const Probe probe(sheet);
    EXPECT_FALSE(probe.button(u"Supprimer"_s)->isEnabled());
    probe.press(u"Nouveau"_s);
    EXPECT_EQ(probe.picker(u"Modèle"_s)->currentText(), u"Nouveau message…"_s);
    probe.type(u"Titre du message"_s, u"Été"_s);
    auto *body = sheet.findChild<TextBox *>();
    EXPECT_EQ(body->accessibleName(), u"Contenu du SMS"_s);
    body->setPlainText(u"é👩🏽‍🌾"_s);
    EXPECT_TRUE(probe.shows(u"2 caractères"_s));
    QTest::keyClick(body, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(probe.status(), u"Message enregistré."_s);
    EXPECT_EQ(probe.statusRole(), tintRole(Tint::negative));
    EXPECT_EQ(probe.picker(u"Modèle"_s)->currentText(), u"Été"_s);
    probe.press(u"Supprimer"_s);
    EXPECT_EQ(probe.picker(u"Modèle"_s)->currentIndex(), 0);
    EXPECT_EQ(body->text(), store().messageTemplates()[0].body);
    EXPECT_EQ(probe.status(), QString());
}

class TestSheet : public SheetTest {};

TEST_F(TestSheet, PreparesTheChosenTemplateOnTheNumberAndRemembersIt)
{
    store().createMessage(u"Relance"_s, u"Bonjour"_s);
    TestMessageView sheet(store(), nullptr);
    const Probe probe(sheet);
    probe.type(u"Numéro de test"_s, u"06"_s);
    probe.press(u"Préparer le SMS de test"_s);
    EXPECT_EQ(probe.status(), u"Saisissez un numéro de test valide."_s);
    probe.type(u"Numéro de test"_s, u"06 39 98 00 77"_s);
    probe.choose(u"Modèle à tester"_s, u"Relance"_s);
    EXPECT_EQ(sheet.findChild<PreviewBox *>()->toPlainText(), u"Bonjour"_s);
    probe.press(u"Préparer le SMS de test"_s);
    EXPECT_EQ(sheet.result(), QDialog::Accepted);
    EXPECT_EQ(desktop.pasteboard.content, u"Bonjour"_s);
    restart();
    EXPECT_EQ(store().testNumber(), u"06 39 98 00 77"_s);
}

} // namespace
