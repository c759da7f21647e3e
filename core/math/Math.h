#pragma once

// Every public header of the Math layer.
#include "math/BoundingBox.h"
#include "math/Point.h"
#include "math/Size.h"
#include "math/Vector.h"
