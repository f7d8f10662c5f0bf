#include "support/readable.h"
#include "ui/kit/plain_text.h"

#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

struct TextCase {
    const char *name;
    QString text;
    QString line;
    QString paragraph;
};

class PlainText : public testing::TestWithParam<TextCase> {};

TEST_P(PlainText, IsShownInItsRoom)
{
    EXPECT_EQ(oneLine(GetParam().text, 5), GetParam().line);
    EXPECT_EQ(paragraph(GetParam().text, {5, 2}), GetParam().paragraph);
}

INSTANTIATE_TEST_SUITE_P(
    Kit, PlainText,
    testing::Values(TextCase{"short", u"<b>é&"_s, u"<b>é&"_s, u"<b>é&"_s},
                    TextCase{"long", u"abcdef"_s, u"abcde…"_s, u"abcde…"_s},
                    TextCase{"inAnEmoji", u"abcd😀"_s, u"abcd…"_s, u"abcd…"_s},
                    TextCase{"inAnAccent", u"abcde\u0301f"_s, u"abcd…"_s, u"abcd…"_s},
                    TextCase{"onlyAccents", QString(9, u'\u0301'), QString(5, u'\u0301') + u'…',
                             QString(5, u'\u0301') + u'…'},
                    TextCase{"lines", u"a\r\nb\nc"_s, u"a  b …"_s, u"a\nb…"_s},
                    TextCase{"foreignLines", u"a\u2028\u0085b"_s, u"a  b"_s, u"a\n…"_s},
                    TextCase{"controls", u"a\tb\u0007c"_s, u"a b c"_s, u"a b c"_s},
                    TextCase{"turnsRound", u"\u202Eab\u2067c\u202C"_s, u"abc"_s, u"abc"_s}),
    [](const auto &test) { return std::string(test.param.name); });

TEST(PlainText, ALongWordMayBeBrokenAndAnAddressIsNot)
{
    const QString address = QString(40, u'a') + u"@example.org"_s;
    EXPECT_EQ(paragraph(address), address);
    EXPECT_EQ(paragraph(QString(61, u'a')), QString(60, u'a') + u"\u200Ba"_s);
    EXPECT_EQ(menuText(u"Devis & suivi\n2"_s), u"Devis && suivi 2"_s);
}

} // namespace
