#include "dataobjects/Image.h"

#include "basis/Throw.h"
#include "dataobjects/AttributesContainer.h"
#include "dataobjects/InstantMask.h"
#include "dataobjects/LazyMask.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "dataobjects/ScalarFields.h"
#include "dataobjects/TypeSwitch.h"

#include <utility>

namespace DataObjects {

namespace {

std::shared_ptr<LinearScale> NewScale()
{
    return std::make_shared<LinearScale>();
}

std::shared_ptr<C_Attributes> NewAttributes()
{
    return std::make_shared<C_AttributesContainer>();
}

std::unique_ptr<MaskStrategy> MaskOnFirstUse(Math::Size2T<unsigned int> const & size)
{
    return std::make_unique<LazyMask>(size.width, size.height, true);
}

template <class T>
Math::Size2T<unsigned int> SizeOf(std::shared_ptr<ImageData<T>> const & plane)
{
    return plane ? plane->GetSize() : Math::Size2T<unsigned int>();
}

//! An own strategy with a copy of the mask, or a mask made on first use when none exists yet.
std::unique_ptr<MaskStrategy> CopyMaskStrategy(MaskStrategy & strategy)
{
    if (!strategy.IsMaskSpawned())
        return MaskOnFirstUse(strategy.GetSize());
    return std::make_unique<InstantMask>(Mask(strategy.ref()));
}

void CheckScale(std::shared_ptr<LinearScale> const & scale, char const * axis)
{
    if (!scale)
        BASIS_THROW(Basis::VerificationFailed, "Scale" << axis << " is not valid.");
}

void CheckAttributes(std::shared_ptr<C_Attributes> const & attributes)
{
    if (!attributes)
        BASIS_THROW(Basis::VerificationFailed, "Attributes are not valid.");
}

//! The assignment of any image into any other, after the type switch has accepted the source.
//! The pixel conversion checks the size before anything else is touched.
void AssignContents(ImageVariant & target, ImageVariant const & source)
{
    if (&target == &source)
        return;
    target.GetImageData().Assign(source.GetImageData());
    if (source.HasMask())
        target.GetMask().DeepCopyFrom(source.GetMask());
    else
        target.GetMask() = true;
    target.SetScaleX(source.GetScaleX());
    target.SetScaleY(source.GetScaleY());
    target.SetScaleI(source.GetScaleI());
    target.SetAttributes(source.GetAttributes());
    target.GetScalarFields().DeepCopyFrom(source.GetScalarFields());
}

} // namespace

template <class T>
Image<T>::Image(Math::Size2T<unsigned int> const & size)
    : Image(std::make_shared<ImageData<T>>(size))
{
}

template <class T>
Image<T>::Image(unsigned int width, unsigned int height)
    : Image(Math::Size2T<unsigned int>(width, height))
{
}

template <class T>
Image<T>::Image(Math::Size2T<unsigned int> const & size, bool valid)
    : Image(std::make_shared<ImageData<T>>(size), std::make_unique<InstantMask>(size.width, size.height, valid),
            NewScale(), NewScale(), NewScale(), NewAttributes(), std::make_shared<ScalarFields>(size))
{
}

template <class T>
Image<T>::Image(unsigned int width, unsigned int height, bool valid)
    : Image(Math::Size2T<unsigned int>(width, height), valid)
{
}

template <class T>
Image<T>::Image(Math::Size2T<unsigned int> const & size, T value, bool valid)
    : Image(size, valid)
{
    m_plane->Fill(value);
}

template <class T>
Image<T>::Image(ImageData<T> && plane)
    : Image(std::make_shared<ImageData<T>>(std::move(plane)))
{
}

template <class T>
Image<T>::Image(ImageData<T> && plane, Mask && mask)
    : Image(std::make_shared<ImageData<T>>(std::move(plane)))
{
    if (mask.GetSize() != GetSize())
        BASIS_THROW(Basis::VerificationFailed, "Mask has invalid size.");
    m_mask = std::make_unique<InstantMask>(std::move(mask));
}

template <class T>
Image<T>::Image(std::shared_ptr<ImageData<T>> plane)
    : Image(plane, MaskOnFirstUse(SizeOf(plane)), NewScale(), NewScale(), NewScale(), NewAttributes(),
            std::make_shared<ScalarFields>(SizeOf(plane)))
{
}

template <class T>
Image<T>::Image(T * data, Math::Size2T<unsigned int> const & size, std::unique_ptr<MaskStrategy> mask,
                std::shared_ptr<LinearScale> const & scaleX, std::shared_ptr<LinearScale> const & scaleY,
                std::shared_ptr<LinearScale> const & scaleI, std::shared_ptr<C_Attributes> const & attributes,
                std::shared_ptr<ScalarFields> const & scalarFields)
    : Image(std::make_shared<ImageData<T>>(data, size, false), std::move(mask), scaleX, scaleY, scaleI, attributes,
            scalarFields)
{
}

template <class T>
Image<T>::Image(std::shared_ptr<ImageData<T>> plane, std::unique_ptr<MaskStrategy> mask,
                std::shared_ptr<LinearScale> const & scaleX, std::shared_ptr<LinearScale> const & scaleY,
                std::shared_ptr<LinearScale> const & scaleI, std::shared_ptr<C_Attributes> const & attributes,
                std::shared_ptr<ScalarFields> const & scalarFields)
    : m_plane(std::move(plane))
    , m_mask(std::move(mask))
    , m_scaleX(scaleX)
    , m_scaleY(scaleY)
    , m_scaleI(scaleI)
    , m_attributes(attributes)
    , m_scalarFields(scalarFields)
{
    if (!m_plane)
        BASIS_THROW(Basis::VerificationFailed, "Image data is not valid.");
    if (!m_mask)
        BASIS_THROW(Basis::VerificationFailed, "Mask is not valid.");
    if (m_mask->GetSize() != m_plane->GetSize())
        BASIS_THROW(Basis::VerificationFailed, "Mask has invalid size.");
    CheckScale(m_scaleX, "X");
    CheckScale(m_scaleY, "Y");
    CheckScale(m_scaleI, "I");
    CheckAttributes(m_attributes);
    if (!m_scalarFields)
        BASIS_THROW(Basis::VerificationFailed, "Scalar fields are not valid.");
    if (m_scalarFields->GetSizeOfScalarFields() != m_plane->GetSize())
        BASIS_THROW(Basis::VerificationFailed, "Sizes of scalar fields is different to image size.");
}

template <class T>
Image<T>::Image(Image const & other)
    : ImageVariant(other)
    , m_plane(std::make_shared<ImageData<T>>(*other.m_plane))
    , m_mask(CopyMaskStrategy(*other.m_mask))
    , m_scaleX(std::make_shared<LinearScale>(*other.m_scaleX))
    , m_scaleY(std::make_shared<LinearScale>(*other.m_scaleY))
    , m_scaleI(std::make_shared<LinearScale>(*other.m_scaleI))
    , m_attributes(std::make_shared<C_AttributesContainer>(*other.m_attributes))
    , m_scalarFields(std::make_shared<ScalarFields>(other.GetSize()))
{
    m_scalarFields->DeepCopyFrom(*other.m_scalarFields);
}

template <class T>
Image<T>::Image(Image && other) noexcept = default;

template <class T>
Image<T> & Image<T>::operator=(Image const & other)
{
    AssignContents(*this, other);
    return *this;
}

template <class T>
Image<T> & Image<T>::operator=(Image && other) noexcept = default;

template <class T>
Image<T>::~Image() = default;

template <class T>
Mask & Image<T>::GetMask()
{
    return m_mask->ref();
}

template <class T>
Mask const & Image<T>::GetMask() const
{
    return std::as_const(*m_mask).ref();
}

template <class T>
void Image<T>::SetScaleX(LinearScale const & scale)
{
    *m_scaleX = scale;
}

template <class T>
void Image<T>::SetScaleY(LinearScale const & scale)
{
    *m_scaleY = scale;
}

template <class T>
void Image<T>::SetScaleI(LinearScale const & scale)
{
    *m_scaleI = scale;
}

template <class T>
void Image<T>::SetAttributes(C_Attributes const & attributes)
{
    if (&attributes == m_attributes.get())
        return;
    // Read first: the argument may be a view on the same store as the held set.
    std::vector<C_Attribute> const copied = attributes.GetAttributes();
    m_attributes->Clear();
    for (C_Attribute const & attribute : copied)
        m_attributes->Set(attribute);
}

template <class T>
std::unique_ptr<ImageVariant> Image<T>::CreateCopy() const
{
    return std::make_unique<Image>(*this);
}

template <class T>
void Image<T>::SetMask(Mask const & mask)
{
    GetMask().DeepCopyFrom(mask);
}

template <class T>
std::shared_ptr<Mask> Image<T>::GetMaskSPtr()
{
    return m_mask->sptr();
}

template <class T>
void Image<T>::Assign(ImageVariant const & source)
{
    Private::SwitchPixelType(source, "AssignTU(...)", [this](auto const & typed) { AssignContents(*this, typed); });
}

template <class T>
bool Image<T>::HasMask() const
{
    return m_mask->IsMaskSpawned();
}

template <class T>
void Image<T>::ShareScales(std::shared_ptr<LinearScale> scaleX, std::shared_ptr<LinearScale> scaleY,
                           std::shared_ptr<LinearScale> scaleI)
{
    CheckScale(scaleX, "X");
    CheckScale(scaleY, "Y");
    CheckScale(scaleI, "I");
    m_scaleX = std::move(scaleX);
    m_scaleY = std::move(scaleY);
    m_scaleI = std::move(scaleI);
}

template <class T>
void Image<T>::ShareAttributes(std::shared_ptr<C_Attributes> attributes)
{
    CheckAttributes(attributes);
    m_attributes = std::move(attributes);
}

#define DATAOBJECTS_INSTANTIATE_IMAGE(T) template class Image<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_INSTANTIATE_IMAGE)

} // namespace DataObjects
