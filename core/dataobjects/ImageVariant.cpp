#include "dataobjects/ImageVariant.h"

namespace DataObjects {

ImageVariant::~ImageVariant() = default;

} // namespace DataObjects
