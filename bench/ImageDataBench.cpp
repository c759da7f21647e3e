// Plane conversion and arithmetic against a plain memcpy of the same bytes: both are bound by
// memory bandwidth, so the ratio of their throughputs is what counts, not the absolute figure.

#include "dataobjects/ImageData.h"

#include <benchmark/benchmark.h>

#include <cstring>

using namespace DataObjects;

namespace {

constexpr unsigned int Width = 2048;
constexpr unsigned int Height = 2048;
constexpr std::int64_t Pixels = std::int64_t(Width) * Height;

// Reference: copying the bytes that the operation reads and writes.
template <class Source, class Target>
void BM_Memcpy(benchmark::State & state)
{
    ImageData<Source> source(Width, Height, Source(1));
    ImageData<Target> target(Width, Height, Target(0));
    for (auto _ : state) {
        std::memcpy(target.GetRawPointer(), source.GetRawPointer(), Pixels * sizeof(Source));
        if (sizeof(Target) > sizeof(Source))
            std::memcpy(reinterpret_cast<char *>(target.GetRawPointer()) + Pixels * sizeof(Source),
                        source.GetRawPointer(), Pixels * (sizeof(Target) - sizeof(Source)));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * Pixels * std::int64_t(sizeof(Source) + sizeof(Target)) / 2);
    state.SetItemsProcessed(state.iterations() * Pixels);
}

template <class Source, class Target>
void BM_Assign(benchmark::State & state)
{
    ImageData<Source> source(Width, Height, Source(1000));
    ImageData<Target> target(Width, Height, Target(0));
    for (auto _ : state) {
        target.Assign(source);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * Pixels * std::int64_t(sizeof(Source) + sizeof(Target)) / 2);
    state.SetItemsProcessed(state.iterations() * Pixels);
}

template <class T>
void BM_MultiplyInPlace(benchmark::State & state)
{
    ImageData<T> plane(Width, Height, T(3));
    for (auto _ : state) {
        plane *= 1.0;
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * Pixels * std::int64_t(sizeof(T)));
    state.SetItemsProcessed(state.iterations() * Pixels);
}

template <class T>
void BM_MemcpyInPlace(benchmark::State & state)
{
    ImageData<T> source(Width, Height, T(3));
    ImageData<T> target(Width, Height, T(0));
    for (auto _ : state) {
        std::memcpy(target.GetRawPointer(), source.GetRawPointer(), Pixels * sizeof(T));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * Pixels * std::int64_t(sizeof(T)));
    state.SetItemsProcessed(state.iterations() * Pixels);
}

} // namespace

BENCHMARK_TEMPLATE(BM_Memcpy, std::uint16_t, float)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Assign, std::uint16_t, float)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Assign, float, std::uint16_t)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Assign, double, std::int32_t)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_MemcpyInPlace, std::uint16_t)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_TEMPLATE(BM_MultiplyInPlace, std::uint16_t)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_TEMPLATE(BM_MemcpyInPlace, float)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_TEMPLATE(BM_MultiplyInPlace, float)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
