#pragma once

#include <string>

namespace FrameStore {

class I_Frame;

//! Reads the attributes of a frame as texts.
class C_FrameAttributes
{
public:
    explicit C_FrameAttributes(I_Frame * frame);

    //! The text of the frame attribute of that (dotted) name: a text as it is, numbers, flags
    //! and time stamps in their usual text form; empty when the frame has no such attribute or
    //! it holds a plane, bytes or nothing.
    std::string GetString(std::string const & name) const;

private:
    I_Frame * m_frame;
};

} // namespace FrameStore
