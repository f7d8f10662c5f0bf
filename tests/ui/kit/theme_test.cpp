#include "support/fake_clock.h"
#include "ui/kit/button_role.h"
#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"
#include "ui/kit/theme.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>

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

TEST(Theme, ShowsWhatAButtonMeans)
{
    applyTheme(Appearance::light);
    const QPalette palette = QApplication::palette();
    QPushButton button(u"Oui"_s);
    button.resize(button.sizeHint());
    const auto edge = [&] { return button.grab().toImage().pixelColor(4, button.height() / 2); };
    EXPECT_EQ(edge(), palette.color(QPalette::Button));
    makeProminent(&button);
    EXPECT_EQ(edge(), palette.color(QPalette::Highlight));
    button.setEnabled(false);
    EXPECT_EQ(edge(), palette.color(QPalette::Disabled, QPalette::Highlight));
}

class ScrollThumb : public testing::TestWithParam<Qt::Orientation> {};

TEST_P(ScrollThumb, CanBeSeizedAndReachesBothEnds)
{
    applyTheme(Appearance::light);
    QScrollBar bar(GetParam());
    bar.resize(GetParam() == Qt::Horizontal ? QSize(400, 12) : QSize(12, 400));
    const auto part = [&bar](QStyle::SubControl name) {
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = bar.orientation();
        option.maximum = bar.maximum();
        option.pageStep = bar.pageStep();
        option.sliderPosition = bar.value();
        option.upsideDown = bar.invertedAppearance();
        const QRect rect =
            QApplication::style()->subControlRect(QStyle::CC_ScrollBar, &option, name);
        return bar.orientation() == Qt::Horizontal
                   ? rect.transposed().translated(rect.y() - rect.x(), rect.x() - rect.y())
                   : rect;
    };
    bar.setRange(0, 3'000'000);
    bar.setPageStep(600);
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider), QRect(0, 0, 12, 32));
    bar.setValue(3'000'000);
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider), QRect(0, 368, 12, 32));
    EXPECT_EQ(part(QStyle::SC_ScrollBarSubPage), QRect(0, 0, 12, 368));
    EXPECT_TRUE(part(QStyle::SC_ScrollBarAddPage).isEmpty());
    bar.setRange(0, 600);
    bar.setValue(0);
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider), QRect(0, 0, 12, 200));
}

INSTANTIATE_TEST_SUITE_P(Theme, ScrollThumb, testing::Values(Qt::Horizontal, Qt::Vertical));

TEST(Symbols, AreDrawnWithinTheirGridInTheirTint)
{
    applyTheme(Appearance::light);
    (void)symbol(u"plus"_s);
    const QStringList files = QDir(u":/icons"_s).entryList();
    EXPECT_GE(files.size(), 30);
    for (const QString &file : files) {
        const QIcon icon = symbol(file.chopped(4), Tint::accent);
        const QImage image = icon.pixmap(QSize(16, 16), 2.0).toImage();
        ASSERT_EQ(image.size(), QSize(32, 32));
        double ink = 0;
        for (int y = 0; y < 32; ++y) {
            for (int x = 0; x < 32; ++x) {
                const double alpha = image.pixelColor(x, y).alphaF();
                const bool edge = x % 31 == 0 || y % 31 == 0;
                EXPECT_FALSE(edge && alpha > 0) << qUtf8Printable(file) << " is cut off";
                ink += alpha / (32 * 32);
            }
        }
        EXPECT_GT(ink, 0.04) << qUtf8Printable(file);
        EXPECT_LT(ink, 0.6) << qUtf8Printable(file);
    }
}

TEST(Symbols, AreHollowWhereTheyAreWhiteAndPaleWhenDisabled)
{
    applyTheme(Appearance::light);
    const QIcon icon = symbol(u"plus.circle.fill"_s);
    const QImage image = icon.pixmap(24).toImage();
    EXPECT_EQ(image.pixelColor(12, 12).alpha(), 0);
    EXPECT_EQ(image.pixelColor(6, 12), tintColor(Tint::text, QApplication::palette()));
    EXPECT_EQ(icon.pixmap(24, QIcon::Disabled).toImage().pixelColor(6, 12),
              QApplication::palette().color(QPalette::Disabled, QPalette::WindowText));
    EXPECT_EQ(icon.pixmap(24, QIcon::Selected).toImage().pixelColor(6, 12),
              QApplication::palette().color(QPalette::HighlightedText));
}

} // namespace
