#include "TiffFile.h"

#include "ProgressBar.h"
#include "ToolSupport.h"
#include "basis/AlignedMemory.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/ScaleOnBuffer.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"
#include "framestore/Scale.h"

#include <tiffio.h>

#include <cstdarg>
#include <cstdio>
#include <limits>
#include <map>
#include <sstream>
#include <vector>

namespace Dobj {

namespace {

// libtiff reports through handlers that print; keep the last message for our one line instead.
thread_local std::string lastTiffError;

void RecordTiffError(char const * module, char const * format, va_list arguments)
{
    char text[512];
    std::vsnprintf(text, sizeof text, format, arguments);
    lastTiffError = module ? std::string(module) + ": " + text : text;
}

void IgnoreTiffWarning(char const *, char const *, va_list) {}

struct TiffCloser
{
    void operator()(TIFF * tiff) const { TIFFClose(tiff); }
};
using TiffPtr = std::unique_ptr<TIFF, TiffCloser>;

TiffPtr Open(std::string const & path, char const * mode)
{
    TIFFSetErrorHandler(RecordTiffError);
    TIFFSetWarningHandler(IgnoreTiffWarning);
    lastTiffError.clear();
    TiffPtr tiff(TIFFOpen(path.c_str(), mode));
    if (!tiff)
        throw Failure("cannot open TIFF file " + path + (lastTiffError.empty() ? "" : ": " + lastTiffError));
    return tiff;
}

[[noreturn]] void Fail(std::string const & path, std::string const & what)
{
    throw Failure(path + ": " + what + (lastTiffError.empty() ? "" : " (" + lastTiffError + ")"));
}

struct SampleLayout
{
    FrameStore::E_DataType type;
    std::uint16_t bits;
    std::uint16_t format;
};

SampleLayout const Layouts[] = {
    {FrameStore::DT_BYTE, 8, SAMPLEFORMAT_UINT},    {FrameStore::DT_WORD, 16, SAMPLEFORMAT_UINT},
    {FrameStore::DT_UINT, 32, SAMPLEFORMAT_UINT},   {FrameStore::DT_INT, 32, SAMPLEFORMAT_INT},
    {FrameStore::DT_FLOAT, 32, SAMPLEFORMAT_IEEEFP}, {FrameStore::DT_DOUBLE, 64, SAMPLEFORMAT_IEEEFP},
};

//! Millimetres per unit of a length unit, or 0 when the unit is none.
double MillimetresPer(std::string const & unit)
{
    static std::map<std::string, double> const lengths = {{"mm", 1.0}, {"cm", 10.0}, {"m", 1000.0},
                                                          {"\xB5m", 1e-3}, {"um", 1e-3}};
    auto const found = lengths.find(unit);
    return found == lengths.end() ? 0.0 : found->second;
}

//! Pixels per centimetre for a linear length scale, or 0 when it does not fit the tag.
double PixelsPerCentimetre(FrameStore::I_Scale const * scale)
{
    if (!scale || scale->GetKind() != FrameStore::SK_LINEAR)
        return 0.0;
    double const millimetres = std::abs(scale->GetFactor(0.0)) * MillimetresPer(scale->GetUnit());
    return millimetres > 0.0 ? 10.0 / millimetres : 0.0;
}

std::string PageDescription(unsigned int frame, unsigned int z, unsigned int depth)
{
    return "dobj frame " + std::to_string(frame) + " plane " + std::to_string(z) + " of " + std::to_string(depth);
}

//! Frame, plane and depth from a page description written by WriteTiff.
bool ParseDescription(char const * text, unsigned int & frame, unsigned int & z, unsigned int & depth)
{
    return text && std::sscanf(text, "dobj frame %u plane %u of %u", &frame, &z, &depth) == 3 && z < depth;
}

void WritePage(TIFF * tiff, std::string const & path, FrameStore::I_Frame const & frame, FrameStore::I_PlaneBase const & plane,
               std::string const & description)
{
    SampleLayout const * layout = nullptr;
    for (SampleLayout const & candidate : Layouts)
        if (candidate.type == plane.GetDataType())
            layout = &candidate;
    if (!layout)
        Fail(path, "pixel type " + std::string(FrameStore::GetDataTypeName(plane.GetDataType())) + " has no TIFF form");
    TIFFSetField(tiff, TIFFTAG_SUBFILETYPE, FILETYPE_PAGE);
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, plane.GetWidth());
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, plane.GetHeight());
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, layout->bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, layout->format);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, plane.GetHeight());
    TIFFSetField(tiff, TIFFTAG_IMAGEDESCRIPTION, description.c_str());
    TIFFSetField(tiff, TIFFTAG_SOFTWARE, "dobj");
    double const xResolution = PixelsPerCentimetre(frame.GetScaleX());
    double const yResolution = PixelsPerCentimetre(frame.GetScaleY());
    if (xResolution > 0.0 && yResolution > 0.0) {
        TIFFSetField(tiff, TIFFTAG_XRESOLUTION, float(xResolution));
        TIFFSetField(tiff, TIFFTAG_YRESOLUTION, float(yResolution));
        TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_CENTIMETER);
    }
    auto const bytes = tmsize_t(plane.GetByteCount());
    if (bytes > 0 && TIFFWriteEncodedStrip(tiff, 0, const_cast<void *>(plane.GetData()), bytes) != bytes)
        Fail(path, "cannot write a page");
    if (!TIFFWriteDirectory(tiff))
        Fail(path, "cannot write a page directory");
}

