#include "dataobjects/ScalarField.h"

#include "dataobjects/TypeSwitch.h"

#include <utility>

namespace DataObjects {

template <class T>
ScalarField<T>::ScalarField(Math::Size2T<unsigned int> const & size)
    : m_plane(size)
{
}

template <class T>
ScalarField<T>::ScalarField(unsigned int width, unsigned int height)
    : m_plane(width, height)
{
}

template <class T>
ScalarField<T>::ScalarField(Math::Size2T<unsigned int> const & size, T value)
    : m_plane(size, value)
{
}

template <class T>
ScalarField<T>::ScalarField(ImageData<T> && plane)
    : m_plane(std::move(plane))
{
}

template <class T>
ScalarField<T>::~ScalarField() = default;

template <class T>
std::unique_ptr<ScalarFieldVariant> ScalarField<T>::CreateCopy() const
{
    auto copy = std::make_unique<ScalarField<T>>(ImageData<T>(m_plane));
    copy->m_scale = m_scale;
    return copy;
}

template <class T>
std::unique_ptr<ScalarFieldVariant> ScalarField<T>::MoveToNew()
{
    auto moved = std::make_unique<ScalarField<T>>(std::move(m_plane));
    moved->m_scale = m_scale;
    return moved;
}

template <class T>
void ScalarField<T>::Assign(ScalarFieldVariant const & source)
{
    Private::SwitchPixelType(source, "AssignTU(...)",
                             [this](auto const & typed) { m_plane.Assign(typed.GetImageData()); });
}

#define DATAOBJECTS_INSTANTIATE_SCALAR_FIELD(T) template class ScalarField<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_INSTANTIATE_SCALAR_FIELD)

} // namespace DataObjects
