#include "dataobjects/ImageDataVariant.h"

namespace DataObjects {

ImageDataVariant::~ImageDataVariant() = default;

} // namespace DataObjects
