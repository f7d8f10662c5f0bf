#pragma once

#include "app/command_line.h"

namespace quenoria {

/// Why no window can be shown, before the toolkit looks for a screen: the environment names none.
[[nodiscard]] std::optional<Answer> missingScreen();

/// Stands by while the toolkit opens the screen: where it would abort or wait for ever, the program
/// says in French that no screen answers, and ends.
class ScreenWatch {
public:
    ScreenWatch();
    ~ScreenWatch();
    Q_DISABLE_COPY_MOVE(ScreenWatch)

private:
    QtMessageHandler m_before;
};

/// Why the screen that was found cannot show a text.
[[nodiscard]] std::optional<Answer> missingFonts();

} // namespace quenoria
