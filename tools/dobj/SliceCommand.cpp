#include "Commands.h"
#include "ToolSupport.h"

#include "dataobjects/ImageExtraction.h"
#include "dataobjects/ImageToBuffer.h"
#include "dataobjects/ImageVolumeFromFrame.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <optional>

namespace Dobj {

namespace {

struct SliceOptions
{
    std::string input;
    std::string output;
    unsigned int frame = 0;
    std::optional<unsigned int> xy;
    std::optional<unsigned int> xz;
    std::optional<unsigned int> zy;
};

void Check(unsigned int index, unsigned int size, char const * what)
{
    if (index >= size)
        throw Failure(std::string(what) + " " + std::to_string(index) + " is out of range: the volume has "
                      + std::to_string(size));
}

void RunSlice(SliceOptions const & options)
{
    std::unique_ptr<FrameStore::I_Buffer> buffer = LoadBuffer(options.input);
    FrameStore::I_FrameImage const & frame = ImageFrameAt(*buffer, options.frame);
    std::unique_ptr<DataObjects::ImageVolumeVariant const> volume = DataObjects::GetImageVolume(frame);
    std::unique_ptr<DataObjects::ImageVariant> slice;
    if (options.xy) {
        Check(*options.xy, volume->GetDepth(), "plane z");
        slice = DataObjects::ExtractXYImage(*volume, *options.xy);
    } else if (options.xz) {
        Check(*options.xz, volume->GetHeight(), "row y");
        slice = DataObjects::ExtractXZImage(*volume, *options.xz);
    } else {
        Check(*options.zy, volume->GetWidth(), "column x");
        slice = DataObjects::ExtractZYImage(*volume, *options.zy);
    }
    unsigned int const width = slice->GetWidth();
    unsigned int const height = slice->GetHeight();
    SaveBuffer(*DataObjects::CreateBufferFromImage(std::move(*slice), true), options.output);
    std::printf("wrote %s: %u x %u\n", options.output.c_str(), width, height);
}

} // namespace

void AddSliceCommand(CLI::App & app)
{
    auto options = std::make_shared<SliceOptions>();
    CLI::App * slice = app.add_subcommand("slice", "Cut a plane out of a frame's volume into a new buffer file.");
    slice->add_option("file", options->input, "Buffer file")->required();
    slice->add_option("--frame", options->frame, "Frame to cut")->required();
    auto * xy = slice->add_option("--xy", options->xy, "The xy plane at this z");
    auto * xz = slice->add_option("--xz", options->xz, "The xz plane at this y");
    auto * zy = slice->add_option("--zy", options->zy, "The zy plane at this x (z runs along the result's x)");
    xy->excludes(xz)->excludes(zy);
    xz->excludes(zy);
    slice->add_option("-o,--output", options->output, "Buffer file to write")->required();
    slice->callback([options] {
        if (!options->xy && !options->xz && !options->zy)
            throw CLI::RequiredError("one of --xy, --xz or --zy");
        RunSlice(*options);
    });
}

} // namespace Dobj
