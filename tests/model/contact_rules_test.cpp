#include "model/contact_rules.h"
#include "model/stop_reply.h"
#include "model/text_order.h"

#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

TEST(Phone, KeepsNumericCharactersOnly)
{
    const std::pair<QString, QString> rows[] = {
        {u"06.39.98.00.10"_s, u"0639980010"_s},
        {u"+33 (0)6 39 98 00 10"_s, u"330639980010"_s},
        {u"0033639980010"_s, u"0033639980010"_s},
        {u"sans numéro"_s, u""_s},
        {u"٠٦ 39"_s, u"٠٦39"_s},
        {u"6½ Ⅳ 五"_s, u"6½Ⅳ五"_s},
        {u"é1\u0301"_s, u"1\u0301"_s}, // an accent stays with the digit that carries it
    };
    for (const auto &[typed, digits] : rows)
        EXPECT_EQ(normalizePhone(typed), digits) << typed.toStdString();
}

TEST(Phone, IsCutIntoPairsOnlyWhenItHasTenCharacters)
{
    EXPECT_EQ(formatPhone(u"0639980010"_s), u"06 39 98 00 10"_s);
    for (const QString &other : {u""_s, u"639980010"_s, u"33639980010"_s})
        EXPECT_EQ(formatPhone(other), other);
}

TEST(Email, IsTrimmedLowerCasedAndMatchedWhole)
{
    EXPECT_EQ(validEmail(u" Anne.LE-Gall+x@Example.ORG\n"_s), u"anne.le-gall+x@example.org"_s);
    for (const QString &wrong : {u""_s, u"a b@example.org"_s, u"a@example"_s, u"a@example.o"_s,
                                 u"a@example.org\nb"_s, u"é@example.org"_s, u"a@example.org."_s})
        EXPECT_EQ(validEmail(wrong), std::nullopt) << wrong.toStdString();
}

TEST(StopReply, IsTheWordAtTheBeginning)
{
    for (const QString &text : {u" STOP\n"_s, u"stop svp"_s, u"« Stop »."_s, u"STOP36180"_s,
                                u"Stöp"_s, u"ＳＴＯＰ"_s, u"Stop🙏"_s, u"\u200bstop"_s})
        EXPECT_TRUE(asksToStop(text)) << text.toStdString();
    for (const QString &text : {u""_s, u"…"_s, u"Stoppeur"_s, u"non stop"_s, u"sto p"_s, u"st"_s})
        EXPECT_FALSE(asksToStop(text)) << text.toStdString();
}

TEST(TextOrder, ReadsNumbersInNamesOnlyLikeAFileBrowser)
{
    EXPECT_LT(finderOrder().compare(u"client 2"_s, u"CLIENT 10"_s), 0);
    EXPECT_GT(dictionaryOrder().compare(u"client 2"_s, u"CLIENT 10"_s), 0);
    EXPECT_LT(dictionaryOrder().compare(u"école"_s, u"Fleurs"_s), 0);
    EXPECT_EQ(dictionaryOrder().compare(u"ÉCOLE"_s, u"école"_s), 0);
}

TEST(TextOrder, HasKeysThatCompareAsTheTexts)
{
    const QStringList texts{{},        u"école"_s,        u"ÉCOLE"_s, u"e"_s,
                            u"é"_s,    u"client 2"_s,     u"Œuf"_s,   u"CLIENT 10"_s,
                            u"日本"_s, QString(500, u'é')};
    for (const TextOrder *order : {&finderOrder(), &dictionaryOrder()}) {
        for (const QString &a : texts) {
            for (const QString &b : texts) {
                std::string keys;
                order->appendKey(keys, a);
                const std::string key = std::exchange(keys, {});
                order->appendKey(keys, b);
                EXPECT_EQ(key < keys, order->compare(a, b) < 0) << qPrintable(a + u" / "_s + b);
            }
        }
    }
}

} // namespace
