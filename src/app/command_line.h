#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace quenoria {

/// What the user asked for at the start.
struct StartOptions {
    bool demonstration = false;
    std::optional<QString> dataFolder;
    std::optional<QString> tourFolder;  ///< where the visit leaves its pictures
    std::optional<QString> rehearsal;   ///< what the demonstration sends by itself
    std::optional<QString> workbook;    ///< to import at once
    std::optional<bool> darkAppearance; ///< absent: the desktop's
};

/// A text to print instead of starting.
struct Answer {
    QString text;
    int status = 0; ///< 0: standard output; anything else: standard error and exit status
};

/// Reads the arguments, the program's name first. Needs an application object for its name,
/// version and translations.
[[nodiscard]] std::variant<StartOptions, Answer> parseCommandLine(const QStringList &arguments);

} // namespace quenoria
