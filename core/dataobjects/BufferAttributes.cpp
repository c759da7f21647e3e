#include "dataobjects/BufferAttributes.h"

#include "basis/Throw.h"
#include "basis/Units.h"
#include "dataobjects/GetTimeValueFromAttributes.h"
#include "dataobjects/ScaleOnBuffer.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace DataObjects {

namespace {

using FrameStore::I_AttributeBase;
using FrameStore::I_PlaneBase;
using TextNode = FrameStore::I_Attribute<std::string>;

// Calls f with a value of the element type of a list plane; other planes are refused with the
// operation's message, which names the plane type.
template <class F>
decltype(auto) WithListElement(FrameStore::E_DataType type, char const * refusal, F && f)
{
    switch (type) {
    case FrameStore::DT_WORD: return f(std::uint16_t());
    case FrameStore::DT_INT: return f(std::int32_t());
    case FrameStore::DT_FLOAT: return f(float());
    case FrameStore::DT_DOUBLE: return f(double());
    case FrameStore::DT_UNKNOWN:
    case FrameStore::DT_BYTE:
    case FrameStore::DT_RGB:
        BASIS_THROW(Basis::Exception, refusal << FrameStore::GetDataTypeName(type) << " plane.");
    case FrameStore::DT_UINT: break;
    }
    BASIS_THROW(Basis::Exception, "Unsupported plane type");
}

FrameStore::E_DataType ListDataType(C_AttributeValue::Type type)
{
    switch (type) {
    case C_AttributeValue::T_LIST_UINT16: return FrameStore::DT_WORD;
    case C_AttributeValue::T_LIST_INT: return FrameStore::DT_INT;
    case C_AttributeValue::T_LIST_FLOAT: return FrameStore::DT_FLOAT;
    case C_AttributeValue::T_LIST_DOUBLE: return FrameStore::DT_DOUBLE;
    case C_AttributeValue::T_NULL:
    case C_AttributeValue::T_SCALAR: break;
    }
    return FrameStore::DT_UNKNOWN;
}

FrameStore::E_AttributeKind NodeKind(C_AttributeValue const & value)
{
    switch (value.GetType()) {
    case C_AttributeValue::T_NULL: BASIS_THROW(Basis::Exception, "Cannot convert to null type");
    case C_AttributeValue::T_SCALAR: return FrameStore::AT_STRING;
    case C_AttributeValue::T_LIST_UINT16:
    case C_AttributeValue::T_LIST_INT:
    case C_AttributeValue::T_LIST_FLOAT:
    case C_AttributeValue::T_LIST_DOUBLE: return FrameStore::AT_PLANE;
    }
    BASIS_THROW(Basis::Exception, "Unknown C_AttributeValue::type");
}

template <class E>
void WriteList(I_PlaneBase & plane, C_AttributeValue const & value)
{
    if (!value.IsList<E>())
        BASIS_THROW(Basis::VerificationFailed, "Cannot convert attribute value to plane's type.");
    if (plane.GetHeight() != 1)
        BASIS_THROW(Basis::VerificationFailed, "Invalid plane y-size");
    std::vector<E> const list = value.GetValue<std::vector<E>>();
    if (plane.GetWidth() != list.size())
        plane.Resize(unsigned(list.size()), 1);
    std::copy(list.begin(), list.end(), static_cast<E *>(plane.GetData()));
}

template <class E>
C_AttributeValue ReadList(I_PlaneBase const & plane)
{
    E const * const data = static_cast<E const *>(plane.GetData());
    return C_AttributeValue(std::vector<E>(data, data + std::size_t(plane.GetWidth()) * plane.GetHeight()));
}

void AssignPlane(FrameStore::I_AttributePlane & node, C_AttributeValue const & value)
{
    if (!value.IsList())
        BASIS_THROW(Basis::Exception, "Can't assign scalar attribute to AT_PLANE");
    if (!node.GetPlane())
        node.SetPlane(FrameStore::CreatePlane(ListDataType(value.GetType()), unsigned(value.Count()), 1));
    I_PlaneBase & plane = *node.GetPlane();
    WithListElement(plane.GetDataType(), "Can't assign C_AttributeValue object to ",
                    [&](auto element) { WriteList<decltype(element)>(plane, value); });
}

void Assign(I_AttributeBase & node, C_AttributeValue const & value)
{
    switch (node.GetKind()) {
    case FrameStore::AT_STRING:
        if (!value.IsScalar())
            BASIS_THROW(Basis::Exception, "Can't assign list attribute to AT_STRING");
        static_cast<TextNode &>(node).SetValue(value.GetValue<std::string>());
        return;
    case FrameStore::AT_PLANE: AssignPlane(static_cast<FrameStore::I_AttributePlane &>(node), value); return;
    case FrameStore::AT_GROUP:
    case FrameStore::AT_INT:
    case FrameStore::AT_UINT:
    case FrameStore::AT_DOUBLE:
    case FrameStore::AT_BOOL:
    case FrameStore::AT_TIMESTAMP:
    case FrameStore::AT_BINARY: BASIS_THROW(Basis::Exception, "Can't assign to unsupported attribute types");
    }
    BASIS_THROW(Basis::Exception, "Unsupported attribute type");
}

// Only text and plane nodes carry values the library understands; a plane node without a
// plane, and nodes of other kinds, read as null.
C_AttributeValue Read(I_AttributeBase const & node)
{
    if (node.GetKind() == FrameStore::AT_STRING)
        return C_AttributeValue(static_cast<TextNode const &>(node).GetValue());
    if (node.GetKind() != FrameStore::AT_PLANE)
        return {};
    I_PlaneBase const * const plane = static_cast<FrameStore::I_AttributePlane const &>(node).GetPlane();
    if (!plane)
        return {};
    return WithListElement(plane->GetDataType(), "Can't create C_AttributeValue object from ",
                           [&](auto element) { return ReadList<decltype(element)>(*plane); });
}

// The value nodes below root with their full names, in tree order.
std::vector<std::pair<std::string, I_AttributeBase *>> List(I_AttributeBase const * root)
{
    std::vector<std::string> names;
    std::vector<I_AttributeBase *> nodes;
    if (root)
        FrameStore::Attributes::GetList(root, true, std::string(), names, nodes);
    std::vector<std::pair<std::string, I_AttributeBase *>> listed;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (!nodes[i]->GetName().empty())
            listed.emplace_back(std::move(names[i]), nodes[i]);
    return listed;
}

// The standard text-to-double conversion, with the failure texts the suite has always shown.
double ParseDouble(std::string const & text)
{
    try {
        return std::stod(text);
    } catch (std::invalid_argument const &) {
        throw std::invalid_argument("invalid stod argument");
    } catch (std::out_of_range const &) {
        throw std::out_of_range("stod argument out of range");
    }
}

bool StartsWith(std::string const & text, std::string const & prefix)
{
    return text.compare(0, prefix.size(), prefix) == 0;
}

} // namespace

