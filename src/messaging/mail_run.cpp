#include "messaging/mail_run.h"

#include "messaging/mail_turn.h"
#include "model/dictionary.h"
#include "store/prospect_store.h"

#include <algorithm>

namespace quenoria {

namespace {

constexpr std::chrono::hours day{24};

} // namespace

Instant lastMailTurn(std::vector<Instant> sent, MailPace pace, Instant now, int messages)
{
    std::erase_if(sent, [now](Instant each) { return each <= now - day || each > now; });
    const int simulated = messages > pace.perDay ? messages % pace.perDay + pace.perDay : messages;
    Instant turn = now;
    for (int message = 0; message < simulated; ++message) {
        turn = nextMailTurn(sent, pace, turn);
        sent.push_back(turn);
    }
    return turn + (messages - simulated) / pace.perDay * day;
}

std::vector<Instant> emailsSent(const ProspectStore &store)
{
    std::vector<Instant> sent;
    store.emailStatuses().forEach([&sent](const QString &, const EmailSendStatus &status) {
        if (status.sendHistory)
            std::ranges::copy(*status.sendHistory, std::back_inserter(sent));
    });
    return sent;
}

} // namespace quenoria
