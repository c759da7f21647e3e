#pragma once

#include "basis/Throw.h"
#include "dataobjects/ScalarField.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <map>
#include <memory>

namespace DataObjects {

//! The named scalar fields of an image or a vector field, all of the collection's grid size,
//! ordered by name. Fields are shared: a field handed out stays valid after it has been removed.
//! Adding under a name that is present replaces the entry.
//!
//! The operations are virtual so that a collection can live elsewhere, for example in the typed
//! scalar components of a frame.
class ScalarFields
{
public:
    using Mapping = std::map<QString, std::shared_ptr<ScalarFieldVariant>>;

    explicit ScalarFields(Math::Size2T<unsigned int> const & size);
    ScalarFields(unsigned int width, unsigned int height);
    //! Shares the fields; DeepCopyFrom copies them.
    ScalarFields(ScalarFields const & other);
    ScalarFields(ScalarFields && other) noexcept;
    ScalarFields & operator=(ScalarFields const & other);
    ScalarFields & operator=(ScalarFields && other) noexcept;
    virtual ~ScalarFields();
    //! Takes size and new copies of every field of the other collection; fields of other names
    //! are removed.
    void DeepCopyFrom(ScalarFields const & other);
    void MoveFrom(ScalarFields && other) noexcept;

    //! A new float field of the collection's size.
    virtual std::shared_ptr<ScalarField<float>> Add(QString const & name);
    //! A new field of the pixel type of type; Basis::Exception for any other type.
    virtual std::shared_ptr<ScalarFieldVariant> Add(FrameStore::E_DataType type, QString const & name);
    //! Stores a copy of the field, which must have the collection's size.
    virtual std::shared_ptr<ScalarFieldVariant> Add(QString const & name, ScalarFieldVariant const & field);
    //! Stores the field itself, taken over.
    virtual std::shared_ptr<ScalarFieldVariant> Add(QString const & name, ScalarFieldVariant && field);
    virtual std::shared_ptr<ScalarFieldVariant> Add(QString const & name, std::unique_ptr<ScalarFieldVariant> field);
    //! The field of that name; Basis::VerificationFailed when there is none.
    virtual std::shared_ptr<ScalarFieldVariant> Get(QString const & name);
    virtual std::shared_ptr<ScalarFieldVariant const> Get(QString const & name) const;
    //! Converts the field's values into the one of that name.
    virtual void Set(QString const & name, ScalarFieldVariant const & field);
    //! Nothing when there is no field of that name.
    virtual void Remove(QString const & name);
    virtual bool Contains(QString const & name) const;
    virtual std::uint64_t GetCount() const;
    virtual QStringList GetNames() const;
    virtual Math::Size2T<unsigned int> GetSizeOfScalarFields() const;
    virtual void Clear();
    virtual Mapping GetMapping() const;

    //! The field of that name as pixel type T; Basis::VerificationFailed when absent or of
    //! another type.
    template <class T>
    std::shared_ptr<ScalarField<T>> Get(QString const & name)
    {
        return Typed<ScalarField<T>>(Get(name), name);
    }
    template <class T>
    std::shared_ptr<ScalarField<T> const> Get(QString const & name) const
    {
        return Typed<ScalarField<T> const>(Get(name), name);
    }

protected:
    void CheckFieldSize(ScalarFieldVariant const & field) const;
    [[noreturn]] static void ThrowNotExisting(QString const & name);

private:
    template <class Field, class Variant>
    static std::shared_ptr<Field> Typed(std::shared_ptr<Variant> field, QString const & name)
    {
        auto typed = std::dynamic_pointer_cast<Field>(std::move(field));
        if (!typed)
            BASIS_THROW(Basis::VerificationFailed, "Scalar field '" << name << "' is not of given type");
        return typed;
    }

    Math::Size2T<unsigned int> m_size;
    Mapping m_fields;
};

} // namespace DataObjects
