#include "dataobjects/ImageBuffer.h"

#include "basis/Throw.h"
#include "dataobjects/ConsecutiveMemoryAttribute.h"
#include "dataobjects/LazyMask.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/MaskStrategy.h"
#include "dataobjects/ScalarFields.h"
#include "dataobjects/SharedImageMemory.h"
#include "dataobjects/TypeSwitch.h"

#include <string>
#include <utility>

namespace DataObjects {

namespace {

std::string const ConsecutiveMemoryName = "_ConsecutiveMemory";

void CheckCount(unsigned int count)
{
    if (count == 0)
        BASIS_THROW(Basis::VerificationFailed, "Image volume list is empty");
}

//! The global attributes without the records of consecutive blocks, which belong to the planes
//! of the buffer they were made for.
void CopyGlobalAttributes(C_Attributes & target, C_Attributes const & source)
{
    std::vector<C_Attribute> const attributes = source.GetAttributes();
    target.Clear();
    for (C_Attribute const & attribute : attributes)
        if (attribute.GetName().compare(0, ConsecutiveMemoryName.size(), ConsecutiveMemoryName) != 0)
            target.Set(attribute);
}

} // namespace

template <class T>
ImageBuffer<T>::ImageBuffer(Math::Size3T<unsigned int> const & size, unsigned int count, bool valid)
{
    CheckCount(count);
    AppendImageVolume(size, count, valid);
}

template <class T>
ImageBuffer<T>::ImageBuffer(Math::Size3T<unsigned int> const & size, unsigned int count, T value, bool valid)
{
    CheckCount(count);
    AppendImageVolume(size, count, value, valid);
}

template <class T>
ImageBuffer<T>::ImageBuffer(unsigned int width, unsigned int height, unsigned int depth, unsigned int count,
                            bool valid)
    : ImageBuffer(Math::Size3T<unsigned int>(width, height, depth), count, valid)
{
}

template <class T>
ImageBuffer<T>::ImageBuffer(unsigned int width, unsigned int height, unsigned int depth, unsigned int count,
                            T value, bool valid)
    : ImageBuffer(Math::Size3T<unsigned int>(width, height, depth), count, value, valid)
{
}

template <class T>
ImageBuffer<T>::ImageBuffer(ImageVolume<T> && volume, C_AttributesContainer const & globalAttributes)
    : m_globalAttributes(globalAttributes)
{
    m_volumes.push_back(std::make_unique<ImageVolume<T>>(std::move(volume)));
}

template <class T>
ImageBuffer<T>::ImageBuffer(std::vector<std::unique_ptr<ImageVolume<T>>> volumes,
                            C_AttributesContainer const & globalAttributes)
    : m_globalAttributes(globalAttributes)
{
    for (auto const & volume : volumes)
        if (!volume)
            BASIS_THROW(Basis::VerificationFailed, "Image volume is NULL");
    m_volumes = std::move(volumes);
}

template <class T>
ImageBuffer<T>::ImageBuffer(ImageBuffer const & other)
    : ImageBufferVariant(other)
{
    m_volumes.reserve(other.m_volumes.size());
    for (auto const & volume : other.m_volumes)
        m_volumes.push_back(std::make_unique<ImageVolume<T>>(*volume));
    CopyGlobalAttributes(m_globalAttributes, other.m_globalAttributes);
}

template <class T>
ImageBuffer<T>::ImageBuffer(ImageBuffer && other) noexcept = default;

template <class T>
ImageBuffer<T> & ImageBuffer<T>::operator=(ImageBuffer const & other)
{
    DeepCopyFrom(other);
    return *this;
}

template <class T>
ImageBuffer<T> & ImageBuffer<T>::operator=(ImageBuffer && other) noexcept = default;

template <class T>
ImageBuffer<T>::~ImageBuffer() = default;

template <class T>
void ImageBuffer<T>::MoveFrom(ImageBuffer && other) noexcept
{
    *this = std::move(other);
}

template <class T>
void ImageBuffer<T>::DeepCopyFrom(ImageBuffer const & other)
{
    Assign(other);
}

template <class T>
std::shared_ptr<ImageBuffer<T>> ImageBuffer<T>::CreateEmptyImageBuffer()
{
    return std::shared_ptr<ImageBuffer>(new ImageBuffer());
}

template <class T>
std::unique_ptr<ImageBuffer<T>> ImageBuffer<T>::CreateImageBufferOnConsecutiveMemory(
    Math::Size2T<unsigned int> const & size, unsigned int depth)
{
    std::unique_ptr<ImageBuffer> buffer(new ImageBuffer());
    buffer->AppendImageVolumeOnConsecutiveMemory(size, depth);
    return buffer;
}

template <class T>
void ImageBuffer<T>::SetGlobalAttributes(C_Attributes const & attributes)
{
    if (&attributes == &m_globalAttributes)
        return;
    std::vector<C_Attribute> const copied = attributes.GetAttributes();
    m_globalAttributes.Clear();
    for (C_Attribute const & attribute : copied)
        m_globalAttributes.Set(attribute);
}

template <class T>
bool ImageBuffer<T>::AllVolumesHaveSameSize() const
{
    if (m_volumes.empty())
        BASIS_THROW(Basis::VerificationFailed, "Image volume list is empty");
    Math::Size3T<unsigned int> const size = m_volumes.front()->GetSize();
    for (auto const & volume : m_volumes)
        if (volume->GetSize() != size)
            return false;
    return true;
}

template <class T>
void ImageBuffer<T>::AddScalarField(QString const & name, LinearScale const & scale)
{
    for (auto & volume : m_volumes)
        for (unsigned int z = 0; z < volume->GetDepth(); ++z)
            volume->GetImage(z).GetScalarFields().Add(name)->SetScale(scale);
}

template <class T>
std::unique_ptr<ImageBufferVariant> ImageBuffer<T>::CreateCopy() const
{
    return std::make_unique<ImageBuffer>(*this);
}

template <class T>
void ImageBuffer<T>::Assign(ImageBufferVariant const & source)
{
    Private::SwitchPixelType(source, "AssignTU(...)", [this](auto const & typed) {
        if (static_cast<void const *>(&typed) == this)
            return;
        // Every size first, so a mismatch changes nothing.
        bool sameSizes = typed.GetListSize() == GetListSize();
        for (unsigned int i = 0; sameSizes && i < GetListSize(); ++i)
            sameSizes = typed.GetImageVolume(i).GetSize() == m_volumes[i]->GetSize();
        if (!sameSizes)
            BASIS_THROW(Basis::VerificationFailed, "Source and destination have different sizes.");
        for (unsigned int i = 0; i < GetListSize(); ++i)
            m_volumes[i]->Assign(typed.GetImageVolume(i));
        CopyGlobalAttributes(m_globalAttributes, typed.GetGlobalAttributes());
    });
}

template <class T>
void ImageBuffer<T>::AppendImageVolume(std::unique_ptr<I_ImageMemory> memory, Math::Size3T<unsigned int> const & size,
                                       std::unique_ptr<MaskStrategy> mask)
{
    if (!memory)
        BASIS_THROW(Basis::VerificationFailed, "data-pointer is null");
    std::shared_ptr<I_ImageMemory> const shared = Private::SharedImageMemory::Share(std::move(memory));
    AppendVolumeOn(static_cast<T *>(shared->GetAddress()), shared, size, std::move(mask));
}

template <class T>
void ImageBuffer<T>::AppendImageVolume(Math::Size3T<unsigned int> const & size, unsigned int count, bool valid)
{
    for (unsigned int i = 0; i < count; ++i)
        m_volumes.push_back(std::make_unique<ImageVolume<T>>(size, valid));
}

template <class T>
void ImageBuffer<T>::AppendImageVolume(T * data, Math::Size3T<unsigned int> const & size,
                                       std::unique_ptr<MaskStrategy> mask)
{
    AppendVolumeOn(data, nullptr, size, std::move(mask));
}

template <class T>
void ImageBuffer<T>::AppendImageVolume(Math::Size3T<unsigned int> const & size, unsigned int count, T value,
                                       bool valid)
{
    for (unsigned int i = 0; i < count; ++i)
        m_volumes.push_back(std::make_unique<ImageVolume<T>>(size, value, valid));
}

template <class T>
void ImageBuffer<T>::AppendImageVolumeOnConsecutiveMemory(Math::Size2T<unsigned int> const & size, unsigned int depth)
{
    if (depth == 0)
        BASIS_THROW(Basis::VerificationFailed, "ImageVolume must have at least one z-plane");
    if (depth == 1) {
        m_volumes.push_back(std::make_unique<ImageVolume<T>>(std::make_shared<Image<T>>(ImageData<T>(size)),
                                                             std::make_shared<LinearScale>()));
        return;
    }
    // The probe appends the character of code N, the record its digits: the probe never finds
    // a record, so every block is recorded as "_ConsecutiveMemory0", the newest replacing the
    // record of the one before, which its planes keep alive on their own.
    unsigned int n = 0;
    while (m_globalAttributes.Contains(ConsecutiveMemoryName + std::string(1, char(n))))
        ++n;
    std::string const name = ConsecutiveMemoryName + std::to_string(n);

    auto const block = std::make_shared<ConsecutiveMemory<T>>(Math::ElementCount(size), depth);
    ConsecutiveMemoryAttribute<T> const attribute(block);
    AppendVolumeOn(block->GetData(), block, {size.width, size.height, depth}, nullptr);
    m_globalAttributes.Set(name, attribute);
    m_volumes.back()->GetAttributes().Set(name, attribute);
}

template <class T>
void ImageBuffer<T>::AppendImageVolume(std::unique_ptr<ImageVolume<T>> volume)
{
    if (!volume)
        BASIS_THROW(Basis::VerificationFailed, "Image volume is NULL");
    m_volumes.push_back(std::move(volume));
}

template <class T>
ImageVolume<T> & ImageBuffer<T>::GetImageVolume(unsigned int index)
{
    if (index >= m_volumes.size())
        BASIS_THROW(Basis::OutOfRangeError, "index out of range");
    return *m_volumes[index];
}

template <class T>
ImageVolume<T> const & ImageBuffer<T>::GetImageVolume(unsigned int index) const
{
    return const_cast<ImageBuffer &>(*this).GetImageVolume(index);
}

template <class T>
ImageBuffer<T> & ImageBuffer<T>::operator=(T value)
{
    for (auto & volume : m_volumes)
        *volume = value;
    return *this;
}

template <class T>
ImageBuffer<T> & ImageBuffer<T>::operator*=(double d)
{
    for (auto & volume : m_volumes)
        *volume *= d;
    return *this;
}

template <class T>
ImageBuffer<T> & ImageBuffer<T>::operator/=(double d)
{
    for (auto & volume : m_volumes)
        *volume /= d;
    return *this;
}

template <class T>
ImageBuffer<T> ImageBuffer<T>::operator*(double d) const
{
    return ImageBuffer(*this) *= d;
}

template <class T>
ImageBuffer<T> ImageBuffer<T>::operator/(double d) const
{
    return ImageBuffer(*this) /= d;
}

template <class T>
void ImageBuffer<T>::AppendVolumeOn(T * data, std::shared_ptr<void> const & owner,
                                    Math::Size3T<unsigned int> const & size, std::unique_ptr<MaskStrategy> mask)
{
    if (!data)
        BASIS_THROW(Basis::VerificationFailed, "data-pointer is null");
    if (size.depth == 0)
        BASIS_THROW(Basis::VerificationFailed, "ImageVolume must have at least one z-plane");
    if (mask && size.depth != 1)
        BASIS_THROW(Basis::VerificationFailed, "One mask strategy serves one plane");
    Math::Size2T<unsigned int> const planeSize(size.width, size.height);
    std::uint64_t const elementsPerPlane = Math::ElementCount(planeSize);
    std::vector<std::shared_ptr<Image<T>>> planes;
    planes.reserve(size.depth);
    for (unsigned int z = 0; z < size.depth; ++z) {
        T * const address = data + z * elementsPerPlane;
        auto plane = owner ? std::make_shared<ImageData<T>>(
                                 std::make_unique<Private::SharedImageMemory>(owner, address), size.width, size.height)
                           : std::make_shared<ImageData<T>>(address, planeSize, false);
        std::unique_ptr<MaskStrategy> strategy
            = mask ? std::move(mask) : std::make_unique<LazyMask>(size.width, size.height, true);
        auto scale = [] { return std::make_shared<LinearScale>(); };
        planes.push_back(std::make_shared<Image<T>>(std::move(plane), std::move(strategy), scale(), scale(), scale(),
                                                    std::make_shared<C_AttributesContainer>(),
                                                    std::make_shared<ScalarFields>(planeSize)));
    }
    m_volumes.push_back(std::make_unique<ImageVolume<T>>(planes, std::make_shared<LinearScale>()));
}

#define DATAOBJECTS_INSTANTIATE_IMAGE_BUFFER(T) template class ImageBuffer<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_INSTANTIATE_IMAGE_BUFFER)

} // namespace DataObjects
