#pragma once

#include "framestore/DataType.h"

#include <string>

namespace FrameStore {

class I_Component;
class I_Frame;

//! Adds a typed scalar component of that name and element type to the frame, one zeroed plane
//! per z, and returns it; an existing one of the same name and type is returned as it is.
//! Raises Basis::InvalidRequest for a null frame, a name taken by another component or type,
//! or DT_UNKNOWN.
I_Component * CreateTypedScalarInFrame(I_Frame * frame, std::string const & name, E_DataType type);

//! Access to one typed scalar component of a frame by name.
class C_TypedScalarFrame
{
public:
    C_TypedScalarFrame(I_Frame * frame, std::string name);

    bool IsExisting() const;
    //! The component when z is one of the frame's planes; null otherwise or when absent.
    I_Component * GetComponent(unsigned int z) const;
    //! Gives the component a linear scale; nothing when it does not exist.
    void SetLinearScale(double factor, double offset, std::string const & unit, std::string const & description);

private:
    I_Component * Find() const;

    I_Frame * m_frame;
    std::string m_name;
};

} // namespace FrameStore
