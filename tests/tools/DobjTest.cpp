#include "Run.h"
#include "TiffFile.h"

#include "BasisTesting.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/PixelConversion.h"
#include "dataobjects/PixelTypes.h"
#include "dataobjects/ScaleOnBuffer.h"
#include "framestore/Buffer.h"
#include "framestore/BufferFile.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

using namespace FrameStore;

namespace {

struct Outcome
{
    int status;
    std::string out;
    std::string err;
};

Outcome RunDobj(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), "dobj");
    std::vector<char const *> argv;
    for (std::string const & argument : arguments)
        argv.push_back(argument.c_str());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    int const status = Dobj::Run(int(argv.size()), argv.data());
    std::string out = testing::internal::GetCapturedStdout();
    return {status, out, testing::internal::GetCapturedStderr()};
}

template <class T>
void FillPlane(I_PlaneBase & plane, unsigned int seed)
{
    auto * values = static_cast<T *>(plane.GetData());
    std::size_t const count = std::size_t(plane.GetWidth()) * plane.GetHeight();
    for (std::size_t i = 0; i < count; ++i)
        values[i] = DataObjects::ConvertPixel<T>(double(i * 7919 + seed * 104729) * 0.37 - 1000.0);
    if constexpr (std::is_floating_point_v<T>)
        values[count - 1] = std::numeric_limits<T>::quiet_NaN();
}

template <class... Ts>
std::unique_ptr<I_Buffer> OneFramePerType(std::tuple<Ts...>)
{
    std::unique_ptr<I_Buffer> buffer(CreateBuffer());
    unsigned int seed = 0;
    auto const add = [&](auto tag) {
        using T = decltype(tag);
        I_FrameImage * frame = buffer->CreateFrame(7 + seed, 5, 2, GetDataType<T>());
        frame->SetScaleX(DataObjects::CreateFrameScale(DataObjects::LinearScale(0.5, 0.0, "mm", "x")));
        frame->SetScaleY(DataObjects::CreateFrameScale(DataObjects::LinearScale(0.25, 0.0, "mm", "y")));
        for (unsigned int z = 0; z < 2; ++z)
            FillPlane<T>(*frame->GetPlane(frame->GetComponentIndex(I_FrameImage::COMPONENT_PIXEL), z), ++seed);
    };
    (add(Ts()), ...);
    return buffer;
}

I_PlaneBase const & Pixels(I_Frame const & frame, unsigned int z)
{
    return *frame.GetPlane(frame.GetComponentIndex(I_FrameImage::COMPONENT_PIXEL), z);
}

} // namespace

TEST(DobjTiff, EveryPixelTypeRoundTripsWithItsFramesAndLengthScales)
{
    QTemporaryDir directory;
    std::string const path = QDir(directory.path()).filePath("all.tif").toStdString();
    std::unique_ptr<I_Buffer> const original = OneFramePerType(DataObjects::PixelTypeList());
    Dobj::WriteTiff(*original, path);
    EXPECT_EQ(Dobj::CountTiffPages(path), 12u);

    std::unique_ptr<I_Buffer> const back = Dobj::ReadTiff(path);
    ASSERT_EQ(back->GetFrameCount(), original->GetFrameCount());
    for (unsigned int f = 0; f < back->GetFrameCount(); ++f) {
        I_Frame const & a = *original->GetFrame(f);
        I_Frame const & b = *back->GetFrame(f);
        ASSERT_EQ(b.GetDataType(), a.GetDataType()) << f;
        ASSERT_EQ(b.GetDepth(), 2u);
        ASSERT_EQ(b.GetWidth(), a.GetWidth());
        for (unsigned int z = 0; z < 2; ++z)
            EXPECT_EQ(std::memcmp(Pixels(a, z).GetData(), Pixels(b, z).GetData(), Pixels(a, z).GetByteCount()), 0)
                << "frame " << f << " plane " << z;
        EXPECT_NEAR(DataObjects::GetScaleFromFrame(b, DataObjects::ScaleX).GetFactor(), 0.5, 1e-6);
        EXPECT_NEAR(DataObjects::GetScaleFromFrame(b, DataObjects::ScaleY).GetFactor(), 0.25, 1e-6);
    }
}

TEST(DobjTiff, RefusesWhatATiffCannotHold)
{
    QTemporaryDir directory;
    std::string const path = QDir(directory.path()).filePath("x.tif").toStdString();
    std::unique_ptr<I_Buffer> vectors(CreateBuffer());
    vectors->AppendFrame(CreateVectorFrame2C(4, 4, 1, 1));
    EXPECT_THROW(Dobj::WriteTiff(*vectors, path), std::runtime_error);

    QFile text(QString::fromStdString(path));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("II*\0not really a tiff", 21);
    text.close();
    EXPECT_THROW(Dobj::ReadTiff(path), std::runtime_error);
}

TEST(Dobj, FailuresAreOneLineWithStatusOneAndBadUsageIsTwo)
{
    QTemporaryDir directory;
    QDir const dir(directory.path());
    std::string const vectorsPath = dir.filePath("vectors.h5").toStdString();
    std::unique_ptr<I_Buffer> vectors(CreateBuffer());
    vectors->AppendFrame(CreateVectorFrame2C(4, 4, 1, 1));
    ExportBuffer(vectors.get(), QString::fromStdString(vectorsPath), nullptr);

    Outcome const kind = RunDobj({"stats", vectorsPath});
    EXPECT_EQ(kind.status, 1);
    EXPECT_EQ(kind.err, "dobj: frame 0 is a vector 2C, 1 choice frame, not a greyscale image\n");
    EXPECT_EQ(kind.out, "");

    Outcome const missing = RunDobj({"info", dir.filePath("missing.h5").toStdString()});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err.rfind("dobj: ", 0), 0u);
    EXPECT_EQ(std::count(missing.err.begin(), missing.err.end(), '\n'), 1);

    std::string const demo = dir.filePath("demo.h5").toStdString();
    ASSERT_EQ(RunDobj({"demo", "-o", demo, "--frames", "2", "--size", "32x24"}).status, 0);
    Outcome const frame = RunDobj({"render", demo, "--frame", "2", "-o", dir.filePath("x.png").toStdString()});
    EXPECT_EQ(frame.status, 1);
    EXPECT_EQ(frame.err, "dobj: frame 2 is out of range: the file has 2 frames\n");
    Outcome const plane = RunDobj({"slice", demo, "--frame", "1", "--zy", "32", "-o", "x.h5"});
    EXPECT_EQ(plane.err, "dobj: column x 32 is out of range: the volume has 32\n");

    EXPECT_EQ(RunDobj({}).status, 2);
    EXPECT_EQ(RunDobj({"demo", "--size", "big"}).status, 2);
    EXPECT_EQ(RunDobj({"slice", demo, "--frame", "0", "--xy", "0", "--xz", "0", "-o", "x.h5"}).status, 2);
    EXPECT_EQ(RunDobj({"stats", demo, "--help"}).status, 0);
}
