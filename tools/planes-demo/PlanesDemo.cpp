// Creates pixel planes, converts them between pixel types and prints what it did: a short,
// runnable tour of the plane layer.

#include "dataobjects/DataObjects.h"

#include <algorithm>
#include <cstdio>
#include <numeric>

using namespace DataObjects;

namespace {

template <class T>
void Print(char const * what, ImageData<T> const & plane)
{
    auto const [lowest, highest] = std::minmax_element(plane.begin(), plane.end());
    // Each term divided first, so that planes holding the largest double still have a mean.
    double const count = double(plane.end() - plane.begin());
    double const mean = std::accumulate(plane.begin(), plane.end(), 0.0,
                                        [count](double sum, T v) { return sum + double(v) / count; });
    std::printf("%-44s %ux%u  min %-12g max %-12g mean %g\n", what, plane.GetWidth(), plane.GetHeight(),
                double(*lowest), double(*highest), mean);
}

} // namespace

int main()
{
    // A 12-bit camera image: a horizontal ramp from 0 to 4095.
    unsigned int const width = 640, height = 480;
    ImageData<std::uint16_t> camera(width, height);
    for (unsigned int y = 0; y < height; ++y)
        for (unsigned int x = 0; x < width; ++x)
            camera(x, y) = std::uint16_t(x * 4095 / (width - 1));
    Print("uint16 camera ramp", camera);

    ImageData<float> intensity(camera.GetSize());
    intensity.Assign(camera);
    intensity *= 0.25;
    intensity -= 100.0;
    Print("float: converted, * 0.25, - 100", intensity);

    ImageData<std::uint8_t> display(camera.GetSize());
    display.Assign(intensity);
    Print("uint8: saturated and truncated from float", display);

    ImageData<std::uint16_t> rounded = camera / 3.0;
    Print("uint16 / 3 (rounded to nearest)", rounded);

    ImageData<double> ratio = ImageData<double>(camera.GetSize(), 1.0) / 0.0;
    Print("double 1 / 0 (largest finite value)", ratio);

    ImageData<bool> mask(camera.GetSize());
    mask.Assign(display);
    std::printf("%-44s %ld of %u pixels valid\n", "mask: valid where uint8 is not 0",
                long(std::count(mask.begin(), mask.end(), true)), width * height);
    return 0;
}
