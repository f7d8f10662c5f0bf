#pragma once

#include <QStringList>

namespace quenoria {

class ContentView;
class SendDesk;
class Switches;

/// What the demonstration can send by itself, as the command line names it.
[[nodiscard]] const QStringList &rehearsalNames();

/// Sends to every contact that has not been sent to, at once and without a hand: for trials that
/// end the process at any instant. "sms" and "email" work their queue; "tout" sends e-mails from
/// the rows while the queue of SMS runs.
void rehearse(ContentView &window, SendDesk &desk, Switches &switches, const QString &name);

} // namespace quenoria
