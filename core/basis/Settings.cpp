#include "basis/Settings.h"

#include "basis/Logger.h"
#include "basis/Throw.h"

#include <QFile>
#include <QSaveFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace Storage {

Settings::Settings()
    : m_report(std::make_shared<QStringList>())
{
}

Settings::Settings(Settings const & other)
    : m_class(other.m_class)
    , m_version(other.m_version)
    , m_value(other.m_value)
    , m_report(std::make_shared<QStringList>(*other.m_report))
{
    for (auto const & [key, nodes] : other.m_collections) {
        auto & copies = m_collections[key];
        for (Ptr const & node : nodes) {
            copies.push_back(std::make_shared<Settings>(*node));
            copies.back()->AdoptReport(m_report);
        }
    }
}

Settings & Settings::operator=(Settings const & other)
{
    if (this != &other) {
        Settings copy(other);
        m_class = std::move(copy.m_class);
        m_version = copy.m_version;
        m_value = std::move(copy.m_value);
        m_collections = std::move(copy.m_collections);
        *m_report = *copy.m_report;
        AdoptReport(m_report);
    }
    return *this;
}

Settings::~Settings() = default;

void Settings::AdoptReport(std::shared_ptr<QStringList> const & report)
{
    m_report = report;
    for (auto & entry : m_collections)
        for (Ptr const & node : entry.second)
            node->AdoptReport(report);
}

void Settings::SetVersion(int version) { m_version = version; }
int Settings::GetVersion() const { return m_version; }
void Settings::SetClass(QString const & className) { m_class = className; }
bool Settings::IsClass(QString const & className) const { return m_class == className; }

void Settings::ReportError(QString const & message) const
{
    m_report->append(message);
    Basis::Logging::Logger::Instance().Write(
        {Basis::Logging::Severity::Warning, QStringLiteral("Storage::Settings"),
         m_class.isEmpty() ? message : m_class + QLatin1String(": ") + message, {}, 0, {}});
}

std::uint64_t Settings::GetCollectionSize(QString const & key) const
{
    auto const it = m_collections.find(key);
    return it == m_collections.end() ? 0 : it->second.size();
}

bool Settings::Contains(QString const & key) const { return m_collections.count(key) != 0; }

Settings::Ptr Settings::NewNode() const
{
    auto node = std::make_shared<Settings>();
    node->m_report = m_report;
    return node;
}

Settings::Ptr Settings::CreateChild(QString const & key, std::uint64_t index)
{
    std::uint64_t const size = GetCollectionSize(key);
    if (index > size)
        BASIS_THROW(Basis::OutOfRangeError,
                    "Index " << qulonglong(index) << " is beyond the " << qulonglong(size) << " nodes under '" << key << "'");
    auto & nodes = m_collections[key];
    Ptr node = NewNode();
    if (index == size)
        nodes.push_back(node);
    else
        nodes[index] = node;
    return node;
}

Settings::Ptr Settings::GetChild(QString const & key, std::uint64_t index)
{
    auto const it = m_collections.find(key);
    return it == m_collections.end() || index >= it->second.size() ? Ptr() : it->second[index];
}

Settings::ConstPtr Settings::GetChild(QString const & key, std::uint64_t index) const
{
    return const_cast<Settings *>(this)->GetChild(key, index);
}

void Settings::SetValue(QString const & key, QVariant value)
{
    Ptr node = NewNode();
    node->m_value = std::move(value);
    m_collections[key] = {node};
}

void Settings::Set(QString const & key, QString const & value) { SetValue(key, value); }
void Settings::Set(QString const & key, int value) { SetValue(key, value); }
void Settings::Set(QString const & key, bool value) { SetValue(key, value); }
void Settings::Set(QString const & key, double value) { SetValue(key, value); }
void Settings::Set(QString const & key, float value) { SetValue(key, value); }

QVariant Settings::GetConverted(QString const & key, int type) const
{
    ConstPtr const node = GetChild(key, 0);
    if (!node || !node->m_value.isValid())
        BASIS_THROW(Basis::InvalidArgumentError, "No value under the key '" << key << "'");
    QVariant value = node->m_value;
    if (!value.convert(type))
        BASIS_THROW(Basis::InvalidArgumentError, "The value under the key '" << key << "' cannot be read as "
                                                     << QMetaType::typeName(type));
    return value;
}

QString Settings::GetClass(QString const & key, std::uint64_t index) const
{
    ConstPtr const node = GetChild(key, index);
    return node ? node->m_class : QString();
}

std::uint64_t Settings::GetNextCollectionIndex(QString const & key) const { return GetCollectionSize(key); }

