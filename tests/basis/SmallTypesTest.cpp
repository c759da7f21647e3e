#include "basis/ActivityControl.h"
#include "basis/Range.h"
#include "basis/Scale.h"
#include "basis/SystemInfo.h"
#include "basis/Units.h"

#include <gtest/gtest.h>

#include <QString>

#include <sched.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

using Range = Basis::C_RangeT<int>;

TEST(Range, ContainsOverlapsSize)
{
    Range const r(2, 5);
    EXPECT_TRUE(r.IsValid());
    EXPECT_EQ(r.GetSize(), 3);
    EXPECT_TRUE(r.Contains(2) && r.Contains(5));
    EXPECT_FALSE(r.Contains(1) || r.Contains(6));
    EXPECT_FALSE(Range(5, 2).IsValid());
    EXPECT_FALSE(Range(5, 2).Contains(3));
    EXPECT_TRUE(Range(4, 4).IsValid());

    // Touching ends overlap because both ends are inclusive.
    EXPECT_TRUE(r.Overlaps({5, 8}) && Range(5, 8).Overlaps(r));
    EXPECT_TRUE(r.Overlaps({-1, 2}) && Range(-1, 2).Overlaps(r));
    EXPECT_TRUE(r.Overlaps({3, 4}) && Range(3, 4).Overlaps(r));
    EXPECT_FALSE(r.Overlaps({6, 8}) || Range(6, 8).Overlaps(r));
    EXPECT_FALSE(r.Overlaps({-3, 1}) || Range(-3, 1).Overlaps(r));
    // A reversed range contains nothing, so it overlaps nothing either.
    EXPECT_FALSE(Range(5, 2).Overlaps({0, 10}) || Range(0, 10).Overlaps({5, 2}));

    EXPECT_EQ(r, Range(2, 5));
    EXPECT_NE(r, Range(2, 6));
    EXPECT_NE(r, Range(1, 5));
}

TEST(Scale, DefaultsAndEquality)
{
    Basis::S_Scale const s;
    EXPECT_EQ(s.factor, 1.0);
    EXPECT_EQ(s.offset, 0.0);
    EXPECT_TRUE(s.unit.isEmpty() && s.description.isEmpty());

    Basis::S_Scale const mm(0.1, 2.0, QStringLiteral("mm"), QStringLiteral("depth"));
    EXPECT_EQ(mm, Basis::S_Scale(0.1, 2.0, QStringLiteral("mm"), QStringLiteral("depth")));
    EXPECT_NE(mm, Basis::S_Scale(0.2, 2.0, QStringLiteral("mm"), QStringLiteral("depth")));
    EXPECT_NE(mm, Basis::S_Scale(0.1, 3.0, QStringLiteral("mm"), QStringLiteral("depth")));
    EXPECT_NE(mm, Basis::S_Scale(0.1, 2.0, QStringLiteral("m"), QStringLiteral("depth")));
    EXPECT_NE(mm, Basis::S_Scale(0.1, 2.0, QStringLiteral("mm"), QStringLiteral("height")));
}

TEST(Units, LatinOneTexts)
{
    QString const degree(Basis::AngleUnits::Degree);
    ASSERT_EQ(degree.size(), 1);
    EXPECT_EQ(degree.at(0).unicode(), 0xB0);
    EXPECT_EQ(QString(Basis::TimeUnits::Microsecond), QString::fromLatin1("\xB5s"));
}

TEST(SystemInfo, MatchesTheOperatingSystem)
{
    std::uint64_t const total = Basis::C_SystemInfo::GetTotalPhysicalMemory();
    EXPECT_EQ(total, std::uint64_t(sysconf(_SC_PHYS_PAGES)) * std::uint64_t(sysconf(_SC_PAGESIZE)));
    EXPECT_GT(total, 0u);
    std::uint64_t const available = Basis::C_SystemInfo::GetAvailablePhysicalMemory();
    EXPECT_GT(available, 0u);
    EXPECT_LE(available, total);

    // The processors this process may run on, not all the machine has.
    cpu_set_t set;
    ASSERT_EQ(sched_getaffinity(0, sizeof(set), &set), 0);
    EXPECT_GE(Basis::C_SystemInfo::GetProcessorCount(), 1u);
    EXPECT_EQ(Basis::C_SystemInfo::GetProcessorCount(), unsigned(CPU_COUNT(&set)));
}

TEST(ActivityControl, ForwardsProgressAndSeesCancelFromAnotherThread)
{
    using Reports = std::vector<std::pair<std::uint64_t, std::uint64_t>>;
    Reports reports;
    Basis::C_ActivityControl const reporting([&](std::uint64_t done, std::uint64_t total) { reports.emplace_back(done, total); });
    Basis::I_ActivityControl const & control = reporting;
    control.ReportProgress(3, 10);
    control.ReportProgress(5, 0);
    EXPECT_EQ(reports, (Reports{{3, 10}, {5, 0}}));
    EXPECT_FALSE(control.IsCancelRequested());

    // Without a callback, progress goes nowhere instead of calling an empty function.
    Basis::C_ActivityControl silent;
    EXPECT_NO_THROW(silent.ReportProgress(1, 2));
    EXPECT_FALSE(silent.IsCancelRequested());

    std::atomic<bool> started{false}, sawCancel{false};
    std::thread worker([&] {
        auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        started = true;
        while (!sawCancel && std::chrono::steady_clock::now() < deadline)
            sawCancel = silent.IsCancelRequested();
    });
    while (!started)
        std::this_thread::yield();
    std::thread([&] { silent.RequestCancel(); }).join();
    worker.join();
    EXPECT_TRUE(sawCancel);
}
