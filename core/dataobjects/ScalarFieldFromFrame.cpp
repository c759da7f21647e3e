#include "dataobjects/ScalarFieldFromFrame.h"

#include "dataobjects/ScalarFieldMovedFromFrame.h"
#include "dataobjects/ScalarFieldOnFrame.h"
#include "dataobjects/ScalarFieldsOnFrame.h"
#include "dataobjects/TypeSwitch.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"
#include "framestore/TypedScalarFrame.h"

#include <vector>

namespace DataObjects {

namespace {

//! Plane z of the typed scalar, after the checks every reader makes.
FrameStore::I_PlaneBase & TypedScalarPlane(FrameStore::I_Frame & frame, std::string const & name, unsigned int z)
{
    FrameStore::C_TypedScalarFrame scalar(&frame, name);
    if (!scalar.IsExisting())
        BASIS_THROW(Basis::VerificationFailed, "No typed scalar of name '" << name << "' found.");
    if (z >= frame.GetDepth())
        BASIS_THROW(Basis::VerificationFailed, "Invalid plane index");
    return *scalar.GetComponent(z)->GetPlane(z);
}

//! Calls typedRead(tag) for the element type of the frame's scalar of that name.
template <class Read>
void SwitchScalarType(FrameStore::I_Frame & frame, std::string const & name, Read && typedRead)
{
    if (!FrameStore::C_TypedScalarFrame(&frame, name).IsExisting())
        BASIS_THROW(Basis::VerificationFailed, "No scalar field of name '" << name << "' found.");
    FrameStore::E_DataType const type = frame.GetComponent(name)->GetDataType();
    if (type == FrameStore::DT_RGB)
        BASIS_THROW(Basis::Exception, "RGB scalar field is not supported.");
    if (!Private::SwitchDataType(type, typedRead))
        BASIS_THROW(Basis::Exception, "Scalar field has unsupported data type");
}

} // namespace

std::unique_ptr<ScalarFieldVariant> GetScalarField(FrameStore::I_Frame & frame, std::string const & name,
                                                   unsigned int z)
{
    std::unique_ptr<ScalarFieldVariant> field;
    SwitchScalarType(frame, name, [&](auto tag) {
        field = std::make_unique<Private::ScalarFieldOnFrame<decltype(tag)>>(TypedScalarPlane(frame, name, z));
    });
    return field;
}

std::unique_ptr<ScalarFields> GetScalarFields(FrameStore::I_Frame & frame, unsigned int z)
{
    return std::make_unique<Private::ScalarFieldsOnFrame>(frame, z);
}

std::unique_ptr<ScalarFields> GetScalarFields(FrameStore::I_Frame && frame, unsigned int z)
{
    auto fields = std::make_unique<ScalarFields>(frame.GetWidth(), frame.GetHeight());
    MoveScalarFieldFromFrame(*fields, std::move(frame), z);
    return fields;
}

void MoveScalarFieldFromFrame(ScalarFields & fields, FrameStore::I_Frame && frame, unsigned int z)
{
    if (fields.GetSizeOfScalarFields() != Math::Size2T<unsigned int>(frame.GetWidth(), frame.GetHeight()))
        BASIS_THROW(Basis::VerificationFailed, "Source scalar field has wrong size.");
    std::vector<std::string> const names = frame.GetTypedScalarNames();
    // Every check first, so that a refusal takes nothing from the frame.
    for (std::string const & name : names)
        SwitchScalarType(frame, name, [&](auto) { TypedScalarPlane(frame, name, z); });
    for (std::string const & name : names) {
        SwitchScalarType(frame, name, [&](auto tag) {
            using T = decltype(tag);
            fields.Add(QString::fromLatin1(name.c_str(), int(name.size())),
                       std::make_unique<Private::ScalarFieldMovedFromFrame<T>>(
                           std::move(TypedScalarPlane(frame, name, z))));
        });
    }
}

} // namespace DataObjects
