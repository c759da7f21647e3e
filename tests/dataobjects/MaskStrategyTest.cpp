#include "dataobjects/InstantMask.h"
#include "dataobjects/LazyMask.h"
#include "dataobjects/Mask.h"

#include "BasisTesting.h"

#include <algorithm>
#include <thread>
#include <vector>

using namespace DataObjects;

TEST(MaskStrategy, InstantMaskOverASharedMaskMarksItForEveryHolder)
{
    auto shared = std::make_shared<Mask>(3, 3, false);
    InstantMask untouched(shared, false);
    EXPECT_FALSE(shared->IsValid(1, 1));
    InstantMask strategy(shared, true);
    EXPECT_TRUE(untouched.ref().IsValid(1, 1));
    EXPECT_TRUE(strategy.IsMaskSpawned());
    EXPECT_EQ(strategy.sptr(), shared);

    InstantMask copy(strategy);
    EXPECT_EQ(&copy.ref(), shared.get()) << "copies share the mask";

    Mask own(2, 2, true);
    bool * const pixels = own.GetRawPointer();
    InstantMask taken(std::move(own));
    EXPECT_EQ(taken.ref().GetRawPointer(), pixels);
    EXPECT_BASIS_THROW(InstantMask(std::shared_ptr<Mask>(), true), Basis::VerificationFailed, "Mask is null");
}

TEST(MaskStrategy, LazyMaskSpawnsOnFirstRequestOnly)
{
    LazyMask strategy(4, 3, true);
    EXPECT_FALSE(strategy.IsMaskSpawned());
    LazyMask early(strategy);
    Mask & mask = strategy.ref();
    EXPECT_TRUE(strategy.IsMaskSpawned());
    EXPECT_EQ(mask.GetSize(), Math::Size2T<unsigned int>(4, 3));
    EXPECT_TRUE(std::all_of(mask.begin(), mask.end(), [](bool v) { return v; }));
    EXPECT_EQ(strategy.sptr().get(), &mask);

    EXPECT_FALSE(early.IsMaskSpawned()) << "a copy taken before spawning spawns its own";
    LazyMask late(strategy);
    EXPECT_EQ(&late.ref(), &mask);

    LazyMask const constant(2, 2, false);
    EXPECT_EQ(constant.ref().GetSize(), Math::Size2T<unsigned int>(2, 2));
    EXPECT_TRUE(constant.IsMaskSpawned());
}

// Run under ThreadSanitizer as well: the flag and the shared pointer are read without the lock.
TEST(MaskStrategy, ConcurrentRequestsGetOneAndTheSameMask)
{
    for (int round = 0; round < 50; ++round) {
        LazyMask strategy(64, 64, true);
        std::vector<Mask const *> seen(8);
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < seen.size(); ++i) {
            threads.emplace_back([&, i] {
                seen[i] = i % 2 ? strategy.sptr().get() : &strategy.ref();
                EXPECT_TRUE(seen[i]->IsValid(63, 63));
            });
        }
        for (std::thread & thread : threads)
            thread.join();
        for (Mask const * mask : seen)
            ASSERT_EQ(mask, seen.front());
    }
}
