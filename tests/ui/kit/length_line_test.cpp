#include "ui/kit/length_line.h"

#include "support/readable.h"

#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

struct Row {
    QString text;
    QString line;
    QString button;
    QString replaced;
};

class Lengths : public testing::TestWithParam<Row> {};

TEST_P(Lengths, AreToldWithTheirReasonAndRemedy)
{
    LengthLine line(LengthLine::Use::editing);
    QString replaced = GetParam().text;
    QObject::connect(&line, &LengthLine::replacementChosen,
                     [&replaced](const QString &text) { replaced = text; });
    line.setText(GetParam().text);
    QStringList shown;
    for (const auto *label : line.findChildren<QLabel *>()) {
        if (!label->isHidden() && !label->text().isEmpty())
            shown << label->text();
    }
    EXPECT_EQ(shown.join(u' '), GetParam().line);
    auto *button = line.findChild<QPushButton *>();
    EXPECT_EQ(button->isHidden() ? QString() : button->text(), GetParam().button);
    button->click();
    EXPECT_EQ(replaced, GetParam().replaced.isEmpty() ? GetParam().text : GetParam().replaced);
}

const QString many = u"Remplacer par des caractères simples"_s;

INSTANTIATE_TEST_SUITE_P(
    Texts, Lengths,
    testing::Values(
        Row{u""_s, u"1 SMS · 0 caractère"_s, {}, {}},
        Row{u"Été à 5 €"_s, u"1 SMS · 9 caractères"_s, {}, {}},
        Row{u"l’été "_s.repeated(12), u"2 SMS · 72 caractères · « ’ » impose l’écriture longue"_s,
            u"Remplacer par '"_s, u"l'été "_s.repeated(12)},
        Row{u"forêt 👍"_s,
            u"1 SMS · 7 caractères · « ê », « 👍 » imposent l’écriture longue"_s,
            {},
            {}},
        Row{u"« Cœur »\u00A0…"_s,
            u"1 SMS · 10 caractères · « « », « œ », « » »… imposent l’écriture longue"_s, many,
            u"\" Coeur \" ..."_s},
        Row{u"a\u00A0b\u202Fc"_s,
            u"1 SMS · 5 caractères · l’espace insécable impose l’écriture longue"_s, many,
            u"a b c"_s},
        Row{QString(919, u'a'),
            u"7 SMS · 919 caractères Ce texte part en 7 SMS : bien des téléphones le recevront en "
            "morceaux."_s,
            {},
            {}}));

} // namespace
