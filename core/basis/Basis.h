#pragma once

// Every public header of the Basis layer.
#include "basis/ActivityControl.h"
#include "basis/AlignedMemory.h"
#include "basis/DeveloperLogger.h"
#include "basis/Exception.h"
#include "basis/Logger.h"
#include "basis/MemorySink.h"
#include "basis/MessageStream.h"
#include "basis/ParameterTree.h"
#include "basis/Range.h"
#include "basis/Scale.h"
#include "basis/Settings.h"
#include "basis/SystemInfo.h"
#include "basis/Throw.h"
#include "basis/TimeSpan.h"
#include "basis/TimeStamp.h"
#include "basis/Units.h"
