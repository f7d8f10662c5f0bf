#pragma once

#include <QString>

namespace quenoria {

/// What the desktop shows of a run outside the window, where it has a place for it. Nothing waits
/// for it, and no failure is told: the window says the same.
class RunSigns {
public:
    virtual ~RunSigns() = default;

    /// How far a run has come, in the icon of the task bar; no bar when nothing is left to do.
    virtual void showProgress(int done, int total) = 0;

    /// What became of a run, to a user who looks elsewhere.
    virtual void notify(const QString &title, const QString &text) = 0;
};

} // namespace quenoria
