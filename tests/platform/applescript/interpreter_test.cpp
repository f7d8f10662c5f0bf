#include "support/interpreted_scripts.h"

#include <gtest/gtest.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

struct Desk : InterpretedScripts {
    QString run(const QString &script)
    {
        const ScriptOutcome outcome = host.run(script);
        if (const auto *error = std::get_if<ScriptError>(&outcome))
            return error->message.value_or(u"no message"_s);
        return std::holds_alternative<ScriptDone>(outcome) ? u"done"_s : u"not created"_s;
    }
};

const QString sendOne = u"tell application \"Messages\"\n"
                        "send \"x\" to buddy \"1\" of first service whose service type is SMS\n"
                        "end tell\n"_s;

TEST(Interpreter, ATextOutsideTheGrammarRunsNothingAtAll)
{
    const QString refused[] = {
        u"do shell script \"x\""_s,
        u"send \"x\" to \"y\" now"_s,
        u"set a to \"x"_s,
        u"set a to \"\\q\""_s,
        u"set a to \"\\"_s,
        u"set a to (1)"_s,
        u"set a to 1.2.3"_s,
        u"set a to \"x\" &"_s,
        u"set end to 1"_s,
        u"set a to missing"_s,
        u"tell application \"Mail\""_s,
        u"try\nend if"_s,
        u"if true then\nactivate\nelse"_s,
        u"make new thing with properties {a:1"_s,
        u"end tell"_s,
        u"activate activate"_s,
        u"if true then "_s.repeated(20'000) + u"activate"_s,
        u"try\n"_s.repeated(20'000) + u"end try\n"_s.repeated(20'000),
        u"set a to "_s + u"buddy "_s.repeated(20'000),
        u"make new a with properties {b:"_s.repeated(20'000),
    };
    for (const QString &text : refused) {
        Desk desk;
        EXPECT_EQ(desk.run(sendOne + text), u"not created"_s) << text.left(60).toStdString();
        EXPECT_EQ(desk.messages.carried, QStringList());
    }
    EXPECT_EQ(Desk().run(sendOne), u"done"_s) << "else the above proves nothing";
}

struct Run {
    const char *script;
    QString outcome = u"done"_s;
    QStringList carried = {};
};

class Scripts : public testing::TestWithParam<Run> {};

TEST_P(Scripts, EndAsWritten)
{
    Desk desk;
    const QString script = u"tell application \"Messages\"\n"
                           "set b to buddy \"1\" of first service whose service type is SMS\n"
                           "%1\nend tell"_s.arg(QString::fromUtf8(GetParam().script));
    EXPECT_EQ(desk.run(script), GetParam().outcome);
    EXPECT_EQ(desk.messages.carried, GetParam().carried);
    EXPECT_TRUE(desk.mail.shown.empty()) << "only visible messages are";
}

const QString wrongType = u"Une valeur n’a pas le type attendu."_s;
const Run runs[] = {
    {R"(send "a" & return & "\"\\" & "" to b)", u"done"_s, {u"SMS 1 a\n\"\\"_s}},
    {"send \"two\nlines\" to b", u"done"_s, {u"SMS 1 two\nlines"_s}},
    {"delay 0.5\n\n  \ndelay 2", u"done"_s, {u"wait 500 ms"_s, u"wait 2000 ms"_s}},
    {"delay 9999999999999999999999", u"done"_s, {u"wait 3600000 ms"_s}},
    {"if b is missing value then\nsend \"x\" to b\nelse\nsend \"y\" to b\nend if",
     u"done"_s,
     {u"SMS 1 y"_s}},
    {"if b is not missing value and 1 is 1 then send \"x\" to b", u"done"_s, {u"SMS 1 x"_s}},
    {"if false and unknown then send \"x\" to b"},
    {"try\nerror \"e\" number 5\non error m number n\nif n is 5 then send m to b\nend try",
     u"done"_s,
     {u"SMS 1 e"_s}},
    {"try\nerror \"a\"\non error m\nerror m & \"b\"\nend try", u"ab"_s},
    {"try\ntell b\nerror \"x\"\nend tell\nend try\nsend \"outer\" to b",
     u"done"_s,
     {u"SMS 1 outer"_s}},
    {"try\nerror number 5\nend try\nerror", u"no message"_s},
    {"send c to b", u"La variable « c » n’est pas définie."_s},
    {"send \"x\" to \"1\"", wrongType},
    {"activate", u"La commande « activate » n’est pas comprise ici."_s},
    {"set r to first service whose service type is RCS", u"Messages n’a pas de service RCS."_s},
    {"set f to POSIX file \"/\" as alias", u"Le fichier « / » ne peut pas être lu."_s},
    {"set f to POSIX file \"/no/such\" as alias", u"Le fichier « /no/such » est introuvable."_s},
    {"tell application \"Mail\"\nmake new outgoing message with properties "
     "{visible:false, subject:\"\", content:\"\"}\nactivate\nend tell"},
    {"tell application \"Mail\"\nmake new outgoing message with properties {visible:true}\nend "
     "tell",
     u"La propriété « subject » manque."_s},
    {"tell application \"Mail\"\nmake new sheet with properties {a:1}\nend tell",
     u"La commande « make new sheet » n’est pas comprise ici."_s},
    {"tell application \"Finder\"\nend tell", u"L’application « Finder » est introuvable."_s},
};
INSTANTIATE_TEST_SUITE_P(All, Scripts, testing::ValuesIn(runs));

} // namespace
