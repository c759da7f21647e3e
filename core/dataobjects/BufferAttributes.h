#pragma once

#include "dataobjects/AttributesContainer.h"
#include "dataobjects/LinearScale.h"
#include "framestore/DataType.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

namespace FrameStore {
class I_AttributeBase;
class I_Buffer;
class I_Frame;
} // namespace FrameStore

namespace DataObjects {

//! The attribute set of a buffer (its buffer-wide attributes) or of a frame, laid directly over
//! the FrameStore attribute tree: nothing is held here, every call reads or writes the tree, and
//! the buffer or frame must outlive the set.
//!
//! Scalars are stored as AT_STRING nodes holding their text, so an int 5 reads back as the
//! std::string "5". Lists are stored as AT_PLANE nodes holding a plane of one row of DT_WORD,
//! DT_INT, DT_FLOAT or DT_DOUBLE elements; a list is never converted to another element type.
//! Group nodes, which the tree makes for dotted names, are not attributes: they are neither
//! listed nor contained, and setting a value at a group's name puts a value node in its place
//! that keeps the group's members. Nodes of other kinds are contained but read as null.
//! GetAttributes lists in tree order. A failed Set may leave a new, empty node behind.
class C_BufferAttributes : public C_Attributes
{
public:
    explicit C_BufferAttributes(FrameStore::I_Buffer & buffer);
    explicit C_BufferAttributes(FrameStore::I_Frame & frame);
    //! Both sets then address the same tree.
    C_BufferAttributes(C_BufferAttributes const & other);
    //! Replaces the content of this tree by that of the other's, then addresses the other's tree.
    C_BufferAttributes & operator=(C_BufferAttributes const & other);
    ~C_BufferAttributes() override;

    void Set(C_Attribute const & attribute) override;
    void Set(std::string const & name, C_AttributeValue const & value) override;
    C_AttributeValue GetAttributeValue(std::string const & name) const override;
    C_Attribute GetAttribute(std::string const & name) const override;
    void Remove(std::string const & name) override;
    bool Contains(std::string const & name) const override;
    void Clear() override;
    std::unique_ptr<C_Attributes> Clone() const override;
    bool IsEmpty() const override;
    std::vector<C_Attribute> GetAttributes() const override;

private:
    FrameStore::I_AttributeBase * Root() const;
    //! The value node of that name, or null for none or a group.
    FrameStore::I_AttributeBase * Find(std::string const & name) const;
    FrameStore::I_AttributeBase * Create(std::string const & name, C_AttributeValue const & value);
    void RemoveNode(std::string const & name);

    FrameStore::I_Buffer * m_buffer;
    FrameStore::I_Frame * m_frame;
};

//! A buffer's attributes and scales read into memory: one entry per frame in every vector.
struct GlobalAndFrameAttributes
{
    C_AttributesContainer bufferAttributes;
    std::vector<C_AttributesContainer> frameAttributes;
    std::vector<LinearScale> scalesX;
    std::vector<LinearScale> scalesY;
    std::vector<LinearScale> scalesZ;
    std::vector<LinearScale> scalesI;
};

//! Copies of the buffer-wide attributes and of every frame's attributes and scales (see
//! GetScaleFromFrame for the failures of the scales).
GlobalAndFrameAttributes GetBufferAttributes(FrameStore::I_Buffer const & buffer);

//! The layout of a buffer as told by its frame 0.
struct BufferStructureInformation
{
    std::uint32_t frameCount = 0;
    std::uint32_t depth = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    FrameStore::E_DataType dataType = FrameStore::DT_UNKNOWN;
    bool isImage = false;
    bool isVector = false;
    bool isVector3C = false;
    bool hasMask = false;
    //! Grid spacing in x of a vector frame, 0 for other frames.
    std::uint32_t gridX = 0;
};

//! The buffer must have a frame: frame 0 is read unchecked.
BufferStructureInformation GetBufferStructureInformationForBuffer(FrameStore::I_Buffer const & buffer);

//! The acquisition phase (in degrees) or the acquisition time series (in microseconds) that a
//! buffer's first frame records.
struct AdcAttribute
{
    double value = 0.0;
    //! Empty when the frame records neither.
    QString unit;
};

//! AcqPhase of frame 0 if present, otherwise AcqTimeSeries; value 0 and an empty unit for a null
//! buffer, a buffer without frames or a frame with neither, and value 0 when the node holds no
//! text. The text is converted with std::stod, whose std::invalid_argument and
//! std::out_of_range pass to the caller unchanged.
AdcAttribute GetAdcAttribute(std::shared_ptr<FrameStore::I_Buffer const> buffer);

} // namespace DataObjects
