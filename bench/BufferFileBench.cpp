// Export and import of a buffer of 100 frames of 1024 x 1024 uint16 against writing and reading
// the same bytes with plain fwrite and fread, in one run. Files go to the system's temporary
// folder (or BENCH_DIR), so both sides see the same file system and page cache. The fread side
// reads into newly allocated memory, as any loader that creates a buffer must.

#include "basis/AlignedMemory.h"
#include "framestore/FrameStore.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

using namespace FrameStore;

namespace {

constexpr unsigned int Width = 1024;
constexpr unsigned int Height = 1024;
constexpr unsigned int Frames = 100;
constexpr std::size_t PlaneBytes = std::size_t(Width) * Height * sizeof(std::uint16_t);
constexpr std::int64_t TotalBytes = std::int64_t(PlaneBytes) * Frames;

std::string Path(char const * name)
{
    char const * folder = std::getenv("BENCH_DIR");
    return (folder ? std::filesystem::path(folder) : std::filesystem::temp_directory_path()) / name;
}

I_Buffer const & SampleBuffer()
{
    static std::unique_ptr<I_Buffer> const buffer = [] {
        std::unique_ptr<I_Buffer> b(CreateBuffer());
        for (unsigned int f = 0; f < Frames; ++f) {
            auto * pixels = static_cast<std::uint16_t *>(b->CreateFrame(Width, Height, 1, DT_WORD)->GetPlane(0, 0)->GetData());
            // Camera-like content: a smooth background with noise, so that compression has work.
            for (std::size_t i = 0; i < std::size_t(Width) * Height; ++i)
                pixels[i] = std::uint16_t(100 + (i % Width) / 8 + ((i * 2654435761u + f) >> 27));
        }
        return b;
    }();
    return *buffer;
}

Basis::Parameter::C_Tree::Ptr Options(int deflate)
{
    auto options = Basis::Parameter::C_Tree::Create();
    options->Set(QStringLiteral("Compression.Deflate"), deflate);
    return options;
}

void BM_Fwrite(benchmark::State & state)
{
    I_Buffer const & buffer = SampleBuffer();
    std::string const path = Path("bench-plain.raw");
    for (auto _ : state) {
        FILE * file = std::fopen(path.c_str(), "wb");
        for (unsigned int f = 0; f < Frames; ++f)
            std::fwrite(buffer.GetFrame(f)->GetPlane(0, 0)->GetData(), 1, PlaneBytes, file);
        std::fclose(file);
    }
    state.SetBytesProcessed(state.iterations() * TotalBytes);
}

void BM_Fread(benchmark::State & state)
{
    std::string const path = Path("bench-plain.raw");
    for (auto _ : state) {
        FILE * file = std::fopen(path.c_str(), "rb");
        std::vector<Basis::AlignedArray<unsigned char>> planes;
        for (unsigned int f = 0; f < Frames; ++f) {
            planes.push_back(Basis::MakeAlignedArray<unsigned char>(PlaneBytes));
            if (std::fread(planes.back().get(), 1, PlaneBytes, file) != PlaneBytes)
                state.SkipWithError("short read");
        }
        std::fclose(file);
        benchmark::DoNotOptimize(planes.data());
    }
    state.SetBytesProcessed(state.iterations() * TotalBytes);
}

void BM_ExportBuffer(benchmark::State & state)
{
    I_Buffer const & buffer = SampleBuffer();
    std::string const path = Path(state.range(0) ? "bench-deflate.h5" : "bench-plain.h5");
    auto const options = Options(int(state.range(0)));
    for (auto _ : state)
        ExportBuffer(&buffer, QString::fromStdString(path), options);
    state.SetBytesProcessed(state.iterations() * TotalBytes);
    state.counters["file_MB"] = double(std::filesystem::file_size(path)) / 1e6;
}

void BM_ImportBuffer(benchmark::State & state)
{
    std::string const path = Path(state.range(0) ? "bench-deflate.h5" : "bench-plain.h5");
    for (auto _ : state) {
        std::unique_ptr<I_Buffer> buffer(ImportBuffer(QString::fromStdString(path), nullptr));
        benchmark::DoNotOptimize(buffer.get());
    }
    state.SetBytesProcessed(state.iterations() * TotalBytes);
}

} // namespace

// Writers first: the readers read what they wrote.
BENCHMARK(BM_Fwrite)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2);
BENCHMARK(BM_ExportBuffer)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2);
BENCHMARK(BM_Fread)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2);
BENCHMARK(BM_ImportBuffer)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2);

BENCHMARK_MAIN();
