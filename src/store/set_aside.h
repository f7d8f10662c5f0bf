#pragma once

#include "platform/platform.h"

#include <QStringList>

namespace quenoria {

/// Renames a file that cannot be decoded, so that nothing is written over it, and logs what became
/// of it. Gives its new path, unless it could not be renamed.
QStringList setAside(const Platform &platform, const QString &path);

} // namespace quenoria
