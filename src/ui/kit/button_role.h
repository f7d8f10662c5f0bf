#pragma once

class QPushButton;
class QWidget;

namespace quenoria {

/// What pressing a button means beyond its text.
enum class ButtonRole { plain, prominent, destructive };

/// Gives a button the accent of the one action that a sheet is for.
void makeProminent(QPushButton *button);

/// Gives a button the colour of what cannot be undone.
void makeDestructive(QPushButton *button);

[[nodiscard]] ButtonRole buttonRole(const QWidget *button);

} // namespace quenoria
