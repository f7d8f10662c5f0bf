#pragma once

#include "platform/applescript/syntax.h"

namespace quenoria::applescript {

/// The statements of a script; nothing when it is outside the grammar.
///
///   script     = block
///   block      = { statement LINE-END }
///   statement  = set NAME to expression | send joined [to operand] | delay operand | activate
///              | error [joined] [number operand] | tell operand LINE-END block end tell
///              | try LINE-END block [on error [NAME [number NAME]] LINE-END block] end try
///              | if expression then (statement | LINE-END block [else LINE-END block] end if)
///              | make …
///   expression = comparison { and comparison }
///   comparison = joined [is [not] joined]
///   joined     = operand { & operand }
///   operand    = TEXT | NUMBER | true | false | return | missing value | NAME | application TEXT
///              | first service whose service type is NAME | buddy operand of operand
///              | POSIX file operand as alias
///              | make new WORDS [at WORDS] with properties { WORDS:expression, … } [at WORDS]
[[nodiscard]] std::optional<Block> parse(const QString &source);

} // namespace quenoria::applescript
