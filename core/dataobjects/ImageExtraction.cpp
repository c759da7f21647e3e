#include "dataobjects/ImageExtraction.h"

#include "basis/Throw.h"
#include "dataobjects/Attributes.h"
#include "dataobjects/ImageVolume.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "dataobjects/TypeSwitch.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace DataObjects {

namespace {

//! A cut through the volume of width by height pixels, pixel (u, v) taken from voxel at(u, v).
template <class T, class Voxel>
std::unique_ptr<ImageVariant> Cut(ImageVolume<T> const & volume, unsigned int width, unsigned int height,
                                  LinearScale const & scaleX, LinearScale const & scaleY, Voxel at)
{
    auto image = std::make_unique<Image<T>>(Math::Size2T<unsigned int>(width, height), false);
    image->SetScaleI(volume.GetScaleI());
    image->SetScaleX(scaleX);
    image->SetScaleY(scaleY);
    image->SetAttributes(volume.GetAttributes());
    Mask & mask = image->GetMask();
    for (unsigned int v = 0; v < height; ++v) {
        for (unsigned int u = 0; u < width; ++u) {
            Math::Point3T<unsigned int> const p = at(u, v);
            Image<T> const & plane = volume.GetImage(p.z);
            image->SetPixel(u, v, plane.GetPixel(p.x, p.y));
            // A plane without a mask yet is all valid; asking would make one.
            mask.SetValid(u, v, !plane.HasMask() || plane.GetMask().IsValid(p.x, p.y));
        }
    }
    return image;
}

} // namespace

std::unique_ptr<ImageVariant> ExtractXYImage(ImageVolumeVariant const & volume, unsigned int z)
{
    return Private::SwitchPixelType(volume, "::ExtractXYImageT(...)", [z](auto const & typed) {
        if (z >= typed.GetDepth())
            BASIS_THROW(Basis::OutOfRangeError, "z plane index");
        return typed.GetImage(z).CreateCopy();
    });
}

std::unique_ptr<ImageVariant> ExtractXZImage(ImageVolumeVariant const & volume, unsigned int y)
{
    return Private::SwitchPixelType(volume, "::ExtractXZImageT(...)", [y](auto const & typed) {
        if (y >= typed.GetHeight())
            BASIS_THROW(Basis::OutOfRangeError, "y plane index");
        return Cut(typed, typed.GetWidth(), typed.GetDepth(), typed.GetScaleX(), typed.GetScaleZ(),
                   [y](unsigned int u, unsigned int v) { return Math::Point3T<unsigned int>(u, y, v); });
    });
}

std::unique_ptr<ImageVariant> ExtractZYImage(ImageVolumeVariant const & volume, unsigned int x)
{
    return Private::SwitchPixelType(volume, "::ExtractZYImageT(...)", [x](auto const & typed) {
        if (x >= typed.GetWidth())
            BASIS_THROW(Basis::OutOfRangeError, "x plane index");
        return Cut(typed, typed.GetDepth(), typed.GetHeight(), typed.GetScaleZ(), typed.GetScaleY(),
                   [x](unsigned int u, unsigned int v) { return Math::Point3T<unsigned int>(x, v, u); });
    });
}

std::vector<double> GetImageDataLine(ImageVariant const & image, Math::Point2T<unsigned int> const & from,
                                     Math::Point2T<unsigned int> const & to)
{
    return Private::SwitchPixelType(image, "GetImageDataLineT(...)", [&](auto const & typed) {
        auto const inside = [&](Math::Point2T<unsigned int> const & p) {
            return p.x < typed.GetWidth() && p.y < typed.GetHeight();
        };
        if (!inside(from) || !inside(to))
            BASIS_THROW(Basis::OutOfRangeError, "index out of range");
        double const dx = double(to.x) - double(from.x);
        double const dy = double(to.y) - double(from.y);
        auto const steps = static_cast<unsigned int>(std::max(std::abs(dx), std::abs(dy)));
        std::vector<double> line;
        line.reserve(steps + 1);
        for (unsigned int i = 0; i <= steps; ++i) {
            double const t = steps == 0 ? 0.0 : double(i) / steps;
            auto const x = static_cast<unsigned int>(std::lround(from.x + t * dx));
            auto const y = static_cast<unsigned int>(std::lround(from.y + t * dy));
            line.push_back(double(typed.GetPixel(x, y)));
        }
        return line;
    });
}

} // namespace DataObjects
