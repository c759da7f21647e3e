#pragma once

// Every public header of the DataObjects layer.
#include "dataobjects/Attribute.h"
#include "dataobjects/Attributes.h"
#include "dataobjects/AttributesContainer.h"
#include "dataobjects/AttributeValue.h"
#include "dataobjects/BufferAttributes.h"
#include "dataobjects/ConsecutiveMemory.h"
#include "dataobjects/GetTimeValueFromAttributes.h"
#include "dataobjects/ImageData.h"
#include "dataobjects/ImageDataVariant.h"
#include "dataobjects/ImageMemory.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/LinearScaleOnBufferScale.h"
#include "dataobjects/PixelConversion.h"
#include "dataobjects/PixelTypes.h"
#include "dataobjects/ScaleOnBuffer.h"
#include "dataobjects/TypeSwitch.h"