QStringList Settings::GetKeys() const
{
    QStringList keys;
    for (auto const & entry : m_collections)
        keys << entry.first;
    return keys;
}

bool operator==(Settings const & a, Settings const & b)
{
    if (a.m_class != b.m_class || a.m_version != b.m_version || a.m_value.userType() != b.m_value.userType()
        || a.m_value != b.m_value || a.m_collections.size() != b.m_collections.size())
        return false;
    for (auto ia = a.m_collections.begin(), ib = b.m_collections.begin(); ia != a.m_collections.end(); ++ia, ++ib) {
        if (ia->first != ib->first || ia->second.size() != ib->second.size())
            return false;
        for (std::size_t i = 0; i < ia->second.size(); ++i)
            if (*ia->second[i] != *ib->second[i])
                return false;
    }
    return true;
}

// The XML form of a tree; the format is described in docs/settings-format.md.
class SettingsXml
{
public:
    static constexpr char const * FormatVersion = "1";

    static void Write(QXmlStreamWriter & xml, Settings const & node, QString const * key)
    {
        xml.writeStartElement(QStringLiteral("Node"));
        if (key)
            xml.writeAttribute(QStringLiteral("key"), *key);
        if (!node.m_class.isEmpty())
            xml.writeAttribute(QStringLiteral("class"), node.m_class);
        if (node.m_version != 0)
            xml.writeAttribute(QStringLiteral("version"), QString::number(node.m_version));
        if (node.m_value.isValid())
            WriteValue(xml, node.m_value);
        for (auto const & [childKey, children] : node.m_collections)
            for (Settings::Ptr const & child : children)
                Write(xml, *child, &childKey);
        xml.writeEndElement();
    }

    static Settings::Ptr Read(QXmlStreamReader & xml, QString const & path)
    {
        auto node = std::make_shared<Settings>();
        QXmlStreamAttributes const attributes = xml.attributes();
        node->m_class = attributes.value(QLatin1String("class")).toString();
        if (attributes.hasAttribute(QLatin1String("version")))
            node->m_version = ToNumber<int>(xml, path, attributes.value(QLatin1String("version")).toString(), "int");
        if (attributes.hasAttribute(QLatin1String("type"))) {
            node->m_value = ReadValue(xml, path, attributes);
            return node;
        }
        while (xml.readNextStartElement()) {
            if (xml.name() != QLatin1String("Node"))
                Fail(xml, path, "unexpected element <" + xml.name().toString() + ">");
            if (!xml.attributes().hasAttribute(QLatin1String("key")))
                Fail(xml, path, QStringLiteral("a child node has no key"));
            QString const key = xml.attributes().value(QLatin1String("key")).toString();
            node->m_collections[key].push_back(Read(xml, path));
        }
        CheckReader(xml, path);
        return node;
    }

    [[noreturn]] static void Fail(QXmlStreamReader const & xml, QString const & path, QString const & what)
    {
        BASIS_THROW(Basis::FileError, "Settings file '" << path << "', line " << xml.lineNumber() << ", column "
                                                        << xml.columnNumber() << ": " << what);
    }

    static void CheckReader(QXmlStreamReader const & xml, QString const & path)
    {
        if (xml.hasError())
            Fail(xml, path, xml.errorString());
    }

private:
    // Texts that XML cannot carry as they are (control characters, and carriage returns, which
    // every parser turns into line feeds) are written as base64 of their UTF-8 form.
    static bool NeedsEncoding(QString const & text)
    {
        for (QChar c : text) {
            ushort const u = c.unicode();
            if ((u < 0x20 && u != '\t' && u != '\n') || u == 0xFFFE || u == 0xFFFF || c.isSurrogate())
                return true;
        }
        return false;
    }

