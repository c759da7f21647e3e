#pragma once

// Every public header of the FrameStore layer.
#include "framestore/Attribute.h"
#include "framestore/Buffer.h"
#include "framestore/BufferFile.h"
#include "framestore/Component.h"
#include "framestore/DataType.h"
#include "framestore/Frame.h"
#include "framestore/FrameAttributes.h"
#include "framestore/Plane.h"
#include "framestore/Scale.h"
#include "framestore/TypedScalarFrame.h"
