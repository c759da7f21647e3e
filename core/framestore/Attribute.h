#pragma once

#include "basis/TimeStamp.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace FrameStore {

class I_PlaneBase;

//! Kinds of attribute nodes. The codes are part of the file format.
enum E_AttributeKind : std::uint32_t {
    AT_GROUP = 0,     //!< no value; holds other attributes
    AT_INT = 1,       //!< signed 64-bit
    AT_UINT = 2,      //!< unsigned 64-bit
    AT_DOUBLE = 3,
    AT_STRING = 4,    //!< text, Latin-1
    AT_BOOL = 5,
    AT_TIMESTAMP = 6, //!< Basis::TimeStamp
    AT_PLANE = 7,     //!< a plane of numbers
    AT_BINARY = 8,    //!< raw bytes
};
constexpr std::uint32_t AttributeKindCount = 9;

//! A node of the attribute tree of a buffer or frame: a name, a kind, a value of that kind and
//! ordered child attributes. Names of nested attributes are joined with dots ("Camera.Gain").
class I_AttributeBase
{
public:
    virtual ~I_AttributeBase();
    virtual E_AttributeKind GetKind() const = 0;
    //! A deep copy with all children.
    virtual std::unique_ptr<I_AttributeBase> Clone() const = 0;

    std::string const & GetName() const { return m_name; }
    std::size_t GetChildCount() const { return m_children.size(); }
    I_AttributeBase * GetChild(std::size_t index) const { return m_children[index].get(); }
    //! The direct child of that name, or null.
    I_AttributeBase * FindChild(std::string const & name) const;
    //! The node at a dotted path below this one, or null. An empty path gives null.
    I_AttributeBase * Find(std::string const & path) const;
    //! Creates the node at a dotted path, making missing groups on the way; a node of another
    //! kind at the path is replaced (with its children). Null for an empty path segment or an
    //! unknown kind.
    I_AttributeBase * Create(std::string const & path, E_AttributeKind kind);
    //! Removes the node at a dotted path with its children; false when there was none.
    bool Remove(std::string const & path);
    void RemoveAllChildren() { m_children.clear(); }
    //! Takes over a node as the last child, replacing a child of the same name.
    I_AttributeBase * AdoptChild(std::unique_ptr<I_AttributeBase> child);

protected:
    explicit I_AttributeBase(std::string name) : m_name(std::move(name)) {}
    I_AttributeBase(I_AttributeBase const & other);
    I_AttributeBase & operator=(I_AttributeBase const &) = delete;

private:
    std::string m_name;
    std::vector<std::unique_ptr<I_AttributeBase>> m_children;
};

//! A node holding a value of type T: std::int64_t, std::uint64_t, double, std::string, bool,
//! Basis::TimeStamp or std::vector<std::uint8_t>.
template <class T>
class I_Attribute : public I_AttributeBase
{
public:
    virtual T const & GetValue() const = 0;
    virtual void SetValue(T const & value) = 0;

protected:
    using I_AttributeBase::I_AttributeBase;
};

//! A node holding a plane (a list of numbers); it may have none yet.
class I_AttributePlane : public I_AttributeBase
{
public:
    virtual I_PlaneBase * GetPlane() const = 0;
    //! Takes ownership; replaces and destroys the plane held before.
    virtual void SetPlane(I_PlaneBase * plane) = 0;

protected:
    using I_AttributeBase::I_AttributeBase;
};

//! A new detached node; null for an unknown kind.
std::unique_ptr<I_AttributeBase> CreateAttribute(std::string const & name, E_AttributeKind kind);

namespace Attributes {
//! Collects the nodes below node that carry values (groups are passed through, not listed),
//! with their full dotted names starting with prefix; with recursive false only the direct
//! children. Results are appended to names and nodes in tree order.
void GetList(I_AttributeBase const * node, bool recursive, std::string const & prefix,
             std::vector<std::string> & names, std::vector<I_AttributeBase *> & nodes);
} // namespace Attributes

} // namespace FrameStore
