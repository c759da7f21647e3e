#pragma once

#include "framestore/Attribute.h"
#include "framestore/Component.h"
#include "framestore/DataType.h"

#include <memory>
#include <string>
#include <vector>

namespace FrameStore {

class I_PlaneBase;
class I_Scale;

//! One frame of a buffer: width, height, depth (number of z-planes), named components with one
//! plane per z, the x, y, z and intensity scales, and an attribute tree. The kind of a frame
//! (image, vector, colour) is told by a dynamic cast to its interface.
//!
//! Absence is answered with null, never with an exception: a missing component, plane or
//! attribute is null.
class I_Frame
{
public:
    static std::string const COMPONENT_MASK;
    static std::string const COMPONENT_ENABLED;

    virtual ~I_Frame();

    //! Gives the frame a mask component of DT_BYTE planes and returns it: the given planes
    //! (taken over; one per z of the frame's size) or, for an empty list, planes with every
    //! element valid (1). A frame that has a mask keeps it. Null when the planes do not fit.
    virtual I_Component * CreateMaskComponent(std::vector<I_PlaneBase *> const & planes) = 0;
    virtual I_AttributeBase * FindAttribute(std::string const & name) const = 0;
    virtual I_AttributeBase * GetAttributeRoot() const = 0;
    //! Index of the first component of that name, or -1.
    virtual int GetComponentIndex(std::string const & name) const = 0;
    virtual I_Component * GetComponent(std::string const & name) const = 0;
    virtual I_PlaneBase * GetPlane(int componentIndex, unsigned int z) const = 0;
    //! Element type of the pixel planes (DT_FLOAT for vector frames).
    virtual E_DataType GetDataType() const = 0;
    virtual I_Scale * GetScaleI() const = 0;
    virtual I_Scale * GetScaleX() const = 0;
    virtual I_Scale * GetScaleY() const = 0;
    virtual I_Scale * GetScaleZ() const = 0;
    virtual unsigned int GetWidth() const = 0;
    virtual unsigned int GetHeight() const = 0;
    virtual unsigned int GetDepth() const = 0;
    virtual bool HasMask() const = 0;
    //! Makes the node at a dotted name, with groups on the way; see I_AttributeBase::Create.
    virtual I_AttributeBase * CreateAttribute(std::string const & name, E_AttributeKind kind) = 0;
    //! Sets the enable flag of one element; the flags start enabled for image frames. Positions
    //! outside the frame are ignored, and IsEnabled answers false for them.
    virtual void SetEnabled(unsigned int x, unsigned int y, unsigned int z, bool enabled) = 0;
    //! Takes ownership of the scale; a null scale is ignored.
    virtual void SetScaleX(I_Scale * scale) = 0;
    virtual void SetScaleY(I_Scale * scale) = 0;
    virtual void SetScaleZ(I_Scale * scale) = 0;
    virtual void SetScaleI(I_Scale * scale) = 0;

    virtual bool IsEnabled(unsigned int x, unsigned int y, unsigned int z) const = 0;
    virtual bool RemoveAttribute(std::string const & name) = 0;
    virtual unsigned int GetComponentCount() const = 0;
    virtual I_Component * GetComponentAt(unsigned int index) const = 0;
    //! Adds a typed scalar component of zeroed planes, or returns the one of that name and type.
    //! Raises Basis::InvalidRequest for the names of the frame's own components and when the
    //! name is taken by another component or type.
    virtual I_Component * AddTypedScalar(std::string const & name, E_DataType type) = 0;
    //! Names of the typed scalar components, in the order they were added.
    virtual std::vector<std::string> GetTypedScalarNames() const = 0;
    //! Removes a typed scalar or the mask; false when there is none of that name. Removing any
    //! other component raises Basis::InvalidRequest.
    virtual bool RemoveComponent(std::string const & name) = 0;
    //! A deep copy of the same kind.
    virtual std::unique_ptr<I_Frame> Clone() const = 0;

protected:
    I_Frame() = default;
    I_Frame(I_Frame const &) = default;
    I_Frame & operator=(I_Frame const &) = delete;
};

//! A frame of pixels: component COMPONENT_PIXEL, one plane per z.
class I_FrameImage : public virtual I_Frame
{
public:
    static std::string const COMPONENT_PIXEL;
};

//! A frame of colour pixels (DT_RGB); also an image frame.
class I_FrameRGB : public virtual I_FrameImage
{
};

//! A frame of vectors: per choice the components U, V (and W for 3C) of float planes, plus
//! enable flags (DT_BYTE) and active-choice codes (DT_INT), one plane per z each.
class I_FrameVector : public virtual I_Frame
{
public:
    static std::string const COMPONENT_U;
    static std::string const COMPONENT_V;
    static std::string const COMPONENT_W;
    static std::string const COMPONENT_ACTIVE_CHOICE;

    virtual unsigned int GetChoiceCount() const = 0;
    //! The component of that name and choice, or null.
    virtual I_Component * GetComponent(std::string const & name, unsigned int choice) const = 0;
    using I_Frame::GetComponent;
    //! Grid spacing in pixels.
    virtual unsigned int GetGridX() const = 0;
    virtual unsigned int GetGridY() const = 0;
    virtual unsigned int GetGridZ() const = 0;
    virtual void SetGridX(unsigned int grid) = 0;
    virtual void SetGridY(unsigned int grid) = 0;
    virtual void SetGridZ(unsigned int grid) = 0;
};

class I_FrameVector2C : public virtual I_FrameVector
{
};

class I_FrameVector3C : public virtual I_FrameVector
{
};

//! The kinds of frames, as GetFrameKind tells them and CreateFrameFromComponents builds them.
enum E_FrameKind : std::uint32_t { FK_IMAGE = 0, FK_RGB = 1, FK_VECTOR2C = 2, FK_VECTOR3C = 3 };

E_FrameKind GetFrameKind(I_Frame const & frame);

//! A frame of the kind assembled from complete components, taken over: the components of the
//! kind's layout (pixels; or U, V, W per choice with enable flags and active choices), each with
//! depth planes of width by height of its data type, plus any mask and typed scalars. Anything
//! missing, repeated or misshapen raises Basis::InvalidArgumentError naming it. Used to rebuild
//! frames read from files without copying their planes.
std::unique_ptr<I_Frame> CreateFrameFromComponents(E_FrameKind kind, unsigned int width, unsigned int height,
                                                   unsigned int depth, E_DataType type, unsigned int choices,
                                                   std::vector<std::unique_ptr<I_Component>> components);

//! A new image frame with zeroed planes, owned by the caller; null for DT_UNKNOWN or an unknown
//! code. DT_RGB gives a colour frame.
I_FrameImage * CreateImageFrame(E_DataType type, unsigned int width, unsigned int height, unsigned int depth);
//! A new image frame of depth 1 whose plane takes over memory from Basis::AllocateAligned; null
//! (and the memory left with the caller) for a null pointer or an unusable type.
I_FrameImage * CreateImageFrameWithPlaneMemory(E_DataType type, unsigned int width, unsigned int height,
                                               void * memory);
//! The same with one block per z.
I_FrameImage * CreateImageFrameWithPlaneMemory(E_DataType type, unsigned int width, unsigned int height,
                                               std::vector<void *> const & memory);
I_FrameVector2C * CreateVectorFrame2C(unsigned int width, unsigned int height, unsigned int depth,
                                      unsigned int choices);
I_FrameVector3C * CreateVectorFrame3C(unsigned int width, unsigned int height, unsigned int depth,
                                      unsigned int choices);

} // namespace FrameStore
