#include "Commands.h"
#include "DemoRecording.h"
#include "ProgressBar.h"
#include "ToolSupport.h"

#include "framestore/Buffer.h"

#include <CLI/CLI.hpp>

#include <QFileInfo>

#include <chrono>
#include <cstdio>
#include <memory>
#include <regex>

namespace Dobj {

namespace {

struct DemoOptions
{
    std::string output = "demo.h5";
    unsigned int frames = 10;
    std::string size = "512x512";
};

void RunDemo(DemoOptions const & options)
{
    std::smatch parts;
    if (!std::regex_match(options.size, parts, std::regex(R"((\d{1,5})x(\d{1,5}))")))
        throw CLI::ValidationError("--size", "expected WIDTHxHEIGHT, for example 1024x1024");
    auto const width = unsigned(std::stoul(parts[1]));
    auto const height = unsigned(std::stoul(parts[2]));
    if (width < 16 || height < 16)
        throw CLI::ValidationError("--size", "frames must be at least 16x16");

    auto const start = std::chrono::steady_clock::now();
    DemoDescription description;
    std::unique_ptr<FrameStore::I_Buffer> buffer;
    {
        ProgressBar progress("rendering", options.frames);
        buffer = CreateDemoRecording(options.frames, width, height, description, &progress);
    }
    SaveBuffer(*buffer, options.output);
    double const seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

    std::printf("wrote %s (%s) in %.1f s\n", options.output.c_str(),
                DescribeBytes(std::uint64_t(QFileInfo(ToQString(options.output)).size())).c_str(), seconds);
    std::printf("  %u frames of %u x %u pixels, 2 exposures each, uint16 with a 12-bit range\n", options.frames, width,
                height);
    std::printf("  %u particles per exposure, moved by a Lamb-Oseen vortex on a drift (up to %.1f px)\n",
                description.particlesPerPlane, description.maxDisplacement);
    std::printf("  %.1f %% of every plane masked out by an obstacle\n", 100.0 * description.maskedFraction);
}

} // namespace

void AddDemoCommand(CLI::App & app)
{
    auto options = std::make_shared<DemoOptions>();
    CLI::App * demo = app.add_subcommand("demo", "Write a synthetic PIV recording: particle image pairs in a vortex.");
    demo->add_option("-o,--output", options->output, "Buffer file to write")->capture_default_str();
    demo->add_option("--frames", options->frames, "Number of frames")->check(CLI::Range(1u, 100000u))->capture_default_str();
    demo->add_option("--size", options->size, "Frame size as WIDTHxHEIGHT")->capture_default_str();
    demo->callback([options] { RunDemo(*options); });
}

} // namespace Dobj
