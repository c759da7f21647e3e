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
#include <charconv>

namespace Dobj {

namespace {

struct DemoOptions
{
    std::string output = "demo.h5";
    unsigned int frames = 10;
    std::string size = "512x512";
};

//! "1024x768" into its two numbers; nothing may come before, between or after them.
bool ParseSize(std::string const & text, unsigned int & width, unsigned int & height)
{
    std::size_t const x = text.find('x');
    if (x == std::string::npos)
        return false;
    char const * const end = text.data() + text.size();
    auto const [widthEnd, widthError] = std::from_chars(text.data(), text.data() + x, width);
    auto const [heightEnd, heightError] = std::from_chars(text.data() + x + 1, end, height);
    return widthError == std::errc() && heightError == std::errc() && widthEnd == text.data() + x && heightEnd == end;
}

void RunDemo(DemoOptions const & options)
{
    unsigned int width = 0;
    unsigned int height = 0;
    if (!ParseSize(options.size, width, height))
        throw CLI::ValidationError("--size", "expected WIDTHxHEIGHT, for example 1024x1024");
    if (width < 16 || height < 16 || width > 65536 || height > 65536)
        throw CLI::ValidationError("--size", "frames must be from 16x16 to 65536x65536");

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
