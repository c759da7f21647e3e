#pragma once

#include "dataobjects/ImageVariant.h"
#include "math/Point.h"

#include <memory>
#include <vector>

namespace DataObjects {

class ImageVolumeVariant;

//! A deep copy of plane z, with its own scales, attributes, mask and scalar fields.
//! Basis::OutOfRangeError "z plane index" when z is not below the depth.
std::unique_ptr<ImageVariant> ExtractXYImage(ImageVolumeVariant const & volume, unsigned int z);
//! The cut at row y: pixel (x, z) is voxel (x, y, z). Width is the volume's width, height its
//! depth; the y scale is the volume's z scale. Basis::OutOfRangeError "y plane index".
std::unique_ptr<ImageVariant> ExtractXZImage(ImageVolumeVariant const & volume, unsigned int y);
//! The cut at column x: pixel (z, y) is voxel (x, y, z), so the z axis runs along the image's x
//! axis and y stays y, as a viewer shows a side view next to the xy plane. Width is the depth,
//! height the volume's height; the x scale is the volume's z scale. Basis::OutOfRangeError
//! "x plane index".
std::unique_ptr<ImageVariant> ExtractZYImage(ImageVolumeVariant const & volume, unsigned int x);

//! The raw pixel values along the straight segment from one pixel to another, both included,
//! one sample per step of the longer axis, each the nearest pixel. Basis::OutOfRangeError
//! "index out of range" when either end lies outside the image.
std::vector<double> GetImageDataLine(ImageVariant const & image, Math::Point2T<unsigned int> const & from,
                                     Math::Point2T<unsigned int> const & to);

} // namespace DataObjects
