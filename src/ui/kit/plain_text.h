#pragma once

#include <QString>

namespace quenoria {

// What the window shows of a text that a user, a workbook or the system wrote. The text itself
// stays whole in its form. What turns the order of what follows it never comes through, nor does
// any other control character.

/// How much of a text has room.
struct TextRoom {
    qsizetype characters;
    qsizetype lines;
};

inline constexpr TextRoom headingRoom{160, 3};
inline constexpr TextRoom paragraphRoom{600, 12};
inline constexpr TextRoom messageRoom{2'000, 24};

/// The text on one line, cut with an ellipsis.
///
///   "un\ndeux\ttrois" -> "un deux trois"    "a\u202Eb" -> "ab"
[[nodiscard]] QString oneLine(const QString &text, qsizetype mostCharacters = 160);

/// The text with its line breaks, cut with an ellipsis. A word that is too long for any dialog may
/// be broken.
[[nodiscard]] QString paragraph(const QString &text, TextRoom room = paragraphRoom);

/// The whole text with its line breaks, for a page that wraps and scrolls.
[[nodiscard]] QString wholeText(const QString &text);

/// The text as an entry of a menu, where "&" would mark a shortcut.
[[nodiscard]] QString menuText(const QString &text);

/// The text as a tooltip.
[[nodiscard]] QString tipText(const QString &text);

} // namespace quenoria
