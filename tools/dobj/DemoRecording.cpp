#include "DemoRecording.h"

#include "ProgressBar.h"
#include "dataobjects/GetTimeValueFromAttributes.h"
#include "dataobjects/ImageBuffer.h"
#include "dataobjects/ImageVolumeToFrame.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "framestore/Buffer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace Dobj {

namespace {

using namespace DataObjects;

constexpr double PixelSize = 0.02;       // mm per pixel
constexpr double FrameDtMicroseconds = 250.0;
constexpr double FrameRateHz = 15.0;
constexpr double MaxIntensity = 4095.0;  // 12-bit camera
constexpr double Background = 96.0;
constexpr double ReadNoise = 6.0;        // counts, standard deviation
constexpr double ParticleDensity = 0.02; // particles per pixel
constexpr double VortexPeak = 6.0;       // largest swirl displacement in pixels
constexpr double Drift = 1.5;            // uniform displacement in x, pixels

struct Point
{
    double x;
    double y;
};

//! Lamb-Oseen vortex around the centre on a uniform drift, as a displacement in pixels.
class Flow
{
public:
    Flow(unsigned int width, unsigned int height)
        : m_centre{0.5 * width, 0.5 * height}
        , m_core(std::min(width, height) / 6.0)
        // The swirl peaks at r = 1.1209 core radii with 0.6382 of circulation / (2 pi core).
        , m_circulation(VortexPeak * 2.0 * M_PI * m_core / 0.6382)
    {
    }

    Point operator()(Point p) const
    {
        double const dx = p.x - m_centre.x;
        double const dy = p.y - m_centre.y;
        double const r2 = dx * dx + dy * dy;
        if (r2 < 1e-12)
            return {Drift, 0.0};
        double const swirl = m_circulation / (2.0 * M_PI * r2) * (1.0 - std::exp(-r2 / (m_core * m_core)));
        return {Drift - swirl * dy, swirl * dx};
    }

    //! Where a particle at p is one frame interval later (midpoint rule).
    Point Advect(Point p) const
    {
        Point const half = (*this)(p);
        Point const mid{p.x + 0.5 * half.x, p.y + 0.5 * half.y};
        Point const d = (*this)(mid);
        return {p.x + d.x, p.y + d.y};
    }

    double PeakDisplacement() const { return std::hypot(VortexPeak, Drift); }

private:
    Point m_centre;
    double m_core;
    double m_circulation;
};

struct Particle
{
    Point position;
    double peak;  // counts at the centre
    double sigma; // pixels
};

//! Normal deviates drawn once, read by a cheap per-pixel hash: camera noise for hundreds of
//! megapixels in well under a second.
class NoiseTable
{
public:
    NoiseTable()
    {
        std::mt19937 random(20261122);
        std::normal_distribution<float> normal;
        for (float & value : m_values)
            value = normal(random);
    }
    float operator()(std::uint64_t & state) const
    {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return m_values[state & (m_values.size() - 1)];
    }

private:
    std::array<float, 1 << 16> m_values;
};

bool InObstacle(unsigned int x, unsigned int y, unsigned int width, unsigned int height)
{
    double const dx = x - 0.78 * width;
    double const dy = y - 0.72 * height;
    double const radius = 0.12 * std::min(width, height);
    return dx * dx + dy * dy <= radius * radius;
}

void Render(std::vector<Particle> const & particles, ImageData<std::uint16_t> & plane, Mask const & mask,
            NoiseTable const & noise, std::uint64_t seed)
{
    unsigned int const width = plane.GetWidth();
    unsigned int const height = plane.GetHeight();
    std::vector<float> light(std::size_t(width) * height, 0.0f);
    for (Particle const & particle : particles) {
        // Separable Gaussian spot over +-3 sigma.
        int const reach = int(std::ceil(3.0 * particle.sigma));
        int const cx = int(std::lround(particle.position.x));
        int const cy = int(std::lround(particle.position.y));
        std::array<double, 16> wx{};
        std::array<double, 16> wy{};
        for (int k = -reach; k <= reach; ++k) {
            double const ux = (cx + k - particle.position.x) / particle.sigma;
            double const uy = (cy + k - particle.position.y) / particle.sigma;
            wx[std::size_t(k + reach)] = std::exp(-0.5 * ux * ux);
            wy[std::size_t(k + reach)] = std::exp(-0.5 * uy * uy);
        }
        for (int j = -reach; j <= reach; ++j) {
            int const y = cy + j;
            if (y < 0 || y >= int(height))
                continue;
            for (int i = -reach; i <= reach; ++i) {
                int const x = cx + i;
                if (x >= 0 && x < int(width))
                    light[std::size_t(y) * width + std::size_t(x)]
                        += float(particle.peak * wx[std::size_t(i + reach)] * wy[std::size_t(j + reach)]);
            }
        }
    }
    std::uint64_t state = seed | 1;
    std::uint16_t * pixels = plane.GetRawPointer();
    for (unsigned int y = 0; y < height; ++y) {
        for (unsigned int x = 0; x < width; ++x) {
            std::size_t const i = std::size_t(y) * width + x;
            // The obstacle blocks the light sheet: background only.
            float const signal = mask.IsValid(x, y) ? light[i] : 0.0f;
            // Read noise plus shot noise at one count per photo-electron.
            float const sigma = std::sqrt(float(ReadNoise * ReadNoise) + signal);
            float const value = float(Background) + signal + sigma * noise(state);
            pixels[i] = std::uint16_t(std::clamp(std::lround(value), 0L, long(MaxIntensity)));
        }
    }
}

} // namespace