    static void WriteValue(QXmlStreamWriter & xml, QVariant const & value)
    {
        switch (value.userType()) {
        case QMetaType::QString: {
            QString const text = value.toString();
            xml.writeAttribute(QStringLiteral("type"), QStringLiteral("string"));
            if (NeedsEncoding(text)) {
                xml.writeAttribute(QStringLiteral("encoding"), QStringLiteral("base64"));
                xml.writeCharacters(QString::fromLatin1(text.toUtf8().toBase64()));
            } else {
                xml.writeCharacters(text);
            }
            break;
        }
        case QMetaType::Int:
            xml.writeAttribute(QStringLiteral("type"), QStringLiteral("int"));
            xml.writeCharacters(QString::number(value.toInt()));
            break;
        case QMetaType::Bool:
            xml.writeAttribute(QStringLiteral("type"), QStringLiteral("bool"));
            xml.writeCharacters(value.toBool() ? QStringLiteral("true") : QStringLiteral("false"));
            break;
        case QMetaType::Double:
            // The shortest text that reads back as the very same double.
            xml.writeAttribute(QStringLiteral("type"), QStringLiteral("double"));
            xml.writeCharacters(QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest));
            break;
        case QMetaType::Float:
            xml.writeAttribute(QStringLiteral("type"), QStringLiteral("float"));
            xml.writeCharacters(QString::number(double(value.toFloat()), 'g', QLocale::FloatingPointShortest));
            break;
        default:
            break; // Set offers no other type
        }
    }

    template <class T>
    static T ToNumber(QXmlStreamReader const & xml, QString const & path, QString const & text, char const * type)
    {
        bool ok = false;
        T value{};
        if constexpr (std::is_same_v<T, int>)
            value = text.toInt(&ok);
        else
            value = T(text.toDouble(&ok));
        if (!ok)
            Fail(xml, path, QStringLiteral("'%1' is not a valid %2").arg(text, QLatin1String(type)));
        return value;
    }

    static QVariant ReadValue(QXmlStreamReader & xml, QString const & path, QXmlStreamAttributes const & attributes)
    {
        QString const type = attributes.value(QLatin1String("type")).toString();
        bool const base64 = attributes.value(QLatin1String("encoding")) == QLatin1String("base64");
        QString const text = xml.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
        CheckReader(xml, path);
        if (type == QLatin1String("string")) {
            if (!base64)
                return text;
            QByteArray const bytes = QByteArray::fromBase64(text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
            if (bytes.isEmpty() && !text.isEmpty())
                Fail(xml, path, QStringLiteral("invalid base64 text"));
            return QString::fromUtf8(bytes);
        }
        if (type == QLatin1String("int"))
            return ToNumber<int>(xml, path, text, "int");
        if (type == QLatin1String("double"))
            return ToNumber<double>(xml, path, text, "double");
        if (type == QLatin1String("float"))
            return ToNumber<float>(xml, path, text, "float");
        if (type == QLatin1String("bool")) {
            if (text != QLatin1String("true") && text != QLatin1String("false"))
                Fail(xml, path, QStringLiteral("'%1' is not a valid bool").arg(text));
            return text == QLatin1String("true");
        }
        Fail(xml, path, QStringLiteral("unknown value type '%1'").arg(type));
    }
};

void Settings::WriteToFile(QString const & path) const
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        BASIS_THROW(Basis::FileError, "Cannot write settings file '" << path << "': " << file.errorString());
    QXmlStreamWriter xml(&file);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("Settings"));
    xml.writeAttribute(QStringLiteral("format"), QLatin1String(SettingsXml::FormatVersion));
    SettingsXml::Write(xml, *this, nullptr);
    xml.writeEndElement();
    xml.writeEndDocument();
    if (xml.hasError() || !file.commit())
        BASIS_THROW(Basis::FileError, "Cannot write settings file '" << path << "': " << file.errorString());
}

void Settings::ReadFromFile(QString const & path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        BASIS_THROW(Basis::FileError, "Cannot read settings file '" << path << "': " << file.errorString());
    QXmlStreamReader xml(&file);
    if (file.size() == 0)
        SettingsXml::Fail(xml, path, QStringLiteral("the file is empty"));
    if (!xml.readNextStartElement())
        SettingsXml::CheckReader(xml, path);
    if (xml.name() != QLatin1String("Settings"))
        SettingsXml::Fail(xml, path, "not a settings file (root element <" + xml.name().toString() + ">)");
    QStringRef const format = xml.attributes().value(QLatin1String("format"));
    if (format != QLatin1String(SettingsXml::FormatVersion))
        SettingsXml::Fail(xml, path, "unsupported format '" + format.toString() + "'");
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("Node")) {
        SettingsXml::CheckReader(xml, path);
        SettingsXml::Fail(xml, path, QStringLiteral("the root <Node> is missing"));
    }
    Settings::Ptr const root = SettingsXml::Read(xml, path);
    while (!xml.atEnd() && xml.readNext() != QXmlStreamReader::Invalid) {
        if (xml.isStartElement())
            SettingsXml::Fail(xml, path, "unexpected element <" + xml.name().toString() + ">");
    }
    SettingsXml::CheckReader(xml, path);

    // Only a completely read tree replaces this node.
    m_class = std::move(root->m_class);
    m_version = root->m_version;
    m_value = std::move(root->m_value);
    m_collections = std::move(root->m_collections);
    m_report->clear();
    AdoptReport(m_report);
}

I_SerializableSettings::~I_SerializableSettings() = default;

} // namespace Storage
