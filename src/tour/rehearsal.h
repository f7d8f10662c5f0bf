#pragma once

#include <QStringList>

namespace quenoria {

class ContentView;
class SendDesk;
class Switches;

/// What the demonstration can send by itself, as the command line names it.
[[nodiscard]] const QStringList &rehearsalNames();

/// Sends to every contact that has not been sent to, at once and without a hand: for trials that
/// end the process at any instant. A channel's name works its queue; "tout" sends from the
/// rows on the other channels while the queue of the first runs.
void rehearse(ContentView &window, SendDesk &desk, Switches &switches, const QString &name);

} // namespace quenoria
