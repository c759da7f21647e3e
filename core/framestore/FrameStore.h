#pragma once

// Every public header of the FrameStore layer.
#include "framestore/DataType.h"
