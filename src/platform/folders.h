#pragma once

#include <QString>

namespace quenoria {

/// Where files live. The folders need not exist yet.
class Folders {
public:
    virtual ~Folders() = default;

    /// Folder of the thirteen data files: "Quenoria v.7.29" in the user's application support,
    /// unless the user named another one at the start.
    [[nodiscard]] virtual QString data() const = 0;
};

} // namespace quenoria
