#pragma once

#include <memory>

namespace FrameStore {
class I_Buffer;
}

namespace Dobj {

class ProgressBar;

//! What the synthetic recording is made of, for the report.
struct DemoDescription
{
    double maxDisplacement = 0.0; //!< pixels, over the whole field
    double maskedFraction = 0.0;  //!< of every plane
    unsigned int particlesPerPlane = 0;
};

//! A recording as a PIV camera would take it: frames of two uint16 exposures of Gaussian
//! particle spots with camera noise and a 12-bit range, the second exposure showing the
//! particles moved by a Lamb-Oseen vortex on a slow drift. Scales in mm, FrameDt and
//! acquisition times, and a mask that cuts out a circular obstacle. The same arguments always
//! give the same recording.
std::unique_ptr<FrameStore::I_Buffer> CreateDemoRecording(unsigned int frames, unsigned int width, unsigned int height,
                                                          DemoDescription & description, ProgressBar * progress);

} // namespace Dobj
