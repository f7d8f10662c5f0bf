#pragma once

#include <QString>
#include <QStringList>

namespace quenoria {

/// How a text travels over the telephone network: in the short alphabet (GSM 03.38) where every
/// character belongs to it, else in the long one (UTF-16), in as many parts as it takes.
///
///   160 × "a"           -> 1 part, short
///   161 × "a"           -> 2 parts of at most 153
///   "a" and 160 × "€"   -> an extended character counts twice and is never cut in two
///   "l’été"             -> 1 part of at most 70, long, because of "’"
struct SmsLength {
    int parts = 1;
    QStringList longCharacters; ///< those that impose the long alphabet, each once, in order
    bool operator==(const SmsLength &) const = default;
};

[[nodiscard]] SmsLength smsLength(const QString &text);

/// The text with the characters outside the short alphabet that have a plain likeness ("’", "…",
/// "œ", no-break spaces) replaced by it; the others stay.
[[nodiscard]] QString withPlainCharacters(const QString &text);

} // namespace quenoria
