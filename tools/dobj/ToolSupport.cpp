#include "ToolSupport.h"

#include "framestore/Buffer.h"
#include "framestore/BufferFile.h"
#include "framestore/Frame.h"
#include "framestore/Scale.h"

#include <QFileInfo>

#include <cmath>
#include <iomanip>
#include <sstream>

namespace Dobj {

std::unique_ptr<FrameStore::I_Buffer> LoadBuffer(std::string const & path)
{
    return std::unique_ptr<FrameStore::I_Buffer>(FrameStore::ImportBuffer(ToQString(path), nullptr));
}

void SaveBuffer(FrameStore::I_Buffer const & buffer, std::string const & path)
{
    FrameStore::ExportBuffer(&buffer, ToQString(path), nullptr);
}

FrameStore::I_FrameImage & ImageFrameAt(FrameStore::I_Buffer const & buffer, unsigned int index)
{
    if (index >= buffer.GetFrameCount())
        throw Failure("frame " + std::to_string(index) + " is out of range: the file has "
                      + std::to_string(buffer.GetFrameCount()) + " frames");
    FrameStore::I_Frame * frame = buffer.GetFrame(index);
    auto * image = dynamic_cast<FrameStore::I_FrameImage *>(frame);
    if (!image || frame->GetDataType() == FrameStore::DT_RGB)
        throw Failure("frame " + std::to_string(index) + " is a " + DescribeFrameKind(*frame)
                      + " frame, not a greyscale image");
    return *image;
}

std::string DescribeFrameKind(FrameStore::I_Frame const & frame)
{
    switch (FrameStore::GetFrameKind(frame)) {
    case FrameStore::FK_IMAGE:
        return "image";
    case FrameStore::FK_RGB:
        return "colour image";
    case FrameStore::FK_VECTOR2C:
    case FrameStore::FK_VECTOR3C: {
        auto const & vectors = dynamic_cast<FrameStore::I_FrameVector const &>(frame);
        bool const threeComponents = FrameStore::GetFrameKind(frame) == FrameStore::FK_VECTOR3C;
        return std::string("vector ") + (threeComponents ? "3C" : "2C") + ", "
               + std::to_string(vectors.GetChoiceCount()) + " choice" + (vectors.GetChoiceCount() == 1 ? "" : "s");
    }
    }
    return "unknown";
}

std::string DescribeScale(FrameStore::I_Scale const & scale)
{
    std::ostringstream text;
    text << std::setprecision(6);
    std::string const unit = scale.GetUnit();
    if (scale.GetKind() == FrameStore::SK_LINEAR) {
        double const factor = scale.GetFactor(0.0);
        double const offset = scale.GetOffset(0.0);
        if (factor == 1.0 && offset == 0.0 && unit.empty() && scale.GetDescription().empty())
            return "identity";
        text << factor << " * raw";
        if (offset != 0.0)
            text << (offset < 0.0 ? " - " : " + ") << std::abs(offset);
    } else {
        text << "polynomial";
        for (double c : scale.GetCoefficients())
            text << ' ' << c;
    }
    if (!unit.empty())
        text << ' ' << unit;
    if (!scale.GetDescription().empty())
        text << " (" << scale.GetDescription() << ')';
    // Units are Latin-1 (the micro sign); the terminal speaks UTF-8.
    return QString::fromLatin1(text.str().c_str()).toStdString();
}

char const * DescribeDataType(FrameStore::E_DataType type)
{
    switch (type) {
    case FrameStore::DT_BYTE:
        return "uint8";
    case FrameStore::DT_WORD:
        return "uint16";
    case FrameStore::DT_UINT:
        return "uint32";
    case FrameStore::DT_INT:
        return "int32";
    case FrameStore::DT_FLOAT:
        return "float";
    case FrameStore::DT_DOUBLE:
        return "double";
    case FrameStore::DT_RGB:
        return "rgb";
    default:
        return "unknown";
    }
}

std::string DescribeBytes(std::uint64_t bytes)
{
    char const * units[] = {"B", "KiB", "MiB", "GiB", "TiB"};
    double value = double(bytes);
    int unit = 0;
    while (value >= 1024.0 && unit < 4) {
        value /= 1024.0;
        ++unit;
    }
    std::ostringstream text;
    text << std::setprecision(unit == 0 ? 0 : 1) << std::fixed << value << ' ' << units[unit];
    return text.str();
}

bool IsTiffPath(std::string const & path)
{
    QString const suffix = QFileInfo(ToQString(path)).suffix().toLower();
    return suffix == "tif" || suffix == "tiff";
}

QString ToQString(std::string const & text)
{
    return QString::fromLocal8Bit(text.c_str(), int(text.size()));
}

} // namespace Dobj
