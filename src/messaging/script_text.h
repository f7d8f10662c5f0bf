#pragma once

#include <QString>

#include <optional>

namespace quenoria {

/// The text inside a quoted AppleScript string: backslashes doubled, then double quotes preceded
/// by a backslash.
///
///   a "b" \ c -> a \"b\" \\ c
[[nodiscard]] QString appleScriptEscaped(QString text);

/// An AppleScript expression whose value is the text, whatever it holds. Line ends of all three
/// kinds become the language's `return`, so that none stands inside a string.
///
///   Bonjour, an empty line, A bientot -> "Bonjour" & return & "" & return & "A bientot"
[[nodiscard]] QString appleScriptTextExpression(const QString &text);

/// The line that names the attached file, without its line end; empty without a file.
[[nodiscard]] QString attachmentAssignment(const std::optional<QString> &path);

} // namespace quenoria
