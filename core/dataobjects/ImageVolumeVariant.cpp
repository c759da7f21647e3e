#include "dataobjects/ImageVolumeVariant.h"

namespace DataObjects {

ImageVolumeVariant::~ImageVolumeVariant() = default;

} // namespace DataObjects
