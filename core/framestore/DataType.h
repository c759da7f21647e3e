#pragma once

#include <cstdint>
#include <type_traits>

namespace FrameStore {

//! Element type of a plane. The codes are part of the file format and of the suite's
//! interfaces and never change.
enum E_DataType : std::uint32_t {
    DT_UNKNOWN = 0,
    DT_BYTE = 1,   //!< unsigned 8-bit
    DT_RGB = 2,    //!< colour pixel, packed 0x00RRGGBB in 32 bits
    DT_DOUBLE = 3, //!< 64-bit float
    DT_FLOAT = 4,  //!< 32-bit float
    DT_INT = 5,    //!< signed 32-bit
    DT_UINT = 6,   //!< unsigned 32-bit
    DT_WORD = 7,   //!< unsigned 16-bit
};

//! The data type of an element type; only the six pixel types have one.
template <class T>
constexpr E_DataType GetDataType()
{
    if constexpr (std::is_same_v<T, float>)
        return DT_FLOAT;
    else if constexpr (std::is_same_v<T, std::uint16_t>)
        return DT_WORD;
    else if constexpr (std::is_same_v<T, double>)
        return DT_DOUBLE;
    else if constexpr (std::is_same_v<T, std::uint8_t>)
        return DT_BYTE;
    else if constexpr (std::is_same_v<T, std::int32_t>)
        return DT_INT;
    else if constexpr (std::is_same_v<T, std::uint32_t>)
        return DT_UINT;
    else
        static_assert(sizeof(T) == 0, "no FrameStore data type for this element type");
}

//! Bytes per element; 0 for DT_UNKNOWN and for codes that are not data types.
std::uint64_t GetDataTypeSize(E_DataType type);

//! The name of a data type as it appears in files and messages ("DT_WORD").
char const * GetDataTypeName(E_DataType type);

} // namespace FrameStore
