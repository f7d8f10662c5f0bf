#include "platform/applescript/apple_script_host.h"
#include "platform/applescript/mail_application.h"
#include "platform/applescript/messages_application.h"
#include "support/recording_transports.h"

#include <gtest/gtest.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

struct Desk {
    RecordingMessages transport;
    RecordingMail post;
    MessagesApplication messages{transport};
    MailApplication mail{post};
    AppleScriptHost host{{&messages, &mail}, [this](std::chrono::nanoseconds duration) {
                             transport.carried << u"wait %1 ms"_s.arg(duration.count() / 1'000'000);
                         }};

    Desk() { transport.offered = {{MessagesService::SMS, {}}}; }

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
        u"if true then "_s.repeated(100'000) + u"activate"_s,
        u"try\n"_s.repeated(100'000) + u"end try\n"_s.repeated(100'000),
        u"set a to "_s + u"buddy "_s.repeated(100'000),
        u"make new a with properties {b:"_s.repeated(100'000),
    };
    for (const QString &text : refused) {
        Desk desk;
        EXPECT_EQ(desk.run(sendOne + text), u"not created"_s) << text.left(60).toStdString();
        EXPECT_EQ(desk.transport.carried, QStringList());
    }
    EXPECT_EQ(Desk().run(sendOne), u"done"_s) << "else the above proves nothing";
}

struct Run {
    const char *script;
    const char *outcome;
    QStringList carried;
};

class Scripts : public testing::TestWithParam<Run> {};

TEST_P(Scripts, EndAsWritten)
{
    Desk desk;
    const QString script = u"tell application \"Messages\"\n"
                           "set b to buddy \"1\" of first service whose service type is SMS\n"_s +
                           QString::fromUtf8(GetParam().script) + u"\nend tell"_s;
    EXPECT_EQ(desk.run(script), QString::fromUtf8(GetParam().outcome));
    EXPECT_EQ(desk.transport.carried, GetParam().carried);
}

INSTANTIATE_TEST_SUITE_P(
    All, Scripts,
    testing::Values(
        Run{"send \"a\" & return & \"\\\"\\\\\" & \"\" to b", "done", {u"SMS 1 a\n\"\\"_s}},
        Run{"send \"two\nlines\" to b", "done", {u"SMS 1 two\nlines"_s}},
        Run{"delay 0.5\ndelay 2", "done", {u"wait 500 ms"_s, u"wait 2000 ms"_s}},
        Run{"delay 9999999999999999999999", "done", {u"wait 3600000 ms"_s}},
        Run{"if b is missing value then\nsend \"x\" to b\nelse\nsend \"y\" to b\nend if",
            "done",
            {u"SMS 1 y"_s}},
        Run{"if b is not missing value and 1 is 1 then send \"x\" to b", "done", {u"SMS 1 x"_s}},
        Run{"if false and unknown then send \"x\" to b", "done", {}},
        Run{"try\nerror \"e\" number 5\non error m number n\nif n is 5 then send m to b\nend try",
            "done",
            {u"SMS 1 e"_s}},
        Run{"try\nerror \"a\"\non error m\nerror m & \"b\"\nend try", "ab", {}},
        Run{"try\ntell b\nerror \"x\"\nend tell\nend try\nsend \"same target\" to b",
            "done",
            {u"SMS 1 same target"_s}},
        Run{"try\nerror number 5\nend try\nerror", "no message", {}}, Run{"error \"é\"", "é", {}},
        Run{"send c to b", "La variable « c » n’est pas définie.", {}},
        Run{"send \"x\" to \"1\"", "Une valeur n’a pas le type attendu.", {}},
        Run{"send b to b", "Une valeur n’a pas le type attendu.", {}},
        Run{"activate", "La commande « activate » n’est pas comprise ici.", {}},
        Run{"first service whose service type is RCS", "not created", {}},
        Run{"set r to first service whose service type is RCS",
            "Messages n’a pas de service RCS.",
            {}},
        Run{"set f to POSIX file \"/no/such\" as alias",
            "Le fichier « /no/such » est introuvable.",
            {}},
        Run{"tell application \"Finder\"\nend tell",
            "L’application « Finder » est introuvable.",
            {}}));

TEST(Interpreter, MailKeepsADraftForTheUserAndSendsTheRest)
{
    const QString script = u"tell application \"Mail\"\n"
                           "set m to make new outgoing message with properties "
                           "{visible:%1, subject:\"s\", content:\"a\" & return & \"b\"}\n"
                           "tell m\nmake new to recipient at end of to recipients "
                           "with properties {address:\"a@example.org\"}\n"
                           "end tell\n%2\nend tell"_s;
    Desk desk;
    EXPECT_EQ(desk.run(script.arg(u"true"_s, u"activate"_s)), u"done"_s);
    EXPECT_EQ(desk.run(script.arg(u"false"_s, u"activate"_s)), u"done"_s) << "an unseen one stays";
    ASSERT_EQ(desk.post.shown.size(), 1U);
    EXPECT_EQ(desk.post.shown.front().content, u"a\nb"_s);
    EXPECT_TRUE(desk.post.sent.empty());
    desk.post.answer = TransportFailure{u"550"_s};
    EXPECT_EQ(desk.run(script.arg(u"false"_s, u"send m"_s)), u"550"_s);
    EXPECT_EQ(desk.post.sent.front().recipients, QStringList{u"a@example.org"_s});
    EXPECT_EQ(desk.run(script.arg(u"false"_s, u"make new sheet with properties {a:1}"_s)),
              u"La commande « make new sheet » n’est pas comprise ici."_s);
}

} // namespace
