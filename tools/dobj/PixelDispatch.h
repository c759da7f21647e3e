#pragma once

#include "dataobjects/Image.h"
#include "dataobjects/ImageTypeConversion.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"

#include <cstdint>
#include <stdexcept>

namespace Dobj {

//! Calls visit with the image as the Image<T> of its pixel type, through the library's public
//! type query.
template <class Visit>
void VisitImage(DataObjects::ImageVariant const & image, Visit && visit)
{
    using namespace DataObjects;
    switch (GetImageDataType(image)) {
    case FrameStore::DT_FLOAT:
        return visit(static_cast<Image<float> const &>(image));
    case FrameStore::DT_WORD:
        return visit(static_cast<Image<std::uint16_t> const &>(image));
    case FrameStore::DT_DOUBLE:
        return visit(static_cast<Image<double> const &>(image));
    case FrameStore::DT_BYTE:
        return visit(static_cast<Image<std::uint8_t> const &>(image));
    case FrameStore::DT_INT:
        return visit(static_cast<Image<std::int32_t> const &>(image));
    case FrameStore::DT_UINT:
        return visit(static_cast<Image<std::uint32_t> const &>(image));
    default:
        throw std::logic_error("image of no pixel type");
    }
}

//! Calls take(index, value, valid) for every pixel in memory order, value in the image's
//! intensity scale. An image without a mask of its own is valid everywhere: asking for its mask
//! would make one.
template <class Take>
void ForEachScaledPixel(DataObjects::ImageVariant const & image, Take && take)
{
    double const factor = image.GetScaleI().GetFactor();
    double const offset = image.GetScaleI().GetOffset();
    VisitImage(image, [&](auto const & typed) {
        auto const * pixels = typed.GetImageData().GetRawPointer();
        DataObjects::Mask const * mask = typed.HasMask() ? &typed.GetMask() : nullptr;
        unsigned int const width = typed.GetWidth();
        std::uint64_t const count = std::uint64_t(width) * typed.GetHeight();
        for (std::uint64_t i = 0; i < count; ++i) {
            bool const valid = !mask || mask->IsValid(unsigned(i % width), unsigned(i / width));
            take(i, factor * double(pixels[i]) + offset, valid);
        }
    });
}

} // namespace Dobj
