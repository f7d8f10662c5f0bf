#include <QApplication>
#include <QLocale>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" QUENORIA_TEST_DATA "/screens.json");
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    return RUN_ALL_TESTS();
}
