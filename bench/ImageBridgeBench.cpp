// Reading images from frames must not depend on the frame's size (no pixel is copied), and
// converting a buffer to float must run near memory speed. Each figure is read against its
// reference in the same run.

#include "basis/AlignedMemory.h"
#include "dataobjects/ConvertToFloat.h"
#include "dataobjects/ImageFromBuffer.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

#include <benchmark/benchmark.h>

#include <cstring>

using namespace DataObjects;

namespace {

void BM_GetImageByReference(benchmark::State & state)
{
    auto const side = unsigned(state.range(0));
    std::unique_ptr<FrameStore::I_FrameImage> frame(FrameStore::CreateImageFrame(FrameStore::DT_WORD, side, side, 1));
    for (auto _ : state)
        benchmark::DoNotOptimize(GetImage(*frame, 0, false));
}

void BM_GetImageByMove(benchmark::State & state)
{
    auto const side = unsigned(state.range(0));
    void * block = Basis::AllocateAligned(std::size_t(side) * side * sizeof(std::uint16_t));
    for (auto _ : state) {
        state.PauseTiming();
        // Hand the same block to a new frame each round: building the frame costs the same for
        // every size, and no round pays for zeroing a new plane.
        std::unique_ptr<FrameStore::I_FrameImage> frame(
            FrameStore::CreateImageFrameWithPlaneMemory(FrameStore::DT_WORD, side, side, block));
        state.ResumeTiming();
        std::unique_ptr<ImageVariant> image = GetImage(std::move(*frame), 0, false);
        state.PauseTiming();
        block = dynamic_cast<Image<std::uint16_t> &>(*image).GetImageData().ReleaseRawPointer();
        state.ResumeTiming();
    }
    Basis::FreeAligned(block);
}

constexpr unsigned int Side = 2048;
constexpr unsigned int Frames = 16;
constexpr std::int64_t Pixels = std::int64_t(Side) * Side * Frames;

std::unique_ptr<FrameStore::I_Buffer> WordBuffer()
{
    std::unique_ptr<FrameStore::I_Buffer> buffer(FrameStore::CreateBuffer());
    for (unsigned int i = 0; i < Frames; ++i) {
        FrameStore::I_FrameImage * frame = buffer->CreateFrame(Side, Side, 1, FrameStore::DT_WORD);
        auto * pixels = static_cast<std::uint16_t *>(frame->GetPlane(0, 0)->GetData());
        for (std::size_t p = 0; p < std::size_t(Side) * Side; ++p)
            pixels[p] = std::uint16_t(p);
    }
    return buffer;
}

// Bytes counted for all three: the uint16 pixels read.
void CountSource(benchmark::State & state)
{
    state.SetBytesProcessed(state.iterations() * Pixels * std::int64_t(sizeof(std::uint16_t)));
}

constexpr std::size_t SourceBytes = std::size_t(Side) * Side * sizeof(std::uint16_t);

// The bytes the conversion moves: each frame's pixels read and a float plane's worth written,
// as two copies of the source.
void CopyFrame(FrameStore::I_Buffer const & buffer, unsigned int i, void * target)
{
    void const * source = buffer.GetFrame(i)->GetPlane(0, 0)->GetData();
    std::memcpy(target, source, SourceBytes);
    std::memcpy(static_cast<char *>(target) + SourceBytes, source, SourceBytes);
}

// Into memory that is already in use.
void BM_MemcpyWarm(benchmark::State & state)
{
    std::unique_ptr<FrameStore::I_Buffer> buffer = WordBuffer();
    std::vector<float> target(Pixels);
    for (auto _ : state) {
        for (unsigned int i = 0; i < Frames; ++i)
            CopyFrame(*buffer, i, target.data() + std::size_t(i) * Side * Side);
        benchmark::ClobberMemory();
    }
    CountSource(state);
}

// Into newly allocated memory, as any conversion must write its result.
void BM_MemcpyFresh(benchmark::State & state)
{
    std::unique_ptr<FrameStore::I_Buffer> buffer = WordBuffer();
    for (auto _ : state) {
        std::vector<void *> blocks;
        for (unsigned int i = 0; i < Frames; ++i) {
            blocks.push_back(Basis::AllocateAligned(2 * SourceBytes));
            CopyFrame(*buffer, i, blocks.back());
        }
        benchmark::ClobberMemory();
        for (void * block : blocks)
            Basis::FreeAligned(block);
    }
    CountSource(state);
}

void BM_ConvertToFloat(benchmark::State & state)
{
    std::unique_ptr<FrameStore::I_Buffer> buffer = WordBuffer();
    for (auto _ : state)
        benchmark::DoNotOptimize(ConvertToFloat(*buffer));
    CountSource(state);
}

} // namespace

BENCHMARK(BM_GetImageByReference)->Arg(64)->Arg(8192);
BENCHMARK(BM_GetImageByMove)->Arg(64)->Arg(8192);
BENCHMARK(BM_MemcpyWarm)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_MemcpyFresh)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ConvertToFloat)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