struct Page
{
    FrameStore::E_DataType type;
    unsigned int width;
    unsigned int height;
    void * pixels;
    double xMillimetres; // per pixel; 0 when the file does not say
    double yMillimetres;
};

template <class Tag>
Tag ReadTag(TIFF * tiff, ttag_t tag, Tag fallback)
{
    Tag value = fallback;
    return TIFFGetFieldDefaulted(tiff, tag, &value) ? value : fallback;
}

double MillimetresPerPixel(TIFF * tiff, ttag_t tag)
{
    float resolution = 0.0f;
    if (!TIFFGetField(tiff, tag, &resolution) || !(resolution > 0.0f))
        return 0.0;
    switch (ReadTag<std::uint16_t>(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_NONE)) {
    case RESUNIT_CENTIMETER:
        return 10.0 / resolution;
    case RESUNIT_INCH:
        return 25.4 / resolution;
    default:
        return 0.0;
    }
}

Page ReadPage(TIFF * tiff, std::string const & path, unsigned int index)
{
    std::string const where = "page " + std::to_string(index);
    auto const samples = ReadTag<std::uint16_t>(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
    if (samples != 1)
        Fail(path, where + " has " + std::to_string(samples) + " samples per pixel; only greyscale TIFF is supported");
    if (TIFFIsTiled(tiff))
        Fail(path, where + " is tiled; only striped TIFF is supported");
    auto const bits = ReadTag<std::uint16_t>(tiff, TIFFTAG_BITSPERSAMPLE, 1);
    auto const format = ReadTag<std::uint16_t>(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_UINT);
    SampleLayout const * layout = nullptr;
    for (SampleLayout const & candidate : Layouts)
        if (candidate.bits == bits && candidate.format == format)
            layout = &candidate;
    if (!layout)
        Fail(path, where + " has " + std::to_string(bits) + "-bit samples of format " + std::to_string(format)
                       + ", which no pixel type holds");
    Page page{layout->type, ReadTag<std::uint32_t>(tiff, TIFFTAG_IMAGEWIDTH, 0),
              ReadTag<std::uint32_t>(tiff, TIFFTAG_IMAGELENGTH, 0), nullptr,
              MillimetresPerPixel(tiff, TIFFTAG_XRESOLUTION), MillimetresPerPixel(tiff, TIFFTAG_YRESOLUTION)};
    std::uint64_t bytes = 0;
    // A damaged header can claim any size; refuse what no block can hold instead of wrapping.
    if (__builtin_mul_overflow(std::uint64_t(page.width) * page.height, std::uint64_t(bits / 8), &bytes)
        || bytes > std::uint64_t(std::numeric_limits<std::ptrdiff_t>::max()))
        Fail(path, where + " claims " + std::to_string(page.width) + " x " + std::to_string(page.height)
                       + " pixels, more than memory can hold");
    Basis::AlignedArray<unsigned char> pixels(static_cast<unsigned char *>(Basis::AllocateAligned(bytes)));
    std::uint64_t done = 0;
    for (tstrip_t strip = 0; strip < TIFFNumberOfStrips(tiff) && done < bytes; ++strip) {
        tmsize_t const read = TIFFReadEncodedStrip(tiff, strip, pixels.get() + done, tmsize_t(bytes - done));
        if (read < 0)
            Fail(path, where + " cannot be read");
        done += std::uint64_t(read);
    }
    if (done != bytes)
        Fail(path, where + " is truncated");
    page.pixels = pixels.release();
    return page;
}

void SetLengthScale(FrameStore::I_Frame & frame, double millimetres, bool x)
{
    if (millimetres <= 0.0)
        return;
    FrameStore::I_Scale * scale = DataObjects::CreateFrameScale(
        DataObjects::LinearScale(millimetres, 0.0, "mm", x ? "x position" : "y position"));
    x ? frame.SetScaleX(scale) : frame.SetScaleY(scale);
}

} // namespace

