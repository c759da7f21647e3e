#include "Commands.h"
#include "ProgressBar.h"
#include "TiffFile.h"
#include "ToolSupport.h"

#include "framestore/Buffer.h"

#include <CLI/CLI.hpp>

#include <cstdio>

namespace Dobj {

namespace {

void RunConvert(std::string const & input, std::string const & output)
{
    std::unique_ptr<FrameStore::I_Buffer> buffer;
    if (IsTiffPath(input)) {
        ProgressBar progress("reading", CountTiffPages(input));
        buffer = ReadTiff(input, &progress);
    } else {
        buffer = LoadBuffer(input);
    }
    if (IsTiffPath(output)) {
        ProgressBar progress("writing", buffer->GetFrameCount());
        WriteTiff(*buffer, output, &progress);
    } else {
        SaveBuffer(*buffer, output);
    }
    std::printf("wrote %s: %u frame%s\n", output.c_str(), buffer->GetFrameCount(),
                buffer->GetFrameCount() == 1 ? "" : "s");
}

} // namespace

void AddConvertCommand(CLI::App & app)
{
    auto input = std::make_shared<std::string>();
    auto output = std::make_shared<std::string>();
    CLI::App * convert = app.add_subcommand(
        "convert", "Convert between buffer files and multi-page greyscale TIFF (.tif, .tiff), keeping pixel types.");
    convert->add_option("input", *input, "File to read")->required();
    convert->add_option("output", *output, "File to write")->required();
    convert->callback([input, output] { RunConvert(*input, *output); });
}

} // namespace Dobj
