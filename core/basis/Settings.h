#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace Storage {

//! One node of a settings tree: a class name, a format version, and ordered collections of
//! child nodes under text keys. A typed value (QString, int, bool, double or float) is a leaf
//! node of its own: Set(key, value) makes the collection under key one value node, which
//! Get<T>(key) reads and GetChild(key, 0) returns.
//!
//! Objects write themselves into a node (SerializeTo) and read themselves back
//! (DeserializeFrom); a whole tree is saved to and loaded from an XML file (see
//! docs/settings-format.md). Reading objects never throws on odd content: problems are
//! reported through ReportError, which keeps the messages for the caller of the whole tree.
class Settings
{
public:
    using Ptr = std::shared_ptr<Settings>;
    using ConstPtr = std::shared_ptr<Settings const>;

    Settings();
    //! A deep copy with a report of its own.
    Settings(Settings const & other);
    Settings & operator=(Settings const & other);
    virtual ~Settings();

    virtual void SetVersion(int version);
    virtual int GetVersion() const;
    virtual void SetClass(QString const & className);
    virtual bool IsClass(QString const & className) const;
    //! Records a problem found in the tree and logs it as a warning; never throws.
    virtual void ReportError(QString const & message) const;
    virtual std::uint64_t GetCollectionSize(QString const & key) const;
    virtual bool Contains(QString const & key) const;
    //! A new empty node at index of the collection under key: appended at the end, or
    //! replacing the node at an existing index. An index beyond the end raises
    //! Basis::OutOfRangeError.
    virtual Ptr CreateChild(QString const & key, std::uint64_t index);
    //! The node at index of the collection under key, or null.
    virtual Ptr GetChild(QString const & key, std::uint64_t index);
    virtual ConstPtr GetChild(QString const & key, std::uint64_t index) const;
    virtual void Set(QString const & key, QString const & value);
    virtual void Set(QString const & key, int value);
    virtual void Set(QString const & key, bool value);
    virtual void Set(QString const & key, double value);
    virtual void Set(QString const & key, float value);
    //! Text literals are texts, not booleans.
    void Set(QString const & key, char const * value) { Set(key, QString::fromLatin1(value)); }

    //! The value under key, for T one of QString, int, bool, double, float. A missing value or
    //! one that cannot be read as T raises Basis::InvalidArgumentError.
    template <class T>
    T Get(QString const & key) const
    {
        static_assert(std::is_same_v<T, QString> || std::is_same_v<T, int> || std::is_same_v<T, bool>
                          || std::is_same_v<T, double> || std::is_same_v<T, float>,
                      "settings values are QString, int, bool, double or float");
        return GetConverted(key, qMetaTypeId<T>()).template value<T>();
    }
    //! The class name of the node at index of the collection under key; empty when absent.
    QString GetClass(QString const & key, std::uint64_t index) const;
    //! The index at which the next node of the collection under key is to be created.
    std::uint64_t GetNextCollectionIndex(QString const & key) const;

    QString const & GetClass() const { return m_class; }
    //! The value of a value node; invalid for other nodes.
    QVariant const & GetValue() const { return m_value; }
    QStringList GetKeys() const;
    //! Every message reported anywhere in the tree this node was created in or read from.
    QStringList GetReportedErrors() const { return *m_report; }

    //! Saves the tree below this node; the file is replaced only once it is complete.
    void WriteToFile(QString const & path) const;
    //! Replaces this node by the tree in the file. A missing or malformed file raises
    //! Basis::FileError that names what is wrong and where, and leaves this node unchanged.
    void ReadFromFile(QString const & path);

    friend bool operator==(Settings const & a, Settings const & b);
    friend bool operator!=(Settings const & a, Settings const & b) { return !(a == b); }

private:
    friend class SettingsXml;

    QVariant GetConverted(QString const & key, int type) const;
    void SetValue(QString const & key, QVariant value);
    Ptr NewNode() const;
    void AdoptReport(std::shared_ptr<QStringList> const & report);

    QString m_class;
    int m_version = 0;
    QVariant m_value;
    std::map<QString, std::vector<Ptr>> m_collections;
    std::shared_ptr<QStringList> m_report;
};

//! Base of objects that write themselves into a settings node and read themselves back.
class I_SerializableSettings
{
public:
    virtual ~I_SerializableSettings();
    virtual Settings & SerializeTo(Settings & settings) const = 0;
    virtual void DeserializeFrom(Settings const & settings) = 0;

protected:
    I_SerializableSettings() = default;
    I_SerializableSettings(I_SerializableSettings const &) = default;
    I_SerializableSettings & operator=(I_SerializableSettings const &) = default;
};

} // namespace Storage
