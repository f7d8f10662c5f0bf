#include "support/fake_clock.h"
#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"
#include "ui/kit/theme.h"

#include <QApplication>
#include <QLabel>
#include <QStyle>

#include <cmath>
#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

constexpr std::array appearances{Appearance::light, Appearance::dark};

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

struct Pair {
    QPalette::ColorRole text;
    std::vector<QPalette::ColorRole> grounds;
};

class Contrast : public testing::TestWithParam<Pair> {};

TEST_P(Contrast, LetsEveryTextBeRead)
{
    for (const Appearance appearance : appearances) {
        const QPalette palette = themePalette(appearance);
        for (const QPalette::ColorRole ground : GetParam().grounds) {
            const auto in = [&](QPalette::ColorGroup group, QPalette::ColorRole on) {
                return contrast(palette.color(group, GetParam().text), palette.color(group, on));
            };
            const std::string place = std::to_string(GetParam().text) + " on " +
                                      std::to_string(ground) + " in appearance " +
                                      std::to_string(int(appearance));
            EXPECT_GE(in(QPalette::Active, ground), 4.5) << place;
            EXPECT_GE(in(QPalette::Inactive, ground), 4.5) << place;
            EXPECT_GE(in(QPalette::Disabled, ground), 2.7) << place << ", disabled";
        }
    }
}

const std::vector surfaces{QPalette::Window, QPalette::Base, QPalette::AlternateBase};

INSTANTIATE_TEST_SUITE_P(
    Theme, Contrast,
    testing::Values(Pair{tintRole(Tint::text), surfaces}, Pair{tintRole(Tint::secondary), surfaces},
                    Pair{tintRole(Tint::accent), surfaces},
                    Pair{tintRole(Tint::positive), surfaces},
                    Pair{tintRole(Tint::negative), surfaces},
                    Pair{tintRole(Tint::negative), {QPalette::Button}},
                    Pair{tintRole(Tint::onAccent), {QPalette::Highlight}},
                    Pair{QPalette::Text, {QPalette::Base, QPalette::Midlight}},
                    Pair{QPalette::ButtonText, {QPalette::Button, QPalette::Midlight}},
                    Pair{QPalette::ToolTipText, {QPalette::ToolTipBase}}));

/// Also on what is under the mouse, chosen, or washed with a colour because it is selected or new.
TEST(Theme, LetsEverySymbolBeTold)
{
    constexpr float wash = 0.12F;
    const auto over = [](const QColor &ground, const QColor &color) {
        const auto mix = [](float below, float above) { return below + (above - below) * wash; };
        return QColor::fromRgbF(mix(ground.redF(), color.redF()),
                                mix(ground.greenF(), color.greenF()),
                                mix(ground.blueF(), color.blueF()));
    };
    for (const Appearance appearance : appearances) {
        const QPalette palette = themePalette(appearance);
        const QColor base = palette.color(QPalette::Base);
        std::vector<QColor> grounds{over(base, palette.color(QPalette::Highlight)),
                                    over(base, tintColor(Tint::positive, palette))};
        for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button,
                                               QPalette::AlternateBase, QPalette::Midlight})
            grounds.push_back(palette.color(role));
        for (const Tint tint :
             {Tint::text, Tint::secondary, Tint::accent, Tint::positive, Tint::negative}) {
            for (const QColor &ground : grounds)
                EXPECT_GE(contrast(tintColor(tint, palette), ground), 3)
                    << int(tint) << " on " << ground.name().toStdString();
        }
    }
}

TEST(Theme, ChangesUnderAnOpenWindow)
{
    const std::unique_ptr<QLabel> label(makeLabel(u"x"_s, TextStyle::body, Tint::negative));
    label->show();
    const QIcon icon = symbol(u"plus"_s, Tint::negative);
    const QStyle *style = nullptr;
    for (const Appearance appearance : {Appearance::dark, Appearance::light, Appearance::dark}) {
        applyTheme(appearance);
        test::settle();
        const QColor expected = tintColor(Tint::negative, themePalette(appearance));
        EXPECT_EQ(label->palette().color(label->foregroundRole()), expected);
        EXPECT_EQ(icon.pixmap(24).toImage().pixelColor(12, 12), expected);
        EXPECT_TRUE(!style || style == QApplication::style()) << "the style is made once";
        style = QApplication::style();
    }
}

} // namespace
