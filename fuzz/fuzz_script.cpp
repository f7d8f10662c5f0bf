// Any bytes as a script, which ends in one of its outcomes; and as a text that a script of our own
// carries, which arrives as it was written.

#include "messaging/script_text.h"
#include "support/interpreted_scripts.h"

#include <cstdlib>

using namespace quenoria;
using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    test::InterpretedScripts desk;
    (void)desk.host.run(text);

    desk.messages.carried.clear();
    const ScriptOutcome outcome =
        desk.host.run(u"tell application \"Messages\"\nsend "_s + appleScriptTextExpression(text) +
                      u" to buddy \"1\" of first service whose service type is SMS\nend tell"_s);
    QString expected = text;
    expected.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    if (!std::holds_alternative<ScriptDone>(outcome) ||
        desk.messages.carried != QStringList{u"SMS 1 "_s + expected})
        std::abort();
    return 0;
}