std::unique_ptr<FrameStore::I_Buffer> CreateDemoRecording(unsigned int frames, unsigned int width, unsigned int height,
                                                          DemoDescription & description, ProgressBar * progress)
{
    ImageBuffer<std::uint16_t> recording(width, height, 2, frames, true);
    recording.GetGlobalAttributes().Set("CameraMaxIntensity", C_AttributeValue(int(MaxIntensity)));
    recording.GetGlobalAttributes().Set("CameraName", C_AttributeValue(std::string("dobj demo camera")));

    Mask obstacle(width, height, true);
    std::uint64_t masked = 0;
    for (unsigned int y = 0; y < height; ++y)
        for (unsigned int x = 0; x < width; ++x)
            if (InObstacle(x, y, width, height)) {
                obstacle.SetValid(x, y, false);
                ++masked;
            }

    Flow const flow(width, height);
    NoiseTable const noise;
    auto const particleCount = unsigned(ParticleDensity * width * height);

#pragma omp parallel for schedule(dynamic)
    for (int f = 0; f < int(frames); ++f) {
        std::mt19937 random(1000u + unsigned(f));
        std::uniform_real_distribution<double> along(-4.0, 1.0);
        std::uniform_real_distribution<double> unit(0.0, 1.0);
        std::vector<Particle> first(particleCount);
        std::vector<Particle> second(particleCount);
        for (unsigned int p = 0; p < particleCount; ++p) {
            // Seed a little beyond the edges so particles also move in.
            Point const at{(unit(random) * 1.04 - 0.02) * width, (unit(random) * 1.04 - 0.02) * height};
            double const peak = 300.0 + 2500.0 * std::pow(unit(random), 2.0);
            double const sigma = 0.7 + 0.5 * unit(random);
            first[p] = {at, peak, sigma};
            // A particle leaving the light sheet between exposures dims.
            double const dimming = std::clamp(1.0 + 0.1 * along(random), 0.5, 1.0);
            second[p] = {flow.Advect(at), peak * dimming, sigma};
        }
        ImageVolume<std::uint16_t> & volume = recording.GetImageVolume(unsigned(f));
        for (unsigned int z = 0; z < 2; ++z) {
            volume.GetImage(z).SetMask(obstacle);
            Render(z == 0 ? first : second, volume.GetImage(z).GetImageData(), obstacle, noise,
                   0x9E3779B97F4A7C15ull * (2u * unsigned(f) + z + 1));
        }
        Math::Size2T<unsigned int> const size(width, height);
        double const left = -0.5 * size.width * PixelSize;
        double const top = 0.5 * size.height * PixelSize;
        volume.SetScaleX(LinearScale(PixelSize, left, "mm", "x position"));
        volume.SetScaleY(LinearScale(-PixelSize, top, "mm", "y position"));
        volume.SetScaleI(LinearScale(1.0, -Background, "counts", "intensity above background"));
        volume.SetScaleZ(LinearScale(FrameDtMicroseconds, 0.0, "\xB5s", "exposure time"));
        SetFrameDt(volume.GetAttributes(), FrameDtMicroseconds);
        double const acquired = 1e6 * f / FrameRateHz;
        volume.GetAttributes().Set("AcqTime", C_AttributeValue(std::to_string(std::lround(acquired)) + " \xB5s"));
        if (progress) {
#pragma omp critical(dobj_progress)
            progress->Step();
        }
    }

    description.maxDisplacement = flow.PeakDisplacement();
    description.maskedFraction = double(masked) / (double(width) * height);
    description.particlesPerPlane = particleCount;
    return CreateBufferFromImageBuffer(std::move(recording), true);
}

} // namespace Dobj
