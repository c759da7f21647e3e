#include "Commands.h"
#include "PixelDispatch.h"
#include "PngFile.h"
#include "ToolSupport.h"

#include "dataobjects/ImageFromBuffer.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace Dobj {

namespace {

struct RenderOptions
{
    std::string input;
    std::string output;
    unsigned int frame = 0;
    unsigned int z = 0;
    std::string window; // "LOW:HIGH" in scaled units, or empty for automatic
};

//! Scaled values of the image, NaN where masked out or not a number.
std::vector<double> ScaledValues(DataObjects::ImageVariant const & image)
{
    std::vector<double> values(std::size_t(image.GetWidth()) * image.GetHeight());
    ForEachScaledPixel(image, [&values](std::uint64_t i, double value, bool valid) {
        values[i] = valid ? value : std::nan("");
    });
    return values;
}

//! The 0.5 and 99.5 percentiles of the valid values: a window that particles do not saturate
//! and single hot pixels do not stretch.
std::pair<double, double> AutomaticWindow(std::vector<double> const & values)
{
    std::vector<double> valid;
    std::copy_if(values.begin(), values.end(), std::back_inserter(valid), [](double v) { return !std::isnan(v); });
    if (valid.empty())
        return {0.0, 1.0};
    auto const at = [&valid](double fraction) {
        auto const nth = valid.begin() + std::ptrdiff_t(fraction * double(valid.size() - 1));
        std::nth_element(valid.begin(), nth, valid.end());
        return *nth;
    };
    double const low = at(0.005);
    double const high = at(0.995);
    return {low, high > low ? high : low + 1.0};
}

//! A whole text as a finite number.
bool ParseNumber(std::string const & text, double & value)
{
    char * end = nullptr;
    value = std::strtod(text.c_str(), &end);
    return !text.empty() && end == text.c_str() + text.size() && std::isfinite(value);
}

std::pair<double, double> ParseWindow(std::string const & text)
{
    std::size_t const colon = text.find(':');
    double low = 0.0;
    double high = 0.0;
    if (colon == std::string::npos || !ParseNumber(text.substr(0, colon), low)
        || !ParseNumber(text.substr(colon + 1), high) || !(high > low))
        throw CLI::ValidationError("--window", "expected LOW:HIGH with LOW below HIGH, for example 0:1000");
    return {low, high};
}

void RunRender(RenderOptions const & options)
{
    std::pair<double, double> const given = options.window.empty() ? std::pair(0.0, 0.0) : ParseWindow(options.window);
    std::unique_ptr<FrameStore::I_Buffer> buffer = LoadBuffer(options.input);
    FrameStore::I_FrameImage const & frame = ImageFrameAt(*buffer, options.frame);
    if (options.z >= frame.GetDepth())
        throw Failure("plane z " + std::to_string(options.z) + " is out of range: frame " + std::to_string(options.frame)
                      + " has " + std::to_string(frame.GetDepth()));
    std::unique_ptr<DataObjects::ImageVariant const> image = DataObjects::GetImage(frame, options.z);
    std::vector<double> const values = ScaledValues(*image);
    auto const [low, high] = options.window.empty() ? AutomaticWindow(values) : given;
    std::vector<std::uint8_t> grey(values.size());
    std::transform(values.begin(), values.end(), grey.begin(), [low = low, high = high](double v) {
        // Masked-out pixels are black.
        return std::isnan(v) ? std::uint8_t(0) : std::uint8_t(std::lround(std::clamp((v - low) / (high - low), 0.0, 1.0) * 255.0));
    });
    WriteGreyPng(options.output, image->GetWidth(), image->GetHeight(), grey);
    std::printf("wrote %s: %u x %u, window %g to %g\n", options.output.c_str(), image->GetWidth(), image->GetHeight(),
                low, high);
}

} // namespace

void AddRenderCommand(CLI::App & app)
{
    auto options = std::make_shared<RenderOptions>();
    CLI::App * render = app.add_subcommand("render", "Draw one plane as a greyscale PNG.");
    render->add_option("file", options->input, "Buffer file")->required();
    render->add_option("--frame", options->frame, "Frame")->capture_default_str();
    render->add_option("--z", options->z, "Plane of the frame")->capture_default_str();
    render->add_option("--window", options->window,
                       "Intensity window LOW:HIGH in scaled units; automatic (0.5 to 99.5 percentile) when absent");
    render->add_option("-o,--output", options->output, "PNG file to write")->required();
    render->callback([options] { RunRender(*options); });
}

} // namespace Dobj
