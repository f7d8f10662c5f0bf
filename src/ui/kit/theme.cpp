#include "ui/kit/theme.h"

#include "ui/kit/widget_style.h"

#include <QApplication>
#include <QToolTip>

#include <array>

namespace quenoria {

namespace {

struct RoleColors {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

// Highlight carries HighlightedText on it; Link is the accent as a colour of text. BrightText and
// LinkVisited stand for the negative and the positive status, which have no role of their own.
constexpr std::array roleColors{
    RoleColors{QPalette::Window, 0xfff5f6f8, 0xff1f2126},
    RoleColors{QPalette::WindowText, 0xff1d2129, 0xffe9ebef},
    RoleColors{QPalette::Base, 0xffffffff, 0xff282b31},
    RoleColors{QPalette::AlternateBase, 0xfff8f9fb, 0xff2d3037},
    RoleColors{QPalette::Text, 0xff1d2129, 0xffe9ebef},
    RoleColors{QPalette::PlaceholderText, 0xff626874, 0xffa3a9b5},
    RoleColors{QPalette::Button, 0xffffffff, 0xff373b43},
    RoleColors{QPalette::ButtonText, 0xff1d2129, 0xffe9ebef},
    RoleColors{QPalette::Highlight, 0xff2b62c4, 0xff3a6fd0},
    RoleColors{QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    RoleColors{QPalette::Link, 0xff2b62c4, 0xff8ab4ff},
    RoleColors{QPalette::LinkVisited, 0xff1c7a41, 0xff6cc98a},
    RoleColors{QPalette::BrightText, 0xffc0322b, 0xffff918a},
    RoleColors{QPalette::ToolTipBase, 0xff2a2e36, 0xff3c414a},
    RoleColors{QPalette::ToolTipText, 0xfff2f3f5, 0xfff2f3f5},
    RoleColors{QPalette::Light, 0xffffffff, 0xff3f444d},
    RoleColors{QPalette::Midlight, 0xffe6e9ee, 0xff33373e},
    RoleColors{QPalette::Mid, 0xffcbd0d8, 0xff4a4f59},
    RoleColors{QPalette::Dark, 0xff9aa1ad, 0xff747b88},
    RoleColors{QPalette::Shadow, 0xff5c636f, 0xff000000},
};

// What cannot be used now is paler, yet can still be read.
constexpr std::array disabledColors{
    RoleColors{QPalette::WindowText, 0xff868c97, 0xff858b97},
    RoleColors{QPalette::Text, 0xff868c97, 0xff858b97},
    RoleColors{QPalette::PlaceholderText, 0xff868c97, 0xff858b97},
    RoleColors{QPalette::ButtonText, 0xff868c97, 0xff858b97},
    RoleColors{QPalette::Highlight, 0xffdfe3e9, 0xff363a42},
    RoleColors{QPalette::HighlightedText, 0xff7c828e, 0xff8d939f},
    RoleColors{QPalette::Link, 0xff868c97, 0xff858b97},
    RoleColors{QPalette::LinkVisited, 0xff868c97, 0xff858b97},
    RoleColors{QPalette::BrightText, 0xff868c97, 0xff858b97},
    RoleColors{QPalette::Button, 0xfff5f6f8, 0xff2b2e35},
};

} // namespace

QPalette::ColorRole tintRole(Tint tint)
{
    switch (tint) {
    case Tint::text:
        return QPalette::WindowText;
    case Tint::secondary:
        return QPalette::PlaceholderText;
    case Tint::accent:
        return QPalette::Link;
    case Tint::positive:
        return QPalette::LinkVisited;
    case Tint::negative:
        return QPalette::BrightText;
    case Tint::onAccent:
        return QPalette::HighlightedText;
    }
    Q_UNREACHABLE();
}

QColor tintColor(Tint tint, const QPalette &palette) { return palette.color(tintRole(tint)); }

QPalette themePalette(Appearance appearance)
{
    const auto color = [appearance](const RoleColors &colors) {
        return QColor::fromRgba(appearance == Appearance::light ? colors.light : colors.dark);
    };
    QPalette palette;
    for (const RoleColors &colors : roleColors)
        palette.setColor(colors.role, color(colors));
    for (const RoleColors &colors : disabledColors)
        palette.setColor(QPalette::Disabled, colors.role, color(colors));
    return palette;
}

void applyTheme(Appearance appearance)
{
    if (!qobject_cast<WidgetStyle *>(QApplication::style())) {
        auto *style = new WidgetStyle;
        style->setParent(qApp);
        QApplication::setStyle(style);
    }
    const QPalette palette = themePalette(appearance);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

} // namespace quenoria
