// TIFF writing and reading of dobj convert against plain fwrite and fread of the same pixel
// bytes, to and from files in the same folder, in one run.

#include "TiffFile.h"

#include "basis/AlignedMemory.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QTemporaryDir>

#include <cstdio>
#include <vector>

namespace {

constexpr unsigned int Side = 2048;
constexpr unsigned int Frames = 16;
constexpr std::int64_t Bytes = std::int64_t(Side) * Side * Frames * 2;

std::unique_ptr<FrameStore::I_Buffer> Recording()
{
    std::unique_ptr<FrameStore::I_Buffer> buffer(FrameStore::CreateBuffer());
    for (unsigned int f = 0; f < Frames; ++f) {
        FrameStore::I_FrameImage * frame = buffer->CreateFrame(Side, Side, 1, FrameStore::DT_WORD);
        auto * pixels = static_cast<std::uint16_t *>(frame->GetPlane(0, 0)->GetData());
        for (std::size_t i = 0; i < std::size_t(Side) * Side; ++i)
            pixels[i] = std::uint16_t(i * 31 + f);
    }
    return buffer;
}

struct Files
{
    QTemporaryDir directory;
    std::string Path(char const * name) const { return QDir(directory.path()).filePath(name).toStdString(); }
};

void BM_Fwrite(benchmark::State & state)
{
    Files files;
    std::unique_ptr<FrameStore::I_Buffer> buffer = Recording();
    for (auto _ : state) {
        std::FILE * file = std::fopen(files.Path("plain.raw").c_str(), "wb");
        for (unsigned int f = 0; f < Frames; ++f) {
            FrameStore::I_PlaneBase const * plane = buffer->GetFrame(f)->GetPlane(0, 0);
            std::fwrite(plane->GetData(), 1, plane->GetByteCount(), file);
        }
        std::fclose(file);
    }
    state.SetBytesProcessed(state.iterations() * Bytes);
}

void BM_WriteTiff(benchmark::State & state)
{
    Files files;
    std::unique_ptr<FrameStore::I_Buffer> buffer = Recording();
    for (auto _ : state)
        Dobj::WriteTiff(*buffer, files.Path("pages.tif"));
    state.SetBytesProcessed(state.iterations() * Bytes);
}

void BM_Fread(benchmark::State & state)
{
    Files files;
    std::unique_ptr<FrameStore::I_Buffer> buffer = Recording();
    std::FILE * out = std::fopen(files.Path("plain.raw").c_str(), "wb");
    for (unsigned int f = 0; f < Frames; ++f)
        std::fwrite(buffer->GetFrame(f)->GetPlane(0, 0)->GetData(), 1, std::size_t(Side) * Side * 2, out);
    std::fclose(out);
    for (auto _ : state) {
        // Into new planes, as reading a file must.
        std::FILE * file = std::fopen(files.Path("plain.raw").c_str(), "rb");
        std::vector<void *> planes;
        for (unsigned int f = 0; f < Frames; ++f) {
            planes.push_back(Basis::AllocateAligned(std::size_t(Side) * Side * 2));
            benchmark::DoNotOptimize(std::fread(planes.back(), 1, std::size_t(Side) * Side * 2, file));
        }
        std::fclose(file);
        for (void * plane : planes)
            Basis::FreeAligned(plane);
    }
    state.SetBytesProcessed(state.iterations() * Bytes);
}

void BM_ReadTiff(benchmark::State & state)
{
    Files files;
    Dobj::WriteTiff(*Recording(), files.Path("pages.tif"));
    for (auto _ : state)
        benchmark::DoNotOptimize(Dobj::ReadTiff(files.Path("pages.tif")));
    state.SetBytesProcessed(state.iterations() * Bytes);
}

} // namespace

BENCHMARK(BM_Fwrite)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_WriteTiff)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Fread)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ReadTiff)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
