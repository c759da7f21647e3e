// Whole-volume and whole-buffer assignment between pixel types against converting the same
// planes one by one, and against memcpy of the same bytes, in one run.

#include "dataobjects/ImageBuffer.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

using namespace DataObjects;

namespace {

constexpr unsigned int Side = 2048;
constexpr unsigned int Depth = 16;
constexpr std::int64_t Voxels = std::int64_t(Side) * Side * Depth;
constexpr std::int64_t BytesPerVoxel = (sizeof(std::uint16_t) + sizeof(float)) / 2;

void Count(benchmark::State & state)
{
    state.SetBytesProcessed(state.iterations() * Voxels * BytesPerVoxel);
    state.SetItemsProcessed(state.iterations() * Voxels);
}

void BM_VolumeMemcpy(benchmark::State & state)
{
    std::vector<std::uint16_t> source(Voxels, 1000);
    std::vector<float> target(Voxels);
    for (auto _ : state) {
        // The bytes read and written by the conversion: 2 read, 4 written per voxel.
        std::memcpy(target.data(), source.data(), Voxels * sizeof(std::uint16_t));
        std::memcpy(reinterpret_cast<char *>(target.data()) + Voxels * sizeof(std::uint16_t), source.data(),
                    Voxels * sizeof(std::uint16_t));
        benchmark::ClobberMemory();
    }
    Count(state);
}

void BM_PlaneByPlane(benchmark::State & state)
{
    std::vector<ImageData<std::uint16_t>> source;
    std::vector<ImageData<float>> target;
    for (unsigned int z = 0; z < Depth; ++z) {
        source.emplace_back(Side, Side, std::uint16_t(1000));
        target.emplace_back(Side, Side, 0.0f);
    }
    for (auto _ : state) {
        for (unsigned int z = 0; z < Depth; ++z)
            target[z].Assign(source[z]);
        benchmark::ClobberMemory();
    }
    Count(state);
}

void BM_VolumeAssign(benchmark::State & state)
{
    // Masks made on first use, as volumes read from frames without masks have them.
    ImageBuffer<std::uint16_t> source(Math::Size3T<unsigned int>(Side, Side, Depth), 1, std::uint16_t(1000), true);
    ImageVolume<float> target(Math::Size3T<unsigned int>(Side, Side, Depth), 0.0f, true);
    for (auto _ : state) {
        target.Assign(source.GetImageVolume(0));
        benchmark::ClobberMemory();
    }
    Count(state);
}

void BM_BufferAssign(benchmark::State & state)
{
    Math::Size3T<unsigned int> const size(Side, Side, Depth / 4);
    ImageBuffer<std::uint16_t> source(size, 4, std::uint16_t(1000), true);
    ImageBuffer<float> target(size, 4, 0.0f, true);
    for (auto _ : state) {
        target.Assign(source);
        benchmark::ClobberMemory();
    }
    Count(state);
}

} // namespace

BENCHMARK(BM_VolumeMemcpy)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PlaneByPlane)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_VolumeAssign)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_BufferAssign)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
