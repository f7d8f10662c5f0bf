#pragma once

#include <cstdio>

namespace quenoria::bench {

/// Prints what was measured beside its floor, and remembers whether every budget was kept: a
/// machine is slow or quick, a ratio is not.
class Report {
public:
    void heading(const char *floor) const
    {
        std::printf("%-38s %9s %10s %10s %7s\n", "", "contacts", floor, "measured", "ratio");
    }

    /// A budget of 0 is none.
    void ratio(const char *what, int contacts, double floor, double measured, double budget)
    {
        std::printf("%-38s %9d %10.2f %10.2f %7.2f", what, contacts, floor, measured,
                    measured / floor);
        judge(measured / floor, budget);
    }

    void figure(const char *what, int contacts, double measured, double budget)
    {
        std::printf("%-38s %9d %10s %10.2f %7s", what, contacts, "", measured, "");
        judge(measured, budget);
    }

    /// What a program that prints the report ends with.
    [[nodiscard]] int exitStatus() const { return m_missed > 0 ? 1 : 0; }

private:
    void judge(double value, double budget)
    {
        const bool missed = budget > 0 && value > budget;
        m_missed += missed ? 1 : 0;
        if (budget > 0)
            std::printf("  at most %.4g%s", budget, missed ? "  MISSED" : "");
        std::puts("");
        std::fflush(stdout);
    }

    int m_missed = 0;
};

} // namespace quenoria::bench
