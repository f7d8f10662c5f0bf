#include "model/collections.h"
#include "model/json_text.h"
#include "model/records.h"

#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

using Templates = std::vector<MessageTemplate>;

std::optional<Templates> decodeTemplates(const QByteArray &file)
{
    const auto decoded = decodeCollection<Sequence<MessageTemplate>>(file);
    return decoded ? std::optional(decoded->values()) : std::nullopt;
}

/// A file with one template that has the member, whatever its value.
QByteArray fileWith(const QByteArray &name, const QByteArray &value)
{
    return R"([ { "title" : "a", ")" + name + R"(" : )" + value +
           R"(, "id" : "b", "body" : "c" } ])";
}

/// The same text with room behind it: it is decoded where it lies.
QByteArray withRoom(QByteArray text)
{
    text.reserve(text.size() + jsonReadAhead);
    return text;
}

struct Skipped {
    const char *name;
    QByteArray value;
};

class UnknownMember : public testing::TestWithParam<Skipped> {};

TEST_P(UnknownMember, IsPassedOverWhateverItHolds)
{
    EXPECT_EQ(decodeTemplates(fileWith("inconnu", GetParam().value)),
              (Templates{{u"b"_s, u"a"_s, u"c"_s}}));
}

INSTANTIATE_TEST_SUITE_P(
    Values, UnknownMember,
    testing::Values(Skipped{"bigNumber", "18446744073709551616"}, Skipped{"hugeNumber", "1e400"},
                    Skipped{"deep", QByteArray(1500, '[') + QByteArray(1500, ']')},
                    Skipped{"long", '"' + QByteArray(10'000'000, 'x') + '"'},
                    Skipped{"object", R"({"id":"\"}]","body":[1,{}]})"},
                    Skipped{"emptyArray", "[]"}, Skipped{"null", "null"}),
    [](const auto &skipped) { return skipped.param.name; });

struct Broken {
    const char *name;
    QByteArray file;
};

class BrokenFile : public testing::TestWithParam<Broken> {};

TEST_P(BrokenFile, IsRefusedWhole)
{
    EXPECT_EQ(decodeTemplates(GetParam().file), std::nullopt);
    EXPECT_EQ(decodeTemplates(withRoom(GetParam().file)), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    Files, BrokenFile,
    testing::Values(Broken{"empty", ""}, Broken{"blank", " \n"}, Broken{"text", "\"a\""},
                    Broken{"number", "1e400"}, Broken{"null", "null"}, Broken{"object", "{}"},
                    Broken{"twice", "[] []"}, Broken{"more", "[] x"}, Broken{"closedTwice", "[]]"},
                    Broken{"open", R"([{"id":"b","title":"a","body":"c"})"},
                    Broken{"openInside", R"([{"id":"b","title":"a","body":"c","x":[1})"},
                    Broken{"missing", R"([{"id":"b","title":"a"}])"},
                    Broken{"comma", R"([{"id":"b","title":"a","body":"c"},])"},
                    Broken{"deepKnown", fileWith("body", QByteArray(1500, '['))},
                    Broken{"bigKnown", fileWith("body", "18446744073709551616")},
                    Broken{"badEscape", fileWith("body", R"("\ud8")")},
                    Broken{"notUtf8", fileWith("body", "\"\xff\"")},
                    Broken{"rawControl", fileWith("body", "\"\x01\"")}),
    [](const auto &broken) { return broken.param.name; });

struct Text {
    const char *name;
    QByteArray json; ///< as it stands in a file
    QString text;
    bool isAsWritten; ///< the program writes it so
};

class JsonText : public testing::TestWithParam<Text> {};

TEST_P(JsonText, IsReadAndWrittenToTheByte)
{
    const auto &[name, json, text, isAsWritten] = GetParam();
    const JsonMembers<QString> expected{{text, text}};
    const QByteArray file = '{' + json + ':' + json + '}';
    const QByteArray spacious = withRoom(file);
    EXPECT_EQ(decodeJson<JsonMembers<QString>>(file), expected);
    EXPECT_EQ(decodeJson<JsonMembers<QString>>(spacious), expected);
    EXPECT_EQ(spacious, file);
    std::string written;
    appendJsonString(written, text);
    EXPECT_EQ(written == json.toStdString(), isAsWritten) << written;
    const std::string again = '{' + written + ':' + written + '}';
    EXPECT_EQ(decodeJson<JsonMembers<QString>>(QByteArray::fromStdString(again)), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, JsonText,
    testing::Values(Text{"lineFeed", R"("a\nb")", u"a\nb"_s, true},
                    Text{"controls", R"("\u0000\u0001\b\f\u001f")", u"\0\x01\b\f\x1f"_s, false},
                    Text{"controlsAsWritten", R"("\u0000\u0001\u0008\t\u000b\u000c\r\u001f")",
                         u"\0\x01\b\t\v\f\r\x1f"_s, true},
                    Text{"separators", "\"\x7f\xC2\x85\xE2\x80\xA8\"", u"\x7f\u0085\u2028"_s, true},
                    Text{"markOfByteOrder",
                         "\"\xEF\xBB\xBF\xEF\xBB\xBF"
                         "a\xEF\xBB\xBF\"",
                         u"\uFEFF\uFEFFa\uFEFF"_s, true},
                    Text{"pair", R"("\ud83d\ude00")", u"😀"_s, false},
                    Text{"highAlone", R"("a\ud83d")", u"a\uFFFD"_s, false},
                    Text{"highTwice", R"("\ud83d\ud83d\ude00")", u"\uFFFD😀"_s, false},
                    Text{"lowAlone", R"("\udE00\u00e9")", u"\uFFFDé"_s, false},
                    Text{"escapedBackslash", R"("\\ud83d\/\\\\")", u"\\ud83d/\\\\"_s, true}),
    [](const auto &text) { return text.param.name; });

TEST(JsonFile, BeginsAfterAMarkOfByteOrderAndKeepsTheLastOfTwins)
{
    EXPECT_EQ(decodeJson<JsonMembers<QString>>("\xEF\xBB\xBF{\"\xEF\xBB\xBF\":\"a\"}"),
              (JsonMembers<QString>{{u"\uFEFF"_s, u"a"_s}}));
    EXPECT_EQ(decodeTemplates(fileWith("id", "\"z\""))->front().id, u"b"_s);
    EXPECT_EQ(decodeCollection<Sequence<Prospect>>("[]")->size(), 0U);
}

TEST(DecodedDictionary, HoldsAKeyOnceWithItsLastValue)
{
    const auto read = decodeCollection<Dictionary<QString>>(
        R"({"a": "1", "b": "2", "a": "3", "c": "4", "b": "5"})");
    QStringList held;
    read->forEach([&held](const QString &key, const QString &value) { held << key + value; });
    EXPECT_EQ(held.join(u' '), u"a3 b5 c4"_s);
    EXPECT_EQ(read->size(), 3U);
}

} // namespace
