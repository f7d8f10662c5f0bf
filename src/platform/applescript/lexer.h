#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace quenoria::applescript {

struct Token {
    enum class Kind { Word, Text, Number, Symbol, LineEnd, End };

    Kind kind;
    QString text; ///< a Text without its quotes and escapes
};

/// Cuts a script into tokens, the last of which is End; nothing when it holds what no script of
/// this application holds.
///
///   set a to "x\"y"\n  -> Word set, Word a, Word to, Text x"y, LineEnd, End
///   {b:0.5}            -> Symbol {, Word b, Symbol :, Number 0.5, Symbol }, End
///   "x\q"              -> nothing: \\ \" \n \r \t are the escapes
[[nodiscard]] std::optional<std::vector<Token>> tokenize(QStringView source);

} // namespace quenoria::applescript
