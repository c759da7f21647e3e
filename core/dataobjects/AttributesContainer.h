#pragma once

#include "dataobjects/Attributes.h"

#include <map>
#include <memory>
#include <mutex>

namespace DataObjects {

//! The in-memory attribute set of the data objects, ordered by the byte order of the names.
//!
//! Values are held as clones, so derived values keep their type. The type code of a name never
//! changes while the name is present: setting a list over a scalar is refused with
//! Basis::Exception "Unknown C_AttributeValue::type" (remove the name first). Set and Remove
//! take the set's mutex, so several threads may set and remove at once; reads do not lock and
//! must not run while another thread writes.
class C_AttributesContainer : public C_Attributes
{
public:
    C_AttributesContainer();
    //! Deep copies; each set has its own mutex.
    C_AttributesContainer(C_AttributesContainer const & other);
    C_AttributesContainer & operator=(C_AttributesContainer const & other);
    C_AttributesContainer(C_AttributesContainer && other) noexcept;
    C_AttributesContainer & operator=(C_AttributesContainer && other) noexcept;
    //! An in-memory copy of any attribute set, for example of a buffer's.
    explicit C_AttributesContainer(C_Attributes const & source);
    ~C_AttributesContainer() override;

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
    std::map<std::string, std::unique_ptr<C_AttributeValue>> m_attributes;
    std::mutex m_mutex;
};

} // namespace DataObjects
