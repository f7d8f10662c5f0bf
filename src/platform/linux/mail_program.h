#pragma once

#include <QString>

#include <optional>

namespace quenoria {

/// Path of the program that sends e-mails for the user, called as sendmail is: msmtp when it has
/// a configuration, else the system's sendmail.
[[nodiscard]] std::optional<QString> mailProgram();

} // namespace quenoria