void WriteTiff(FrameStore::I_Buffer const & buffer, std::string const & path, ProgressBar * progress)
{
    std::uint64_t total = 0;
    for (unsigned int f = 0; f < buffer.GetFrameCount(); ++f) {
        FrameStore::I_FrameImage & frame = ImageFrameAt(buffer, f);
        for (unsigned int z = 0; z < frame.GetDepth(); ++z)
            total += frame.GetPlane(frame.GetComponentIndex(FrameStore::I_FrameImage::COMPONENT_PIXEL), z)->GetByteCount();
    }
    // Classic TIFF addresses 4 GiB; larger files are BigTIFF.
    TiffPtr tiff = Open(path, total > (std::uint64_t(3) << 30) ? "w8" : "w");
    for (unsigned int f = 0; f < buffer.GetFrameCount(); ++f) {
        FrameStore::I_FrameImage & frame = ImageFrameAt(buffer, f);
        int const pixels = frame.GetComponentIndex(FrameStore::I_FrameImage::COMPONENT_PIXEL);
        for (unsigned int z = 0; z < frame.GetDepth(); ++z)
            WritePage(tiff.get(), path, frame, *frame.GetPlane(pixels, z), PageDescription(f, z, frame.GetDepth()));
        if (progress)
            progress->Step();
    }
}

std::unique_ptr<FrameStore::I_Buffer> ReadTiff(std::string const & path, ProgressBar * progress)
{
    TiffPtr tiff = Open(path, "r");
    std::unique_ptr<FrameStore::I_Buffer> buffer(FrameStore::CreateBuffer());
    std::vector<Page> pending; // planes of a frame whose pages are still to come
    unsigned int pendingDepth = 0;
    auto const release = [&pending] {
        for (Page const & page : pending)
            Basis::FreeAligned(page.pixels);
        pending.clear();
    };
    auto const flush = [&] {
        std::vector<void *> planes;
        for (Page const & page : pending)
            planes.push_back(page.pixels);
        Page const & first = pending.front();
        FrameStore::I_FrameImage * frame
            = FrameStore::CreateImageFrameWithPlaneMemory(first.type, first.width, first.height, planes);
        if (!frame) {
            release();
            Fail(path, "cannot build a frame from its pages");
        }
        pending.clear();
        buffer->AppendFrame(frame);
        SetLengthScale(*frame, first.xMillimetres, true);
        SetLengthScale(*frame, first.yMillimetres, false);
        if (progress)
            progress->Step();
    };
    try {
        unsigned int index = 0;
        do {
            Page const page = ReadPage(tiff.get(), path, index);
            unsigned int frameIndex = 0, z = 0, depth = 1;
            char const * description = nullptr;
            bool const ours = TIFFGetField(tiff.get(), TIFFTAG_IMAGEDESCRIPTION, &description)
                              && ParseDescription(description, frameIndex, z, depth);
            if (!ours)
                z = 0, depth = 1;
            bool const continues = !pending.empty() && z == pending.size() && depth == pendingDepth
                                   && page.type == pending.front().type && page.width == pending.front().width
                                   && page.height == pending.front().height;
            if (!pending.empty() && !continues)
                flush(); // an incomplete frame keeps the planes it has
            pending.push_back(page);
            pendingDepth = depth;
            if (pending.size() == depth)
                flush();
            ++index;
        } while (TIFFReadDirectory(tiff.get()));
        if (!pending.empty())
            flush();
    } catch (...) {
        release();
        throw;
    }
    return buffer;
}

unsigned int CountTiffPages(std::string const & path)
{
    TiffPtr tiff = Open(path, "r");
    return TIFFNumberOfDirectories(tiff.get());
}

} // namespace Dobj
