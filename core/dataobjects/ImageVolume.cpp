#include "dataobjects/ImageVolume.h"

#include "basis/Throw.h"
#include "dataobjects/AttributesContainer.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "dataobjects/ScalarFields.h"
#include "dataobjects/TypeSwitch.h"

#include <utility>

namespace DataObjects {

namespace {

template <class T>
std::vector<std::shared_ptr<Image<T>>> NewPlanes(Math::Size3T<unsigned int> const & size, bool valid)
{
    if (size.depth == 0)
        BASIS_THROW(Basis::VerificationFailed, "ImageVolume must have at least one z-plane");
    std::vector<std::shared_ptr<Image<T>>> planes;
    planes.reserve(size.depth);
    for (unsigned int z = 0; z < size.depth; ++z)
        planes.push_back(std::make_shared<Image<T>>(Math::Size2T<unsigned int>(size.width, size.height), valid));
    return planes;
}

template <class T>
std::vector<std::shared_ptr<Image<T>>> TakePlanes(std::vector<Image<T>> & images)
{
    std::vector<std::shared_ptr<Image<T>>> planes;
    planes.reserve(images.size());
    for (Image<T> & image : images)
        planes.push_back(std::make_shared<Image<T>>(std::move(image)));
    return planes;
}

} // namespace

template <class T>
ImageVolume<T>::ImageVolume(Math::Size3T<unsigned int> const & size, bool valid)
    : m_planes(NewPlanes<T>(size, valid))
    , m_scaleZ(std::make_shared<LinearScale>())
{
    ShareScalesOverAllXYPlanes();
    ShareAttributesForAllXYPlanes(std::make_shared<C_AttributesContainer>());
}

template <class T>
ImageVolume<T>::ImageVolume(unsigned int width, unsigned int height, unsigned int depth, bool valid)
    : ImageVolume(Math::Size3T<unsigned int>(width, height, depth), valid)
{
}

template <class T>
ImageVolume<T>::ImageVolume(Math::Size3T<unsigned int> const & size, T value, bool valid)
    : ImageVolume(size, valid)
{
    *this = value;
}

template <class T>
ImageVolume<T>::ImageVolume(std::shared_ptr<Image<T>> plane, std::shared_ptr<LinearScale> scaleZ)
    : ImageVolume(std::vector<std::shared_ptr<Image<T>>>{std::move(plane)}, std::move(scaleZ))
{
}

template <class T>
ImageVolume<T>::ImageVolume(Image<T> && plane, LinearScale const & scaleZ)
    : ImageVolume(std::make_shared<Image<T>>(std::move(plane)), std::make_shared<LinearScale>(scaleZ))
{
}

template <class T>
ImageVolume<T>::ImageVolume(Image<T> && plane, LinearScale && scaleZ)
    : ImageVolume(std::make_shared<Image<T>>(std::move(plane)), std::make_shared<LinearScale>(std::move(scaleZ)))
{
}

template <class T>
ImageVolume<T>::ImageVolume(Image<T> && plane, std::shared_ptr<LinearScale> scaleZ)
    : ImageVolume(std::make_shared<Image<T>>(std::move(plane)), std::move(scaleZ))
{
}

template <class T>
ImageVolume<T>::ImageVolume(std::vector<std::shared_ptr<Image<T>>> const & planes, std::shared_ptr<LinearScale> scaleZ)
    : m_planes(planes)
    , m_scaleZ(std::move(scaleZ))
{
    CheckPlanes(m_scaleZ);
    ShareScalesOverAllXYPlanes();
    ShareAttributesForAllXYPlanes(m_planes.front()->GetAttributesSPtr());
}

template <class T>
ImageVolume<T>::ImageVolume(std::vector<std::shared_ptr<Image<T>>> const & planes,
                            std::shared_ptr<C_Attributes> attributes, std::shared_ptr<LinearScale> scaleZ)
    : m_planes(planes)
    , m_scaleZ(std::move(scaleZ))
{
    CheckPlanes(m_scaleZ);
    ShareScalesOverAllXYPlanes();
    ShareAttributesForAllXYPlanes(std::move(attributes));
}

template <class T>
ImageVolume<T>::ImageVolume(std::vector<Image<T>> & planes, std::shared_ptr<C_Attributes> attributes,
                            std::shared_ptr<LinearScale> scaleZ)
    : ImageVolume(TakePlanes(planes), std::move(attributes), std::move(scaleZ))
{
}

template <class T>
ImageVolume<T>::ImageVolume(ImageVolume const & other)
    : ImageVolumeVariant(other)
    , m_scaleZ(std::make_shared<LinearScale>(*other.m_scaleZ))
{
    m_planes.reserve(other.m_planes.size());
    for (auto const & plane : other.m_planes)
        m_planes.push_back(std::make_shared<Image<T>>(*plane));
    ShareScalesOverAllXYPlanes();
    ShareAttributesForAllXYPlanes(m_planes.front()->GetAttributesSPtr());
}

template <class T>
ImageVolume<T>::ImageVolume(ImageVolume && other) noexcept = default;

template <class T>
ImageVolume<T> & ImageVolume<T>::operator=(ImageVolume const & other)
{
    DeepCopyFrom(other);
    return *this;
}

template <class T>
ImageVolume<T> & ImageVolume<T>::operator=(ImageVolume && other) noexcept = default;

template <class T>
ImageVolume<T>::~ImageVolume() = default;

template <class T>
void ImageVolume<T>::MoveFrom(ImageVolume && other) noexcept
{
    *this = std::move(other);
}

template <class T>
void ImageVolume<T>::DeepCopyFrom(ImageVolume const & other)
{
    Assign(other);
}

template <class T>
Math::Size3T<unsigned int> ImageVolume<T>::GetSize() const
{
    return {GetWidth(), GetHeight(), GetDepth()};
}

template <class T>
void ImageVolume<T>::SetScaleZ(LinearScale const & scale)
{
    *m_scaleZ = scale;
}

template <class T>
std::unique_ptr<ImageVolumeVariant> ImageVolume<T>::CreateCopy() const
{
    return std::make_unique<ImageVolume>(*this);
}

template <class T>
void ImageVolume<T>::Assign(ImageVolumeVariant const & source)
{
    Private::SwitchPixelType(source, "AssignTU(...)", [this](auto const & typed) {
        if (static_cast<void const *>(&typed) == this)
            return;
        CheckSameSize(typed);
        // As Image::Assign for every plane, with the planes' pixels and masks spread over the
        // threads. Masks are made first, so nothing in the parallel loop allocates or fails;
        // scales and the attribute set are shared by all planes and copied once.
        for (auto & plane : m_planes)
            plane->GetMask();
        int const depth = int(m_planes.size());
#pragma omp parallel for schedule(static) if (depth > 1)
        for (int z = 0; z < depth; ++z) {
            Image<T> & target = *m_planes[std::size_t(z)];
            auto const & plane = typed.GetImage(unsigned(z));
            target.GetImageData().Assign(plane.GetImageData());
            if (plane.HasMask())
                target.GetMask().DeepCopyFrom(plane.GetMask());
            else
                target.GetMask() = true;
        }
        for (unsigned int z = 0; z < GetDepth(); ++z)
            m_planes[z]->GetScalarFields().DeepCopyFrom(typed.GetImage(z).GetScalarFields());
        SetScaleX(typed.GetScaleX());
        SetScaleY(typed.GetScaleY());
        SetScaleI(typed.GetScaleI());
        SetAttributes(typed.GetAttributes());
        SetScaleZ(typed.GetScaleZ());
    });
}

template <class T>
bool ImageVolume<T>::IsMaskValid(unsigned int x, unsigned int y, unsigned int z) const
{
    return m_planes[z]->GetMask().IsValid(x, y);
}

template <class T>
void ImageVolume<T>::SetMaskValid(unsigned int x, unsigned int y, unsigned int z, bool valid)
{
    m_planes[z]->GetMask().SetValid(x, y, valid);
}

template <class T>
bool ImageVolume<T>::IsValidPosition(unsigned int x, unsigned int y, unsigned int z) const
{
    return x < GetWidth() && y < GetHeight() && z < GetDepth();
}

template <class T>
template <class Operation>
ImageVolume<T> & ImageVolume<T>::ForEachPlane(Operation operation)
{
    for (auto & plane : m_planes)
        operation(plane->GetImageData());
    return *this;
}

template <class T>
ImageVolume<T> & ImageVolume<T>::operator=(T value)
{
    return ForEachPlane([value](ImageData<T> & plane) { plane.Fill(value); });
}

template <class T>
ImageVolume<T> & ImageVolume<T>::operator+=(double d)
{
    return ForEachPlane([d](ImageData<T> & plane) { plane += d; });
}

template <class T>
ImageVolume<T> & ImageVolume<T>::operator-=(double d)
{
    return ForEachPlane([d](ImageData<T> & plane) { plane -= d; });
}

template <class T>
ImageVolume<T> & ImageVolume<T>::operator*=(double d)
{
    return ForEachPlane([d](ImageData<T> & plane) { plane *= d; });
}

template <class T>
ImageVolume<T> & ImageVolume<T>::operator/=(double d)
{
    return ForEachPlane([d](ImageData<T> & plane) { plane /= d; });
}

template <class T>
ImageVolume<T> ImageVolume<T>::operator+(double d) const
{
    return ImageVolume(*this) += d;
}

template <class T>
ImageVolume<T> ImageVolume<T>::operator-(double d) const
{
    return ImageVolume(*this) -= d;
}

template <class T>
ImageVolume<T> ImageVolume<T>::operator*(double d) const
{
    return ImageVolume(*this) *= d;
}

template <class T>
ImageVolume<T> ImageVolume<T>::operator/(double d) const
{
    return ImageVolume(*this) /= d;
}

template <class T>
ImageVolume<T> & ImageVolume<T>::operator+=(ImageVolume const & other)
{
    CheckSameSize(other);
    for (std::size_t z = 0; z < m_planes.size(); ++z)
        m_planes[z]->GetImageData() += other.m_planes[z]->GetImageData();
    return *this;
}

template <class T>
ImageVolume<T> & ImageVolume<T>::operator/=(ImageVolume const & other)
{
    CheckSameSize(other);
    for (std::size_t z = 0; z < m_planes.size(); ++z)
        m_planes[z]->GetImageData() /= other.m_planes[z]->GetImageData();
    return *this;
}

template <class T>
ImageVolume<T> ImageVolume<T>::operator/(ImageVolume const & other) const
{
    return ImageVolume(*this) /= other;
}

template <class T>
void ImageVolume<T>::CheckPlanes(std::shared_ptr<LinearScale> const & scaleZ) const
{
    if (m_planes.empty())
        BASIS_THROW(Basis::VerificationFailed, "ImageVolume must have at least one z-plane");
    if (!scaleZ)
        BASIS_THROW(Basis::VerificationFailed, "Z-scale is NULL");
    Image<T> const * reference = m_planes.front().get();
    if (!reference)
        BASIS_THROW(Basis::VerificationFailed, "z-plane is NULL");
    QStringList const names = reference->GetScalarFields().GetNames();
    for (std::size_t z = 1; z < m_planes.size(); ++z) {
        Image<T> const * plane = m_planes[z].get();
        if (!plane)
            BASIS_THROW(Basis::VerificationFailed, "z-plane is NULL");
        if (plane->GetScaleX() != reference->GetScaleX())
            BASIS_THROW(Basis::VerificationFailed, "x axis has different scaling.");
        if (plane->GetScaleY() != reference->GetScaleY())
            BASIS_THROW(Basis::VerificationFailed, "y axis has different scaling.");
        if (plane->GetScaleI() != reference->GetScaleI())
            BASIS_THROW(Basis::VerificationFailed, "intensity has different scaling.");
        if (plane->GetSize() != reference->GetSize())
            BASIS_THROW(Basis::VerificationFailed, "z-planes have different sizes.");
        if (plane->GetScalarFields().GetNames() != names)
            BASIS_THROW(Basis::VerificationFailed, "scalar field names are different.");
    }
}

template <class T>
void ImageVolume<T>::CheckSameSize(ImageVolumeVariant const & other) const
{
    if (GetSize() != other.GetSize())
        BASIS_THROW(Basis::VerificationFailed, "Source and destination have different sizes.");
}

template <class T>
void ImageVolume<T>::ShareScalesOverAllXYPlanes()
{
    Image<T> const & reference = *m_planes.front();
    for (std::size_t z = 1; z < m_planes.size(); ++z)
        m_planes[z]->ShareScales(reference.GetScaleXSPtr(), reference.GetScaleYSPtr(), reference.GetScaleISPtr());
}

template <class T>
void ImageVolume<T>::ShareAttributesForAllXYPlanes(std::shared_ptr<C_Attributes> attributes)
{
    for (auto & plane : m_planes)
        plane->ShareAttributes(attributes);
}

#define DATAOBJECTS_INSTANTIATE_IMAGE_VOLUME(T) template class ImageVolume<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_INSTANTIATE_IMAGE_VOLUME)

} // namespace DataObjects
