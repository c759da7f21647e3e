#include "dataobjects/ConvertToFloat.h"

#include "basis/Throw.h"
#include "dataobjects/BufferAttributes.h"
#include "dataobjects/ImageFromBuffer.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "dataobjects/PixelConversion.h"
#include "dataobjects/ScalarFields.h"
#include "dataobjects/ScalarFieldsOnFrame.h"
#include "dataobjects/ScaleOnBuffer.h"
#include "dataobjects/TypeSwitch.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

#include <cstring>

namespace DataObjects {

namespace {

template <class T>
void ConvertRows(FrameStore::I_PlaneBase const & plane, ImageData<float> & target)
{
    auto const * source = static_cast<T const *>(plane.GetData());
    float * const pixels = target.GetRawPointer();
    int const height = int(target.GetHeight());
    std::size_t const width = target.GetWidth();
#pragma omp parallel for schedule(static)
    for (int y = 0; y < height; ++y)
        ConvertPixels(pixels + std::size_t(y) * width, source + std::size_t(y) * width, width);
}

//! Plane z in the direct way: every pixel read as its value; false when the plane is of no
//! pixel type.
bool ConvertDirectly(FrameStore::I_Frame const & frame, unsigned int z, ImageData<float> & target)
{
    FrameStore::I_Component const * pixels = frame.GetComponent(FrameStore::I_FrameImage::COMPONENT_PIXEL);
    FrameStore::I_PlaneBase const * plane = pixels ? pixels->GetPlane(z) : nullptr;
    return plane && Private::SwitchDataType(plane->GetDataType(), [&](auto tag) {
               ConvertRows<decltype(tag)>(*plane, target);
           });
}

std::unique_ptr<ImageVolume<float>> ConvertFrame(FrameStore::I_FrameImage & frame)
{
    // All-valid masks made on first use: the same masks as made now, without writing a byte per
    // pixel that most callers never read.
    std::vector<std::shared_ptr<Image<float>>> planes;
    for (unsigned int z = 0; z < frame.GetDepth(); ++z)
        planes.push_back(std::make_shared<Image<float>>(Math::Size2T<unsigned int>(frame.GetWidth(), frame.GetHeight())));
    auto volume = std::make_unique<ImageVolume<float>>(planes, std::make_shared<LinearScale>());
    volume->SetScaleX(GetScaleFromFrame(frame, ScaleX));
    volume->SetScaleY(GetScaleFromFrame(frame, ScaleY));
    volume->SetScaleZ(GetScaleFromFrame(frame, ScaleZ));
    volume->SetScaleI(GetScaleFromFrame(frame, ScaleI));
    MergeAttributes(volume->GetAttributes(), C_BufferAttributes(frame), true);
    FrameStore::I_Component * mask = frame.GetComponent(FrameStore::I_Frame::COMPONENT_MASK);
    for (unsigned int z = 0; z < frame.GetDepth(); ++z) {
        Image<float> & plane = volume->GetImage(z);
        if (!ConvertDirectly(frame, z, plane.GetImageData())) {
            plane.Assign(*GetImage(static_cast<FrameStore::I_FrameImage const &>(frame), z));
            continue;
        }
        // From the new image into the frame, on purpose: the frame's mask becomes all valid.
        if (FrameStore::I_PlaneBase * framePlane = mask ? mask->GetPlane(z) : nullptr)
            std::memset(framePlane->GetData(), 1, framePlane->GetByteCount());
        plane.GetScalarFields().DeepCopyFrom(Private::ScalarFieldsOnFrame(frame, z));
    }
    return volume;
}

} // namespace

std::unique_ptr<ImageBuffer<float>> ConvertToFloat(FrameStore::I_Buffer const & buffer)
{
    if (buffer.GetFrameCount() == 0)
        BASIS_THROW(Basis::VerificationFailed, "Empty buffer");
    std::vector<std::unique_ptr<ImageVolume<float>>> volumes;
    volumes.reserve(buffer.GetFrameCount());
    for (unsigned int i = 0; i < buffer.GetFrameCount(); ++i) {
        auto * frame = dynamic_cast<FrameStore::I_FrameImage *>(buffer.GetFrame(i));
        if (!frame)
            BASIS_THROW(Basis::VerificationFailed, "Frame of buffer is not from type IMAGE");
        volumes.push_back(ConvertFrame(*frame));
    }
    // The attribute view only reads here.
    C_BufferAttributes const global(const_cast<FrameStore::I_Buffer &>(buffer));
    return std::make_unique<ImageBuffer<float>>(std::move(volumes), C_AttributesContainer(global));
}

} // namespace DataObjects
