#include "basis/Basis.h"
#include "dataobjects/DataObjects.h"
#include "framestore/FrameStore.h"
#include "math/Math.h"

int main()
{
    DataObjects::ImageData<float> plane(4, 4, 2.0f);
    DataObjects::ImageData<std::uint8_t> bytes(plane.GetSize());
    bytes.Assign(plane);
    return bytes(3, 3) == 2 && FrameStore::GetDataType<float>() == FrameStore::DT_FLOAT ? 0 : 1;
}
