#include "dataobjects/Mask.h"

#include "basis/Throw.h"

#include <cstddef>

namespace DataObjects {

Mask::Mask(Math::Size2T<unsigned int> const & size)
    : ImageData<bool>(size)
{
}

Mask::Mask(unsigned int width, unsigned int height)
    : ImageData<bool>(width, height)
{
}

Mask::Mask(Math::Size2T<unsigned int> const & size, bool valid)
    : ImageData<bool>(size, valid)
{
}

Mask::Mask(unsigned int width, unsigned int height, bool valid)
    : ImageData<bool>(width, height, valid)
{
}

Mask::Mask(bool * data, Math::Size2T<unsigned int> const & size, bool takeOwnership)
    : ImageData<bool>(data, size, takeOwnership)
{
}

Mask::Mask(bool * data, unsigned int width, unsigned int height, bool takeOwnership)
    : ImageData<bool>(data, width, height, takeOwnership)
{
}

Mask::Mask(std::unique_ptr<I_ImageMemory> memory, unsigned int width, unsigned int height, bool valid)
    : ImageData<bool>(std::move(memory), width, height)
{
    Fill(valid);
}

Mask::~Mask() = default;

Mask & Mask::operator=(Mask const & other)
{
    ImageData<bool>::operator=(other);
    return *this;
}

Mask & Mask::operator=(Mask && other)
{
    ImageData<bool>::MoveFrom(std::move(other));
    return *this;
}

Mask & Mask::operator=(bool valid)
{
    Fill(valid);
    return *this;
}

void Mask::DeepCopyFrom(Mask const & other)
{
    ImageData<bool>::operator=(other);
}

void Mask::MoveFrom(Mask && other)
{
    ImageData<bool>::MoveFrom(std::move(other));
}

void Mask::Assign(ImageDataVariant const & image)
{
    ImageData<bool>::Assign(image);
}

template <class Operation>
Mask & Mask::CombineWith(Mask const & other, Operation operation)
{
    if (GetSize() != other.GetSize())
        BASIS_THROW(Basis::VerificationFailed, "Other mask has wrong size.");
    // Bytes, not bools: frame planes may hold any non-zero byte for valid, and byte loops
    // vectorise. Writing 0 or 1 keeps the result a proper bool plane.
    auto * __restrict target = reinterpret_cast<unsigned char *>(GetRawPointer());
    auto const * __restrict source = other.Bytes();
    std::size_t const count = Math::ElementCount(GetSize());
    if (target == source) {
        for (std::size_t i = 0; i < count; ++i)
            target[i] = operation(target[i] != 0, target[i] != 0);
        return *this;
    }
    for (std::size_t i = 0; i < count; ++i)
        target[i] = operation(target[i] != 0, source[i] != 0);
    return *this;
}

Mask & Mask::operator&=(Mask const & other)
{
    return CombineWith(other, [](bool a, bool b) -> unsigned char { return a & b; });
}

Mask & Mask::operator|=(Mask const & other)
{
    return CombineWith(other, [](bool a, bool b) -> unsigned char { return a | b; });
}

Mask & Mask::operator^=(Mask const & other)
{
    return CombineWith(other, [](bool a, bool b) -> unsigned char { return a ^ b; });
}

} // namespace DataObjects
