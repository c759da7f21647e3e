#pragma once

namespace DataObjects {

//! Keeps memory that a plane views alive for as long as the plane lives.
//!
//! A plane built on a holder takes the holder's address as its pixels and, just before it
//! destroys the holder, calls Release() once, so that the holder can hand the memory back to
//! whoever lent it.
class I_ImageMemory
{
public:
    virtual ~I_ImageMemory();
    //! The address of the first pixel.
    virtual void * GetAddress() const = 0;
    virtual void Release() = 0;

protected:
    I_ImageMemory() = default;
    I_ImageMemory(I_ImageMemory const &) = default;
    I_ImageMemory & operator=(I_ImageMemory const &) = default;
};

} // namespace DataObjects
