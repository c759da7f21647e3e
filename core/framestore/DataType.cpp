#include "framestore/DataType.h"

namespace FrameStore {

std::uint64_t GetDataTypeSize(E_DataType type)
{
    switch (type) {
    case DT_BYTE: return 1;
    case DT_RGB: return 4;
    case DT_DOUBLE: return 8;
    case DT_FLOAT: return 4;
    case DT_INT: return 4;
    case DT_UINT: return 4;
    case DT_WORD: return 2;
    case DT_UNKNOWN: break;
    }
    return 0;
}

char const * GetDataTypeName(E_DataType type)
{
    switch (type) {
    case DT_UNKNOWN: return "DT_UNKNOWN";
    case DT_BYTE: return "DT_BYTE";
    case DT_RGB: return "DT_RGB";
    case DT_DOUBLE: return "DT_DOUBLE";
    case DT_FLOAT: return "DT_FLOAT";
    case DT_INT: return "DT_INT";
    case DT_UINT: return "DT_UINT";
    case DT_WORD: return "DT_WORD";
    }
    return "DT_UNKNOWN";
}

} // namespace FrameStore
