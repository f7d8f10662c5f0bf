#include "model/instant.h"

#include <gtest/gtest.h>

using namespace quenoria;
using namespace std::chrono;

TEST(InstantText, TruncatesAndNeverRoundsUp)
{
    const auto day = sys_days{year{2026} / 8 / 9};
    EXPECT_EQ(instantText(day + hours{8} + minutes{45} + milliseconds{999}),
              "2026-08-09T08:45:00Z");
    EXPECT_EQ(instantText(sys_days{year{1970} / 1 / 1} - milliseconds{1}), "1969-12-31T23:59:59Z");
    EXPECT_EQ(instantText(sys_days{year{1} / 1 / 1}), "0001-01-01T00:00:00Z");
}

struct StrictCase {
    const char *text;
    bool accepted;
};

class InstantFromText : public testing::TestWithParam<StrictCase> {};

TEST_P(InstantFromText, AcceptsTheWrittenFormOnly)
{
    const auto instant = instantFromText(GetParam().text);
    EXPECT_EQ(instant.has_value(), GetParam().accepted) << GetParam().text;
    if (instant) {
        EXPECT_EQ(instantText(*instant), GetParam().text);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Forms, InstantFromText,
    testing::Values(
        StrictCase{"2026-08-09T08:45:00Z", true}, StrictCase{"2024-02-29T23:59:59Z", true},
        StrictCase{"2026-02-29T08:45:00Z", false}, StrictCase{"2026-13-01T08:45:00Z", false},
        StrictCase{"2026-08-09T24:00:00Z", false}, StrictCase{"2026-08-09T08:60:00Z", false},
        StrictCase{"2026-08-09T08:45:00.5Z", false}, StrictCase{"2026-08-09T08:45:00+02:00", false},
        StrictCase{"2026-08-09 08:45:00Z", false}, StrictCase{"2026-08-09t08:45:00z", false},
        StrictCase{" 2026-08-09T08:45:00Z", false}, StrictCase{"+026-08-09T08:45:00Z", false},
        StrictCase{"", false}));
