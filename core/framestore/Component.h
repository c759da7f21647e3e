#pragma once

#include "framestore/DataType.h"

#include <memory>
#include <string>
#include <vector>

namespace FrameStore {

class I_AttributeBase;
class I_PlaneBase;
class I_Scale;

//! What a component holds. The codes are part of the file format.
enum E_ComponentKind : std::uint32_t {
    CK_PIXEL = 0,
    CK_MASK = 1,
    CK_VECTOR = 2,        //!< U, V or W of one choice
    CK_ENABLED = 3,
    CK_ACTIVE_CHOICE = 4,
    CK_TYPED_SCALAR = 5,
};
constexpr std::uint32_t ComponentKindCount = 6;

//! A named part of a frame with one plane per z (vector components: per choice and z).
class I_Component
{
public:
    virtual ~I_Component();
    virtual std::string const & GetName() const = 0;
    virtual E_ComponentKind GetKind() const = 0;
    //! The choice of a vector component; 0 for every other kind.
    virtual unsigned int GetChoice() const = 0;
    virtual E_DataType GetDataType() const = 0;
    //! A node for settings of the component.
    virtual I_AttributeBase * GetSettings() const = 0;
    virtual unsigned int GetPlaneCount() const = 0;
    //! The plane at z, or null when z is out of range.
    virtual I_PlaneBase * GetPlane(unsigned int z) const = 0;
    //! The component's scale, or null.
    virtual I_Scale * GetScale() const = 0;
    //! Takes ownership; replaces the scale held before.
    virtual void SetScale(I_Scale * scale) = 0;
    virtual std::unique_ptr<I_Component> Clone() const = 0;

protected:
    I_Component() = default;
    I_Component(I_Component const &) = default;
    I_Component & operator=(I_Component const &) = default;
};

//! A component over the given planes, which it takes over.
std::unique_ptr<I_Component> CreateComponent(std::string const & name, E_ComponentKind kind, unsigned int choice,
                                             E_DataType type, std::vector<std::unique_ptr<I_PlaneBase>> planes);

} // namespace FrameStore
