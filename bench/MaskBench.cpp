// Mask combination against memcpy of the same number of bytes: both are bound by memory
// bandwidth, so the ratio of their throughputs is the figure to read.

#include "dataobjects/Mask.h"

#include <benchmark/benchmark.h>

#include <cstring>

using namespace DataObjects;

namespace {

constexpr unsigned int Side = 4096;
constexpr std::int64_t Bytes = std::int64_t(Side) * Side;

Mask Stripes()
{
    Mask mask(Side, Side);
    for (unsigned int y = 0; y < Side; ++y)
        for (unsigned int x = 0; x < Side; ++x)
            mask.SetValid(x, y, (x / 7 + y) % 3 != 0);
    return mask;
}

void BM_MaskMemcpy(benchmark::State & state)
{
    Mask const source = Stripes();
    Mask target(Side, Side, true);
    for (auto _ : state) {
        std::memcpy(target.GetRawPointer(), source.GetRawPointer(), Bytes);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * Bytes);
}

template <Mask & (Mask::*Combine)(Mask const &)>
void BM_MaskCombine(benchmark::State & state)
{
    Mask const other = Stripes();
    Mask target(Side, Side, true);
    for (auto _ : state) {
        (target.*Combine)(other);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * Bytes);
}

} // namespace

BENCHMARK(BM_MaskMemcpy);
BENCHMARK(BM_MaskCombine<&Mask::operator&=>)->Name("BM_MaskAnd");
BENCHMARK(BM_MaskCombine<&Mask::operator|=>)->Name("BM_MaskOr");
BENCHMARK(BM_MaskCombine<&Mask::operator^=>)->Name("BM_MaskXor");

BENCHMARK_MAIN();
