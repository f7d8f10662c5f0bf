#pragma once

#include <QString>

namespace quenoria {

class ContentView;
class ProspectStore;
class Switches;
struct Platform;

/// The visit of the demonstration: goes through the main jobs with the real widgets and at their
/// true pace, leaves a picture of every state, then reads in the files what must be there.
class Tour {
public:
    Tour(ContentView &window, ProspectStore &store, Switches &switches, const Platform &platform);

    /// Prints a line per step, in French. 0 when everything was found, else 1.
    [[nodiscard]] int run(const QString &pictures);

    /// Path of a new data folder among the pictures: a visit starts from nothing and keeps the
    /// files of the earlier ones.
    [[nodiscard]] static QString freshDataFolder(const QString &pictures);

    /// Makes all letters as large as $QUENORIA_LETTERS says in percent, as a desktop may, before
    /// there is a window.
    static void enlargeLetters();

private:
    ContentView &m_window;
    ProspectStore &m_store;
    Switches &m_switches;
    const Platform &m_platform;
};

} // namespace quenoria
