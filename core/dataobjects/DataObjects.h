#pragma once

// Every public header of the DataObjects layer.
#include "dataobjects/ConsecutiveMemory.h"
#include "dataobjects/ImageData.h"
#include "dataobjects/ImageDataVariant.h"
#include "dataobjects/ImageMemory.h"
#include "dataobjects/PixelConversion.h"
#include "dataobjects/PixelTypes.h"
#include "dataobjects/TypeSwitch.h"
