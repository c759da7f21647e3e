#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <boost/shared_ptr.hpp>

#include <vector>

namespace Basis::Parameter {

//! A small tree of named parameters: each node has a name, an optional value and ordered
//! children. Operations such as import and export read their options from one.
//!
//! Paths address descendants with dots: tree.Set("Compression.Level", 6) creates the node
//! "Compression" if needed and gives its child "Level" the value 6. A path with an empty
//! segment is refused with Basis::InvalidArgumentError.
class C_Tree
{
public:
    using Ptr = boost::shared_ptr<C_Tree>;

    static Ptr Create(QString name = {});
    explicit C_Tree(QString name = {});

    QString const & GetName() const { return m_name; }
    bool HasValue() const { return m_value.isValid(); }
    QVariant const & GetValue() const { return m_value; }
    void SetValue(QVariant value) { m_value = std::move(value); }

    void Set(QString const & path, QVariant const & value);
    //! The value at path; an invalid QVariant when the node is absent or has no value.
    QVariant Get(QString const & path) const;
    //! The value at path converted to T, or fallback when absent or not convertible.
    template <class T>
    T Get(QString const & path, T const & fallback) const
    {
        QVariant const value = Get(path);
        return value.isValid() && value.canConvert<T>() ? value.value<T>() : fallback;
    }
    bool Contains(QString const & path) const;
    //! Removes the node at path with its subtree; false when there was none.
    bool Remove(QString const & path);

    //! The direct child of that name, or null.
    Ptr GetChild(QString const & name) const;
    //! The direct child of that name, created at the end when absent.
    Ptr AddChild(QString const & name);
    QStringList GetChildNames() const;

private:
    C_Tree const * Find(QStringList const & segments) const;

    QString m_name;
    QVariant m_value;
    std::vector<Ptr> m_children;
};

} // namespace Basis::Parameter