C_BufferAttributes::C_BufferAttributes(FrameStore::I_Buffer & buffer)
    : m_buffer(&buffer)
    , m_frame(nullptr)
{
}

C_BufferAttributes::C_BufferAttributes(FrameStore::I_Frame & frame)
    : m_buffer(nullptr)
    , m_frame(&frame)
{
}

C_BufferAttributes::C_BufferAttributes(C_BufferAttributes const & other) = default;

C_BufferAttributes & C_BufferAttributes::operator=(C_BufferAttributes const & other)
{
    if (Root() != other.Root()) {
        // Clear and merge with overwriting, which into an empty tree is a Set of each attribute.
        // The source is read first, so that an unreadable source leaves this tree as it was.
        std::vector<C_Attribute> const attributes = other.GetAttributes();
        Clear();
        for (C_Attribute const & attribute : attributes)
            Set(attribute);
    }
    m_buffer = other.m_buffer;
    m_frame = other.m_frame;
    return *this;
}

C_BufferAttributes::~C_BufferAttributes() = default;

I_AttributeBase * C_BufferAttributes::Root() const
{
    return m_buffer ? m_buffer->GetAttributeRoot() : m_frame->GetAttributeRoot();
}

I_AttributeBase * C_BufferAttributes::Find(std::string const & name) const
{
    if (name.empty())
        BASIS_THROW(Basis::InvalidArgumentError, "Empty name");
    I_AttributeBase * const node = m_buffer ? m_buffer->FindAttribute(name) : m_frame->FindAttribute(name);
    // Groups only hold the members of dotted names.
    return node && node->GetKind() != FrameStore::AT_GROUP ? node : nullptr;
}

I_AttributeBase * C_BufferAttributes::Create(std::string const & name, C_AttributeValue const & value)
{
    FrameStore::E_AttributeKind const kind = NodeKind(value);
    // A group at the name gives way to the new node and keeps its members.
    I_AttributeBase * const node =
        m_buffer ? m_buffer->CreateAttribute(name, kind) : m_frame->CreateAttribute(name, kind);
    if (!node)
        BASIS_THROW(Basis::InvalidArgumentError, "Invalid attribute name " << name);
    return node;
}

void C_BufferAttributes::RemoveNode(std::string const & name)
{
    if (m_buffer)
        m_buffer->RemoveAttribute(name);
    else
        m_frame->RemoveAttribute(name);
}

void C_BufferAttributes::Set(C_Attribute const & attribute) { Set(attribute.GetName(), attribute.GetValue()); }

void C_BufferAttributes::Set(std::string const & name, C_AttributeValue const & value)
{
    if (value.IsNull()) {
        Remove(name);
        return;
    }
    I_AttributeBase * node = Find(name);
    if (!node)
        node = Create(name, value);
    Assign(*node, value);
}

