#include "Commands.h"
#include "PixelDispatch.h"
#include "ProgressBar.h"
#include "ToolSupport.h"

#include "dataobjects/ImageFromBuffer.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"

#include <CLI/CLI.hpp>

#include <QString>

#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>
#include <vector>

namespace Dobj {

namespace {

struct Statistics
{
    std::uint64_t count = 0;
    std::uint64_t total = 0;
    double minimum = std::numeric_limits<double>::infinity();
    double maximum = -std::numeric_limits<double>::infinity();
    double mean = 0.0;
    double squares = 0.0; // sum of squared deviations (Welford)
};

//! Over the valid pixels, in the image's intensity scale; NaN pixels are left out.
Statistics Measure(DataObjects::ImageVariant const & image)
{
    Statistics s;
    s.total = std::uint64_t(image.GetWidth()) * image.GetHeight();
    ForEachScaledPixel(image, [&s](std::uint64_t, double value, bool valid) {
        if (!valid || std::isnan(value))
            return;
        ++s.count;
        s.minimum = std::min(s.minimum, value);
        s.maximum = std::max(s.maximum, value);
        double const delta = value - s.mean;
        s.mean += delta / double(s.count);
        s.squares += delta * (value - s.mean);
    });
    return s;
}

void RunStats(std::string const & path, std::optional<unsigned int> const & only)
{
    std::unique_ptr<FrameStore::I_Buffer> buffer = LoadBuffer(path);
    unsigned int const first = only.value_or(0);
    unsigned int const last = only ? *only + 1 : buffer->GetFrameCount();
    for (unsigned int f = first; f < last; ++f)
        ImageFrameAt(*buffer, f); // every refusal before any output
    std::vector<std::string> lines;
    {
        ProgressBar progress("measuring", last - first);
        FrameStore::I_Buffer const & constant = *buffer;
        for (unsigned int f = first; f < last; ++f) {
            for (unsigned int z = 0; z < constant.GetFrame(f)->GetDepth(); ++z) {
                std::unique_ptr<DataObjects::ImageVariant const> image = DataObjects::GetImage(constant, f, z);
                Statistics const s = Measure(*image);
                std::string const unit = QString::fromLatin1(image->GetScaleI().GetUnit().c_str()).toStdString();
                char line[256];
                if (s.count == 0)
                    std::snprintf(line, sizeof line, "%5u %3u %7.1f %%  no valid pixels", f, z, 0.0);
                else
                    std::snprintf(line, sizeof line, "%5u %3u %7.1f %%  %12.6g %12.6g %12.6g %12.6g  %s", f, z,
                                  100.0 * double(s.count) / double(s.total), s.minimum, s.maximum, s.mean,
                                  std::sqrt(s.count > 1 ? s.squares / double(s.count - 1) : 0.0), unit.c_str());
                lines.push_back(line);
            }
            progress.Step();
        }
    }
    std::printf("frame   z     valid           min          max         mean          std  unit\n");
    for (std::string const & line : lines)
        std::printf("%s\n", line.c_str());
}

} // namespace

void AddStatsCommand(CLI::App & app)
{
    auto path = std::make_shared<std::string>();
    auto frame = std::make_shared<std::optional<unsigned int>>();
    CLI::App * stats = app.add_subcommand(
        "stats", "Minimum, maximum, mean and standard deviation of each plane over its valid pixels, scaled.");
    stats->add_option("file", *path, "Buffer file")->required();
    stats->add_option("--frame", *frame, "Only this frame");
    stats->callback([path, frame] { RunStats(*path, *frame); });
}

} // namespace Dobj
