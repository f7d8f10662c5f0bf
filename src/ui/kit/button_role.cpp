#include "ui/kit/button_role.h"

#include <QPushButton>
#include <QVariant>

namespace quenoria {

namespace {

constexpr const char *roleProperty = "buttonRole";

void setRole(QPushButton *button, ButtonRole role)
{
    button->setProperty(roleProperty, int(role));
    button->update();
}

} // namespace

void makeProminent(QPushButton *button) { setRole(button, ButtonRole::prominent); }

void makeDestructive(QPushButton *button) { setRole(button, ButtonRole::destructive); }

ButtonRole buttonRole(const QWidget *button)
{
    return button ? ButtonRole(button->property(roleProperty).toInt()) : ButtonRole::plain;
}

} // namespace quenoria