C_AttributeValue C_BufferAttributes::GetAttributeValue(std::string const & name) const
{
    if (name.empty())
        BASIS_THROW(Basis::InvalidArgumentError, "Empty name.");
    I_AttributeBase const * const node = Find(name);
    return node ? Read(*node) : C_AttributeValue();
}

C_Attribute C_BufferAttributes::GetAttribute(std::string const & name) const
{
    return {name, GetAttributeValue(name)};
}

// A node goes with its children, which are exactly its dotted members.
void C_BufferAttributes::Remove(std::string const & name)
{
    if (name.empty())
        BASIS_THROW(Basis::InvalidArgumentError, "Empty name");
    std::size_t const asterisk = name.find('*');
    if (asterisk == std::string::npos) {
        RemoveNode(name);
        return;
    }
    std::string const prefix = name.substr(0, asterisk);
    // Only the names are used once removing starts: a removed node takes its members along.
    for (auto const & listed : List(Root()))
        if (StartsWith(listed.first, prefix))
            RemoveNode(listed.first);
}

bool C_BufferAttributes::Contains(std::string const & name) const { return Find(name) != nullptr; }

void C_BufferAttributes::Clear()
{
    if (I_AttributeBase * const root = Root())
        root->RemoveAllChildren();
}

std::unique_ptr<C_Attributes> C_BufferAttributes::Clone() const { return std::make_unique<C_BufferAttributes>(*this); }

bool C_BufferAttributes::IsEmpty() const { return List(Root()).empty(); }

std::vector<C_Attribute> C_BufferAttributes::GetAttributes() const
{
    std::vector<C_Attribute> attributes;
    for (auto const & [name, node] : List(Root()))
        attributes.emplace_back(name, Read(*node));
    return attributes;
}

GlobalAndFrameAttributes GetBufferAttributes(FrameStore::I_Buffer const & buffer)
{
    GlobalAndFrameAttributes result;
    // Only read here, so a const buffer may be viewed.
    result.bufferAttributes = C_AttributesContainer(C_BufferAttributes(const_cast<FrameStore::I_Buffer &>(buffer)));
    for (unsigned int i = 0; i < buffer.GetFrameCount(); ++i) {
        FrameStore::I_Frame & frame = *buffer.GetFrame(i);
        result.frameAttributes.emplace_back(C_BufferAttributes(frame));
        result.scalesX.push_back(GetScaleFromFrame(frame, ScaleX));
        result.scalesY.push_back(GetScaleFromFrame(frame, ScaleY));
        result.scalesZ.push_back(GetScaleFromFrame(frame, ScaleZ));
        result.scalesI.push_back(GetScaleFromFrame(frame, ScaleI));
    }
    return result;
}

BufferStructureInformation GetBufferStructureInformationForBuffer(FrameStore::I_Buffer const & buffer)
{
    // An empty buffer is the caller's error; it is refused rather than read.
    if (buffer.GetFrameCount() == 0)
        BASIS_THROW(Basis::VerificationFailed, "Buffer has no frames");
    FrameStore::I_Frame const & frame = *buffer.GetFrame(0);
    auto const * const vector = dynamic_cast<FrameStore::I_FrameVector const *>(&frame);
    BufferStructureInformation info;
    info.frameCount = buffer.GetFrameCount();
    info.depth = frame.GetDepth();
    info.width = frame.GetWidth();
    info.height = frame.GetHeight();
    info.dataType = frame.GetDataType();
    info.isImage = dynamic_cast<FrameStore::I_FrameImage const *>(&frame) != nullptr;
    info.isVector = vector != nullptr;
    info.isVector3C = dynamic_cast<FrameStore::I_FrameVector3C const *>(&frame) != nullptr;
    info.hasMask = frame.HasMask();
    info.gridX = vector ? vector->GetGridX() : 0;
    return info;
}

AdcAttribute GetAdcAttribute(std::shared_ptr<FrameStore::I_Buffer const> buffer)
{
    AdcAttribute adc;
    if (!buffer || buffer->GetFrameCount() == 0)
        return adc;
    FrameStore::I_Frame const & frame = *buffer->GetFrame(0);
    I_AttributeBase const * node = frame.FindAttribute(TimeAttributeNames::AcqPhase);
    if (node) {
        adc.unit = Basis::AngleUnits::Degree;
    } else if ((node = frame.FindAttribute(TimeAttributeNames::AcqTimeSeries))) {
        adc.unit = Basis::TimeUnits::Microsecond;
    } else {
        return adc;
    }
    if (node->GetKind() == FrameStore::AT_STRING)
        adc.value = ParseDouble(static_cast<TextNode const &>(*node).GetValue());
    return adc;
}

} // namespace DataObjects
