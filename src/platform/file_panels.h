#pragma once

#include <QString>

#include <optional>

namespace quenoria {

/// What an open panel shows.
struct OpenPanel {
    QString title;
    QString message;
    QString button;
    QString suffix; ///< the one file name extension to offer ("xlsx"), empty for any file
};

/// What a save panel shows.
struct SavePanel {
    QString title;
    QString fileName; ///< proposed
    QString suffix;
};

/// The desktop's modal file choosers. Both give an absolute path, or nothing when cancelled.
class FilePanels {
public:
    virtual ~FilePanels() = default;

    [[nodiscard]] virtual std::optional<QString> chooseFile(const OpenPanel &panel) = 0;
    [[nodiscard]] virtual std::optional<QString> chooseDestination(const SavePanel &panel) = 0;
};

} // namespace quenoria
