#pragma once

#include "dataobjects/AttributesContainer.h"
#include "dataobjects/ImageBufferVariant.h"
#include "dataobjects/ImageVolume.h"

#include <memory>
#include <vector>

namespace DataObjects {

//! The in-memory form of a multi-frame image buffer: one owned ImageVolume per frame, in frame
//! order, and the buffer's global attributes.
//!
//! Volumes on consecutive memory keep their planes in one block, recorded in the global
//! attributes under "_ConsecutiveMemory0"; each plane also holds a share of the block, so the
//! block lives exactly as long as the last plane on it.
template <class T>
class ImageBuffer : public ImageBufferVariant
{
public:
    using value_type = T;

    //! count new volumes of that size; valid is the initial state of every plane's mask.
    ImageBuffer(Math::Size3T<unsigned int> const & size, unsigned int count, bool valid);
    ImageBuffer(Math::Size3T<unsigned int> const & size, unsigned int count, T value, bool valid);
    ImageBuffer(unsigned int width, unsigned int height, unsigned int depth, unsigned int count, bool valid);
    ImageBuffer(unsigned int width, unsigned int height, unsigned int depth, unsigned int count, T value, bool valid);
    //! A buffer of one volume with these global attributes.
    ImageBuffer(ImageVolume<T> && volume, C_AttributesContainer const & globalAttributes);
    //! Takes the volumes over, in order; none may be null. The list may be empty.
    ImageBuffer(std::vector<std::unique_ptr<ImageVolume<T>>> volumes, C_AttributesContainer const & globalAttributes);

    //! Deep; the copy's volumes own their planes, so consecutive-memory records are not copied.
    ImageBuffer(ImageBuffer const & other);
    ImageBuffer(ImageBuffer && other) noexcept;
    ImageBuffer & operator=(ImageBuffer const & other);
    ImageBuffer & operator=(ImageBuffer && other) noexcept;
    ~ImageBuffer() override;
    void MoveFrom(ImageBuffer && other) noexcept;
    void DeepCopyFrom(ImageBuffer const & other);

    static std::shared_ptr<ImageBuffer> CreateEmptyImageBuffer();
    static std::unique_ptr<ImageBuffer> CreateImageBufferOnConsecutiveMemory(Math::Size2T<unsigned int> const & size,
                                                                             unsigned int depth);

    C_Attributes & GetGlobalAttributes() override { return m_globalAttributes; }
    C_Attributes const & GetGlobalAttributes() const override { return m_globalAttributes; }
    void SetGlobalAttributes(C_Attributes const & attributes) override;
    ImageVolume<T> & GetImageVolumeVariant(unsigned int index) override { return GetImageVolume(index); }
    ImageVolume<T> const & GetImageVolumeVariant(unsigned int index) const override { return GetImageVolume(index); }
    unsigned int GetListSize() const override { return unsigned(m_volumes.size()); }
    bool AllVolumesHaveSameSize() const override;
    void AddScalarField(QString const & name, LinearScale const & scale) override;
    std::unique_ptr<ImageBufferVariant> CreateCopy() const override;
    void Assign(ImageBufferVariant const & source) override;
    void AppendImageVolume(std::unique_ptr<I_ImageMemory> memory, Math::Size3T<unsigned int> const & size,
                           std::unique_ptr<MaskStrategy> mask) override;
    void AppendImageVolume(Math::Size3T<unsigned int> const & size, unsigned int count, bool valid) override;
    //! A volume viewing outside memory, planes one after the other; the memory must outlive it.
    virtual void AppendImageVolume(T * data, Math::Size3T<unsigned int> const & size,
                                   std::unique_ptr<MaskStrategy> mask);
    virtual void AppendImageVolume(Math::Size3T<unsigned int> const & size, unsigned int count, T value, bool valid);
    void AppendImageVolumeOnConsecutiveMemory(Math::Size2T<unsigned int> const & size, unsigned int depth) override;
    //! Takes the volume over.
    void AppendImageVolume(std::unique_ptr<ImageVolume<T>> volume);

    //! Basis::OutOfRangeError for an index beyond the list.
    ImageVolume<T> & GetImageVolume(unsigned int index);
    ImageVolume<T> const & GetImageVolume(unsigned int index) const;

    // Every voxel of every volume, by the plane rules of ImageData.
    ImageBuffer & operator=(T value);
    ImageBuffer & operator*=(double d);
    ImageBuffer & operator/=(double d);
    ImageBuffer operator*(double d) const;
    ImageBuffer operator/(double d) const;

private:
    ImageBuffer() = default;
    //! Planes viewing data one after the other, each keeping owner (which may be null) alive.
    void AppendVolumeOn(T * data, std::shared_ptr<void> const & owner, Math::Size3T<unsigned int> const & size,
                        std::unique_ptr<MaskStrategy> mask);

    std::vector<std::unique_ptr<ImageVolume<T>>> m_volumes;
    C_AttributesContainer m_globalAttributes;
};

#define DATAOBJECTS_DECLARE_IMAGE_BUFFER(T) extern template class ImageBuffer<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_DECLARE_IMAGE_BUFFER)
#undef DATAOBJECTS_DECLARE_IMAGE_BUFFER

} // namespace DataObjects
