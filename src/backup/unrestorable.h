#pragma once

#include <QString>

namespace quenoria {

/// Thrown inside this room when a backup cannot be restored; the reason is for the user.
struct Unrestorable {
    QString reason;
};

} // namespace quenoria
