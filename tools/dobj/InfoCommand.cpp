#include "Commands.h"
#include "ToolSupport.h"

#include "dataobjects/BufferAttributes.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"
#include "framestore/Scale.h"

#include <CLI/CLI.hpp>

#include <QFileInfo>

#include <cstdio>
#include <memory>
#include <string>

namespace Dobj {

namespace {

std::string Latin1ToLocal(std::string const & text)
{
    return QString::fromLatin1(text.c_str(), int(text.size())).toStdString();
}

//! "name = value, ..." of an attribute set, on one line.
std::string DescribeAttributes(DataObjects::C_Attributes const & attributes)
{
    std::string line;
    for (DataObjects::C_Attribute const & attribute : attributes.GetAttributes())
        line += (line.empty() ? "" : ", ") + attribute.GetName() + " = " + attribute.GetValue().ToString();
    return line.empty() ? "none" : Latin1ToLocal(line);
}

double MaskedPercent(FrameStore::I_Frame const & frame)
{
    FrameStore::I_Component const * mask = frame.GetComponent(FrameStore::I_Frame::COMPONENT_MASK);
    std::uint64_t masked = 0;
    std::uint64_t total = 0;
    for (unsigned int z = 0; z < frame.GetDepth(); ++z) {
        FrameStore::I_PlaneBase const * plane = mask->GetPlane(z);
        auto const * bytes = static_cast<unsigned char const *>(plane->GetData());
        for (std::uint64_t i = 0; i < plane->GetByteCount(); ++i)
            masked += bytes[i] == 0;
        total += plane->GetByteCount();
    }
    return total ? 100.0 * double(masked) / double(total) : 0.0;
}

//! Everything about a frame but its attributes, which differ from frame to frame.
std::string DescribeLayout(FrameStore::I_Frame & frame)
{
    std::string scalars;
    for (std::string const & name : frame.GetTypedScalarNames())
        scalars += (scalars.empty() ? "" : ", ") + name + " ("
                   + DescribeDataType(frame.GetComponent(name)->GetDataType()) + ")";
    char mask[64] = "no mask";
    if (frame.HasMask())
        std::snprintf(mask, sizeof mask, "%.1f %% masked out", MaskedPercent(frame));
    char head[256];
    std::snprintf(head, sizeof head, "%s, %u x %u x %u, %s, %s, %s\n", DescribeFrameKind(frame).c_str(),
                  frame.GetWidth(), frame.GetHeight(), frame.GetDepth(), DescribeDataType(frame.GetDataType()), mask,
                  scalars.empty() ? "no scalar fields" : ("scalar fields " + scalars).c_str());
    return head + ("  x  " + DescribeScale(*frame.GetScaleX())) + "\n  y  " + DescribeScale(*frame.GetScaleY())
           + "\n  z  " + DescribeScale(*frame.GetScaleZ()) + "\n  i  " + DescribeScale(*frame.GetScaleI()) + "\n";
}

void RunInfo(std::string const & path)
{
    std::unique_ptr<FrameStore::I_Buffer> buffer = LoadBuffer(path);
    unsigned int const count = buffer->GetFrameCount();
    std::printf("%s: %u frame%s, %s\n", path.c_str(), count, count == 1 ? "" : "s",
                DescribeBytes(std::uint64_t(QFileInfo(ToQString(path)).size())).c_str());
    std::printf("buffer attributes: %s\n", DescribeAttributes(DataObjects::C_BufferAttributes(*buffer)).c_str());
    // Runs of frames alike in everything but their attributes are described once.
    for (unsigned int first = 0; first < count;) {
        std::string const layout = DescribeLayout(*buffer->GetFrame(first));
        unsigned int last = first;
        while (last + 1 < count && DescribeLayout(*buffer->GetFrame(last + 1)) == layout)
            ++last;
        if (first == last)
            std::printf("frame %u: %s", first, layout.c_str());
        else
            std::printf("frames %u-%u: %s", first, last, layout.c_str());
        first = last + 1;
    }
    if (count > 0)
        std::printf("frame attributes:\n");
    for (unsigned int i = 0; i < count; ++i)
        std::printf("  %u  %s\n", i, DescribeAttributes(DataObjects::C_BufferAttributes(*buffer->GetFrame(i))).c_str());
}

} // namespace

void AddInfoCommand(CLI::App & app)
{
    auto path = std::make_shared<std::string>();
    CLI::App * info = app.add_subcommand("info", "Describe a buffer file: frames, sizes, types, scales, masks, attributes.");
    info->add_option("file", *path, "Buffer file")->required();
    info->callback([path] { RunInfo(*path); });
}

} // namespace Dobj
