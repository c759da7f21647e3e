#pragma once

#include "dataobjects/Image.h"
#include "dataobjects/ImageTypeConversion.h"

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

} // namespace Dobj
