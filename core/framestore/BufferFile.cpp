#include "framestore/BufferFile.h"

#include "basis/AlignedMemory.h"
#include "basis/DeveloperLogger.h"
#include "basis/SystemInfo.h"
#include "basis/Throw.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"
#include "framestore/Scale.h"

#include <QFile>
#include <QFileInfo>

#include <hdf5.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <mutex>
#include <string>
#include <vector>

#include <unistd.h>

// The layout is described in docs/buffer-file-format.md; keep the two in step.

namespace FrameStore {

namespace {

constexpr char FormatName[] = "FrameStore buffer";
constexpr std::int32_t FormatVersion = 1;
// Attribute trees nest; a damaged file must not recurse without end.
constexpr int MaximumAttributeDepth = 64;

// The HDF5 library of the distribution is not thread-safe: every call goes through this lock.
std::mutex & Hdf5Mutex()
{
    static std::mutex mutex;
    return mutex;
}

// Closes an HDF5 identifier when it goes out of scope.
class Handle
{
public:
    using Closer = herr_t (*)(hid_t);
    Handle() = default;
    Handle(hid_t id, Closer close) : m_id(id), m_close(close) {}
    Handle(Handle && other) noexcept : m_id(std::exchange(other.m_id, -1)), m_close(other.m_close) {}
    Handle & operator=(Handle && other) noexcept
    {
        std::swap(m_id, other.m_id);
        std::swap(m_close, other.m_close);
        return *this;
    }
    Handle(Handle const &) = delete;
    Handle & operator=(Handle const &) = delete;
    ~Handle()
    {
        if (m_id >= 0)
            m_close(m_id);
    }
    operator hid_t() const { return m_id; }
    bool IsValid() const { return m_id >= 0; }

private:
    hid_t m_id = -1;
    Closer m_close = nullptr;
};

hid_t NativeType(E_DataType type)
{
    switch (type) {
    case DT_BYTE: return H5T_NATIVE_UINT8;
    case DT_RGB: return H5T_NATIVE_UINT32;
    case DT_DOUBLE: return H5T_NATIVE_DOUBLE;
    case DT_FLOAT: return H5T_NATIVE_FLOAT;
    case DT_INT: return H5T_NATIVE_INT32;
    case DT_UINT: return H5T_NATIVE_UINT32;
    case DT_WORD: return H5T_NATIVE_UINT16;
    case DT_UNKNOWN: break;
    }
    return -1;
}

// Kind names of frames in the file.
constexpr char KindImage[] = "image";
constexpr char KindRGB[] = "rgb";
constexpr char KindVector2C[] = "vector2c";
constexpr char KindVector3C[] = "vector3c";

// ---------------------------------------------------------------------------------------------
// Writing

class Writer
{
public:
    Writer(QString path, int deflate) : m_path(std::move(path)), m_deflate(deflate) {}

    void Write(I_Buffer const & buffer, QString const & file)
    {
        QByteArray const name = QFile::encodeName(file);
        // The 1.8 format and later checksum every piece of metadata, which lets the reader tell a
        // damaged file from a good one before HDF5 interprets it.
        Handle const access(Check(H5Pcreate(H5P_FILE_ACCESS), "create file properties"), H5Pclose);
        Check(H5Pset_libver_bounds(access, H5F_LIBVER_V18, H5F_LIBVER_LATEST), "choose the file format");
        Handle const h5(Check(H5Fcreate(name.constData(), H5F_ACC_TRUNC, H5P_DEFAULT, access), "create the file"),
                        H5Fclose);
        WriteString(h5, "Format", FormatName);
        WriteScalar(h5, "FormatVersion", H5T_NATIVE_INT32, &FormatVersion);
        unsigned int const count = buffer.GetFrameCount();
        WriteScalar(h5, "FrameCount", H5T_NATIVE_UINT32, &count);
        WriteNode(CreateGroup(h5, "Attributes"), *buffer.GetAttributeRoot(), 0);
        Handle const frames = CreateGroup(h5, "Frames");
        for (unsigned int i = 0; i < count; ++i)
            WriteFrame(CreateGroup(frames, std::to_string(i)), *buffer.GetFrame(i));
        Check(H5Fflush(h5, H5F_SCOPE_LOCAL), "flush the file");
    }

private:
    template <class T>
    T Check(T result, char const * what) const
    {
        if (result < 0)
            BASIS_THROW(Basis::FileError, "Cannot write buffer file '" << m_path << "': failed to " << what);
        return result;
    }

    Handle CreateGroup(hid_t parent, std::string const & name) const
    {
        return {Check(H5Gcreate2(parent, name.c_str(), H5P_DEFAULT, m_groupProperties, H5P_DEFAULT), "create a group"),
                H5Gclose};
    }

    // Links and attributes stay in the checksummed object headers instead of moving to heaps,
    // whatever the number of frames.
    Handle GroupProperties() const
    {
        Handle properties(Check(H5Pcreate(H5P_GROUP_CREATE), "create group properties"), H5Pclose);
        Check(H5Pset_link_phase_change(properties, 65535, 65535), "keep links compact");
        Check(H5Pset_attr_phase_change(properties, 1024, 1024), "keep attributes compact");
        return properties;
    }

    void WriteScalar(hid_t location, char const * name, hid_t type, void const * value) const
    {
        Handle const space(Check(H5Screate(H5S_SCALAR), "create a data space"), H5Sclose);
        Handle const attribute(Check(H5Acreate2(location, name, type, space, H5P_DEFAULT, H5P_DEFAULT),
                                     "create an attribute"),
                               H5Aclose);
        Check(H5Awrite(attribute, type, value), "write an attribute");
    }

    void WriteUInt(hid_t location, char const * name, unsigned int value) const
    {
        WriteScalar(location, name, H5T_NATIVE_UINT32, &value);
    }

    // Texts are fixed-length strings of their bytes (Latin-1), stored in the attribute itself:
    // variable-length strings would live in HDF5's global heap, which carries no checksum.
    void WriteString(hid_t location, char const * name, std::string const & value) const
    {
        Handle const type(Check(H5Tcopy(H5T_C_S1), "copy a type"), H5Tclose);
        Check(H5Tset_size(type, std::max<std::size_t>(value.size(), 1)), "set a string size");
        Check(H5Tset_strpad(type, H5T_STR_NULLPAD), "set a string padding");
        std::string padded = value;
        padded.resize(std::max<std::size_t>(value.size(), 1), '\0');
        WriteScalar(location, name, type, padded.data());
    }

    void WriteDoubles(hid_t location, char const * name, std::vector<double> const & values) const
    {
        hsize_t const count = values.size();
        Handle const space(Check(H5Screate_simple(1, &count, nullptr), "create a data space"), H5Sclose);
        Handle const attribute(Check(H5Acreate2(location, name, H5T_NATIVE_DOUBLE, space, H5P_DEFAULT, H5P_DEFAULT),
                                     "create an attribute"),
                               H5Aclose);
        Check(H5Awrite(attribute, H5T_NATIVE_DOUBLE, values.data()), "write an attribute");
    }

    // A dataset of planes stacked along the first axis: [count][height][width].
    void WritePlanes(hid_t location, char const * name, E_DataType type, unsigned int width, unsigned int height,
                     std::vector<void const *> const & planes) const
    {
        hsize_t const dims[3] = {planes.size(), height, width};
        Handle const space(Check(H5Screate_simple(3, dims, nullptr), "create a data space"), H5Sclose);
        Handle const properties(Check(H5Pcreate(H5P_DATASET_CREATE), "create dataset properties"), H5Pclose);
        // Every element is written below; filling the dataset first would write it twice.
        Check(H5Pset_fill_time(properties, H5D_FILL_TIME_NEVER), "set the fill time");
        if (m_deflate > 0 && !planes.empty() && width > 0 && height > 0) {
            hsize_t const chunk[3] = {1, height, width};
            Check(H5Pset_chunk(properties, 3, chunk), "set the chunk size");
            Check(H5Pset_shuffle(properties), "set the shuffle filter");
            Check(H5Pset_deflate(properties, unsigned(m_deflate)), "set the deflate filter");
        }
        hid_t const native = NativeType(type);
        Handle const dataset(Check(H5Dcreate2(location, name, native, space, H5P_DEFAULT, properties, H5P_DEFAULT),
                                   "create a dataset"),
                             H5Dclose);
        hsize_t const planeDims[2] = {height, width};
        Handle const memory(Check(H5Screate_simple(2, planeDims, nullptr), "create a data space"), H5Sclose);
        for (std::size_t z = 0; z < planes.size(); ++z) {
            if (hsize_t(width) * height == 0)
                break;
            hsize_t const start[3] = {z, 0, 0};
            hsize_t const count[3] = {1, height, width};
            Check(H5Sselect_hyperslab(space, H5S_SELECT_SET, start, nullptr, count, nullptr), "select a plane");
            Check(H5Dwrite(dataset, native, memory, space, H5P_DEFAULT, planes[z]), "write a plane");
        }
        WriteUInt(dataset, "DataType", type);
    }

    void WriteScale(hid_t location, char const * name, I_Scale const & scale) const
    {
        Handle const group = CreateGroup(location, name);
        WriteUInt(group, "Kind", scale.GetKind());
        WriteString(group, "Unit", scale.GetUnit());
        WriteString(group, "Description", scale.GetDescription());
        WriteDoubles(group, "Coefficients", scale.GetCoefficients());
    }

    void WriteNode(Handle const & group, I_AttributeBase const & node, int depth) const
    {
        if (depth > MaximumAttributeDepth)
            BASIS_THROW(Basis::FileError, "Cannot write buffer file '" << m_path << "': attributes nest deeper than "
                                                                        << MaximumAttributeDepth << " levels");
        WriteString(group, "Name", node.GetName());
        WriteUInt(group, "Kind", node.GetKind());
        WriteUInt(group, "ChildCount", unsigned(node.GetChildCount()));
        switch (node.GetKind()) {
        case AT_INT:
            WriteScalar(group, "Value", H5T_NATIVE_INT64, &static_cast<I_Attribute<std::int64_t> const &>(node).GetValue());
            break;
        case AT_UINT:
            WriteScalar(group, "Value", H5T_NATIVE_UINT64, &static_cast<I_Attribute<std::uint64_t> const &>(node).GetValue());
            break;
        case AT_DOUBLE:
            WriteScalar(group, "Value", H5T_NATIVE_DOUBLE, &static_cast<I_Attribute<double> const &>(node).GetValue());
            break;
        case AT_STRING: WriteString(group, "Value", static_cast<I_Attribute<std::string> const &>(node).GetValue()); break;
        case AT_BOOL: {
            std::uint8_t const value = static_cast<I_Attribute<bool> const &>(node).GetValue() ? 1 : 0;
            WriteScalar(group, "Value", H5T_NATIVE_UINT8, &value);
            break;
        }
        case AT_TIMESTAMP: {
            Basis::TimeStamp const & time = static_cast<I_Attribute<Basis::TimeStamp> const &>(node).GetValue();
            std::int64_t const seconds = time.GetSeconds();
            std::uint64_t const fraction = time.GetFraction();
            WriteScalar(group, "Seconds", H5T_NATIVE_INT64, &seconds);
            WriteScalar(group, "Fraction", H5T_NATIVE_UINT64, &fraction);
            break;
        }
        case AT_PLANE:
            if (I_PlaneBase const * plane = static_cast<I_AttributePlane const &>(node).GetPlane())
                WritePlanes(group, "Plane", plane->GetDataType(), plane->GetWidth(), plane->GetHeight(), {plane->GetData()});
            break;
        case AT_BINARY: {
            auto const & bytes = static_cast<I_Attribute<std::vector<std::uint8_t>> const &>(node).GetValue();
            hsize_t const count = bytes.size();
            Handle const space(Check(H5Screate_simple(1, &count, nullptr), "create a data space"), H5Sclose);
            Handle const dataset(Check(H5Dcreate2(group, "Value", H5T_NATIVE_UINT8, space, H5P_DEFAULT, H5P_DEFAULT,
                                                  H5P_DEFAULT),
                                       "create a dataset"),
                                 H5Dclose);
            if (count > 0)
                Check(H5Dwrite(dataset, H5T_NATIVE_UINT8, H5S_ALL, H5S_ALL, H5P_DEFAULT, bytes.data()), "write bytes");
            break;
        }
        case AT_GROUP: break;
        }
        for (std::size_t i = 0; i < node.GetChildCount(); ++i)
            WriteNode(CreateGroup(group, std::to_string(i)), *node.GetChild(i), depth + 1);
    }

    void WriteFrame(Handle const & group, I_Frame const & frame) const
    {
        auto const * vector = dynamic_cast<I_FrameVector const *>(&frame);
        char const * kind = dynamic_cast<I_FrameRGB const *>(&frame)       ? KindRGB
                            : dynamic_cast<I_FrameVector3C const *>(&frame) ? KindVector3C
                            : vector                                         ? KindVector2C
                                                                             : KindImage;
        WriteString(group, "Kind", kind);
        WriteUInt(group, "Width", frame.GetWidth());
        WriteUInt(group, "Height", frame.GetHeight());
        WriteUInt(group, "Depth", frame.GetDepth());
        WriteUInt(group, "DataType", frame.GetDataType());
        if (vector) {
            WriteUInt(group, "Choices", vector->GetChoiceCount());
            WriteUInt(group, "GridX", vector->GetGridX());
            WriteUInt(group, "GridY", vector->GetGridY());
            WriteUInt(group, "GridZ", vector->GetGridZ());
        }
        WriteScale(group, "ScaleX", *frame.GetScaleX());
        WriteScale(group, "ScaleY", *frame.GetScaleY());
        WriteScale(group, "ScaleZ", *frame.GetScaleZ());
        WriteScale(group, "ScaleI", *frame.GetScaleI());
        WriteNode(CreateGroup(group, "Attributes"), *frame.GetAttributeRoot(), 0);
        WriteUInt(group, "ComponentCount", frame.GetComponentCount());
        Handle const components = CreateGroup(group, "Components");
        for (unsigned int k = 0; k < frame.GetComponentCount(); ++k) {
            I_Component const & component = *frame.GetComponentAt(k);
            Handle const entry = CreateGroup(components, std::to_string(k));
            WriteString(entry, "Name", component.GetName());
            WriteUInt(entry, "Kind", component.GetKind());
            WriteUInt(entry, "Choice", component.GetChoice());
            std::vector<void const *> planes;
            for (unsigned int z = 0; z < component.GetPlaneCount(); ++z)
                planes.push_back(component.GetPlane(z)->GetData());
            WritePlanes(entry, "Planes", component.GetDataType(), frame.GetWidth(), frame.GetHeight(), planes);
            if (component.GetScale())
                WriteScale(entry, "Scale", *component.GetScale());
            WriteNode(CreateGroup(entry, "Settings"), *component.GetSettings(), 0);
        }
    }

    QString const m_path;
    int const m_deflate;
    Handle const m_groupProperties = GroupProperties();
};

// ---------------------------------------------------------------------------------------------
// Reading: every value is checked before it is used, so that no file can crash the process.

class Reader
{
public:
    explicit Reader(QString path) : m_path(std::move(path)) {}

    I_Buffer * Read()
    {
        QByteArray const name = QFile::encodeName(m_path);
        if (!QFileInfo::exists(m_path))
            BASIS_THROW(Basis::FileError, "Buffer file '" << m_path << "' does not exist");
        CheckSuperblock();
        Handle const h5(H5Fopen(name.constData(), H5F_ACC_RDONLY, H5P_DEFAULT), H5Fclose);
        if (!h5.IsValid())
            BASIS_THROW(Basis::FileError, "Buffer file '" << m_path << "' cannot be opened; it may be truncated or damaged");
        if (!H5Aexists(h5, "Format") || ReadString(h5, "/", "Format") != FormatName)
            BASIS_THROW(Basis::FileError, "'" << m_path << "' is an HDF5 file but not a FrameStore buffer");
        std::int32_t const version = ReadScalar<std::int32_t>(h5, "/", "FormatVersion", H5T_NATIVE_INT32);
        if (version != FormatVersion)
            Fail("/", QStringLiteral("format version %1 is not supported").arg(version));
        unsigned int const count = ReadUInt(h5, "/", "FrameCount");

        std::unique_ptr<I_Buffer> buffer(CreateBuffer());
        ReadNode(OpenGroup(h5, "/Attributes"), "/Attributes", *buffer->GetAttributeRoot(), 0);
        for (unsigned int i = 0; i < count; ++i) {
            std::string const path = "/Frames/" + std::to_string(i);
            buffer->AppendFrame(ReadFrame(OpenGroup(h5, path), path).release());
        }
        return buffer.release();
    }

private:
    // Only files of the checksummed format (superblock version 2 or later, at the start of the
    // file) are handed to HDF5; older layouts carry no checksums, so damage could reach its
    // parser unnoticed.
    void CheckSuperblock() const
    {
        static constexpr char Signature[] = "\x89HDF\r\n\x1a\n";
        QFile file(m_path);
        QByteArray const head = file.open(QIODevice::ReadOnly) ? file.read(9) : QByteArray();
        if (head.size() < 9 || !head.startsWith(QByteArray(Signature, 8)))
            BASIS_THROW(Basis::FileError, "Buffer file '" << m_path << "' is not an HDF5 file");
        if (static_cast<unsigned char>(head[8]) < 2)
            BASIS_THROW(Basis::FileError, "Buffer file '" << m_path << "' is an HDF5 file of an older format that buffer files do not use");
    }

    [[noreturn]] void Fail(std::string const & object, QString const & what) const
    {
        BASIS_THROW(Basis::FileError, "Buffer file '" << m_path << "', " << object << ": " << what);
    }

    Handle OpenGroup(hid_t location, std::string const & path) const
    {
        if (H5Lexists(location, path.c_str(), H5P_DEFAULT) <= 0)
            Fail(path, QStringLiteral("the group is missing"));
        Handle group(H5Gopen2(location, path.c_str(), H5P_DEFAULT), H5Gclose);
        if (!group.IsValid())
            Fail(path, QStringLiteral("is not a readable group"));
        return group;
    }

    Handle OpenAttribute(hid_t location, std::string const & object, char const * name, H5T_class_t typeClass) const
    {
        if (H5Aexists(location, name) <= 0)
            Fail(object, QStringLiteral("the attribute '%1' is missing").arg(QLatin1String(name)));
        Handle attribute(H5Aopen(location, name, H5P_DEFAULT), H5Aclose);
        Handle const type(H5Aget_type(attribute), H5Tclose);
        Handle const space(H5Aget_space(attribute), H5Sclose);
        if (!attribute.IsValid() || !type.IsValid() || !space.IsValid() || H5Tget_class(type) != typeClass)
            Fail(object, QStringLiteral("the attribute '%1' has the wrong type").arg(QLatin1String(name)));
        return attribute;
    }

    template <class T>
    T ReadScalar(hid_t location, std::string const & object, char const * name, hid_t nativeType) const
    {
        H5T_class_t const typeClass = H5Tget_class(nativeType);
        Handle const attribute = OpenAttribute(location, object, name, typeClass);
        Handle const space(H5Aget_space(attribute), H5Sclose);
        T value{};
        if (H5Sget_simple_extent_npoints(space) != 1 || H5Aread(attribute, nativeType, &value) < 0)
            Fail(object, QStringLiteral("the attribute '%1' cannot be read").arg(QLatin1String(name)));
        return value;
    }

    unsigned int ReadUInt(hid_t location, std::string const & object, char const * name) const
    {
        return ReadScalar<std::uint32_t>(location, object, name, H5T_NATIVE_UINT32);
    }

    std::string ReadString(hid_t location, std::string const & object, char const * name) const
    {
        Handle const attribute = OpenAttribute(location, object, name, H5T_STRING);
        Handle const fileType(H5Aget_type(attribute), H5Tclose);
        Handle const space(H5Aget_space(attribute), H5Sclose);
        if (H5Sget_simple_extent_npoints(space) != 1)
            Fail(object, QStringLiteral("the attribute '%1' is not one text").arg(QLatin1String(name)));
        if (H5Tis_variable_str(fileType) != 0)
            Fail(object, QStringLiteral("the attribute '%1' is a text of variable length").arg(QLatin1String(name)));
        std::size_t const size = H5Tget_size(fileType);
        if (size == 0 || size > (1u << 24))
            Fail(object, QStringLiteral("the attribute '%1' has an implausible size").arg(QLatin1String(name)));
        std::vector<char> text(size + 1, '\0');
        Handle const type(H5Tcopy(H5T_C_S1), H5Tclose);
        H5Tset_size(type, size);
        H5Tset_strpad(type, H5T_STR_NULLPAD);
        if (H5Aread(attribute, type, text.data()) < 0)
            Fail(object, QStringLiteral("the attribute '%1' cannot be read").arg(QLatin1String(name)));
        return std::string(text.data());
    }

    std::vector<double> ReadDoubles(hid_t location, std::string const & object, char const * name) const
    {
        Handle const attribute = OpenAttribute(location, object, name, H5T_FLOAT);
        Handle const space(H5Aget_space(attribute), H5Sclose);
        hssize_t const count = H5Sget_simple_extent_npoints(space);
        if (count < 0 || count > 1024)
            Fail(object, QStringLiteral("the attribute '%1' has an implausible size").arg(QLatin1String(name)));
        std::vector<double> values(static_cast<std::size_t>(count));
        if (count > 0 && H5Aread(attribute, H5T_NATIVE_DOUBLE, values.data()) < 0)
            Fail(object, QStringLiteral("the attribute '%1' cannot be read").arg(QLatin1String(name)));
        return values;
    }

    E_DataType ReadDataType(hid_t location, std::string const & object) const
    {
        unsigned int const code = ReadUInt(location, object, "DataType");
        if (GetDataTypeSize(E_DataType(code)) == 0)
            Fail(object, QStringLiteral("unknown data type %1").arg(code));
        return E_DataType(code);
    }

    // Reads a [count][height][width] dataset into new planes, after checking its shape and type.
    std::vector<std::unique_ptr<I_PlaneBase>> ReadPlanes(hid_t location, std::string const & object, char const * name,
                                                         E_DataType type, hsize_t count, unsigned int width,
                                                         unsigned int height) const
    {
        std::string const path = object + '/' + name;
        if (H5Lexists(location, name, H5P_DEFAULT) <= 0)
            Fail(path, QStringLiteral("the dataset is missing"));
        Handle const dataset(H5Dopen2(location, name, H5P_DEFAULT), H5Dclose);
        Handle const space(H5Dget_space(dataset), H5Sclose);
        if (!dataset.IsValid() || !space.IsValid() || H5Sget_simple_extent_ndims(space) != 3)
            Fail(path, QStringLiteral("is not a dataset of planes"));
        if (ReadDataType(dataset, path) != type)
            Fail(path, QStringLiteral("has another data type than its frame"));
        hsize_t dims[3] = {};
        H5Sget_simple_extent_dims(space, dims, nullptr);
        if (dims[0] != count || dims[1] != height || dims[2] != width)
            Fail(path, QStringLiteral("has %1 x %2 x %3 elements instead of %4 x %5 x %6")
                           .arg(dims[0]).arg(dims[1]).arg(dims[2]).arg(count).arg(height).arg(width));
        Handle const fileType(H5Dget_type(dataset), H5Tclose);
        H5T_class_t const typeClass = H5Tget_class(fileType);
        if (typeClass != H5T_INTEGER && typeClass != H5T_FLOAT)
            Fail(path, QStringLiteral("does not hold numbers"));
        std::uint64_t const planeBytes = Basis::ByteCount(std::uint64_t(width) * height, GetDataTypeSize(type));
        if (planeBytes > Basis::C_SystemInfo::GetTotalPhysicalMemory())
            Fail(path, QStringLiteral("planes of %1 x %2 do not fit into memory").arg(width).arg(height));

        std::vector<std::unique_ptr<I_PlaneBase>> planes;
        hsize_t const planeDims[2] = {height, width};
        Handle const memory(H5Screate_simple(2, planeDims, nullptr), H5Sclose);
        for (hsize_t z = 0; z < count; ++z) {
            // Uninitialised memory: the read fills every element.
            planes.emplace_back(CreatePlaneOnMemory(type, width, height, Basis::AllocateAligned(planeBytes)));
            if (planeBytes == 0)
                continue;
            hsize_t const start[3] = {z, 0, 0};
            hsize_t const size[3] = {1, height, width};
            if (H5Sselect_hyperslab(space, H5S_SELECT_SET, start, nullptr, size, nullptr) < 0
                || H5Dread(dataset, NativeType(type), memory, space, H5P_DEFAULT, planes.back()->GetData()) < 0)
                Fail(path, QStringLiteral("plane %1 cannot be read; the file may be truncated or damaged").arg(z));
        }
        return planes;
    }

    std::unique_ptr<I_Scale> ReadScale(hid_t location, std::string const & object) const
    {
        unsigned int const kind = ReadUInt(location, object, "Kind");
        std::string const unit = ReadString(location, object, "Unit");
        std::string const description = ReadString(location, object, "Description");
        std::vector<double> const coefficients = ReadDoubles(location, object, "Coefficients");
        auto & factory = C_ScaleFactory::GetInstance();
        if (kind == SK_LINEAR && coefficients.size() == 2)
            return std::unique_ptr<I_Scale>(factory.CreateLinearScale(coefficients[1], coefficients[0], unit, description));
        if (kind == SK_POLYNOMIAL)
            return std::unique_ptr<I_Scale>(factory.CreatePolynomialScale(coefficients, unit, description));
        Fail(object, QStringLiteral("unknown scale kind %1 with %2 coefficients").arg(kind).arg(coefficients.size()));
    }

    void ReadNode(Handle const & group, std::string const & object, I_AttributeBase & node, int depth) const
    {
        if (depth > MaximumAttributeDepth)
            Fail(object, QStringLiteral("attributes nest deeper than %1 levels").arg(MaximumAttributeDepth));
        unsigned int const children = ReadUInt(group, object, "ChildCount");
        for (unsigned int i = 0; i < children; ++i) {
            std::string const path = object + '/' + std::to_string(i);
            Handle const childGroup = OpenGroup(group, std::to_string(i));
            std::string const name = ReadString(childGroup, path, "Name");
            unsigned int const kind = ReadUInt(childGroup, path, "Kind");
            if (name.empty() || name.find('.') != std::string::npos || node.FindChild(name))
                Fail(path, QStringLiteral("invalid or repeated attribute name '%1'").arg(QString::fromStdString(name)));
            std::unique_ptr<I_AttributeBase> child = CreateAttribute(name, E_AttributeKind(kind));
            if (kind >= AttributeKindCount || !child)
                Fail(path, QStringLiteral("unknown attribute kind %1").arg(kind));
            ReadValue(childGroup, path, *child);
            ReadNode(childGroup, path, *node.AdoptChild(std::move(child)), depth + 1);
        }
    }

    void ReadValue(hid_t group, std::string const & object, I_AttributeBase & node) const
    {
        switch (node.GetKind()) {
        case AT_INT:
            static_cast<I_Attribute<std::int64_t> &>(node).SetValue(
                ReadScalar<std::int64_t>(group, object, "Value", H5T_NATIVE_INT64));
            break;
        case AT_UINT:
            static_cast<I_Attribute<std::uint64_t> &>(node).SetValue(
                ReadScalar<std::uint64_t>(group, object, "Value", H5T_NATIVE_UINT64));
            break;
        case AT_DOUBLE:
            static_cast<I_Attribute<double> &>(node).SetValue(ReadScalar<double>(group, object, "Value", H5T_NATIVE_DOUBLE));
            break;
        case AT_STRING: static_cast<I_Attribute<std::string> &>(node).SetValue(ReadString(group, object, "Value")); break;
        case AT_BOOL:
            static_cast<I_Attribute<bool> &>(node).SetValue(
                ReadScalar<std::uint8_t>(group, object, "Value", H5T_NATIVE_UINT8) != 0);
            break;
        case AT_TIMESTAMP:
            static_cast<I_Attribute<Basis::TimeStamp> &>(node).SetValue(
                Basis::TimeStamp(ReadScalar<std::int64_t>(group, object, "Seconds", H5T_NATIVE_INT64),
                                 ReadScalar<std::uint64_t>(group, object, "Fraction", H5T_NATIVE_UINT64)));
            break;
        case AT_PLANE:
            if (H5Lexists(group, "Plane", H5P_DEFAULT) > 0) {
                Handle const dataset(H5Dopen2(group, "Plane", H5P_DEFAULT), H5Dclose);
                Handle const space(H5Dget_space(dataset), H5Sclose);
                hsize_t dims[3] = {};
                if (!dataset.IsValid() || H5Sget_simple_extent_ndims(space) != 3
                    || H5Sget_simple_extent_dims(space, dims, nullptr) < 0 || dims[1] > 0xFFFFFFFFu || dims[2] > 0xFFFFFFFFu)
                    Fail(object + "/Plane", QStringLiteral("is not a dataset of planes"));
                E_DataType const type = ReadDataType(dataset, object + "/Plane");
                auto planes = ReadPlanes(group, object, "Plane", type, 1, unsigned(dims[2]), unsigned(dims[1]));
                static_cast<I_AttributePlane &>(node).SetPlane(planes.front().release());
            }
            break;
        case AT_BINARY: {
            std::string const path = object + "/Value";
            Handle const dataset(H5Dopen2(group, "Value", H5P_DEFAULT), H5Dclose);
            Handle const space(H5Dget_space(dataset), H5Sclose);
            hssize_t const count = space.IsValid() ? H5Sget_simple_extent_npoints(space) : -1;
            if (!dataset.IsValid() || count < 0 || std::uint64_t(count) > Basis::C_SystemInfo::GetTotalPhysicalMemory())
                Fail(path, QStringLiteral("is not a readable list of bytes"));
            std::vector<std::uint8_t> bytes(static_cast<std::size_t>(count));
            if (count > 0 && H5Dread(dataset, H5T_NATIVE_UINT8, H5S_ALL, H5S_ALL, H5P_DEFAULT, bytes.data()) < 0)
                Fail(path, QStringLiteral("cannot be read"));
            static_cast<I_Attribute<std::vector<std::uint8_t>> &>(node).SetValue(bytes);
            break;
        }
        case AT_GROUP: break;
        }
    }

    std::unique_ptr<I_Frame> ReadFrame(Handle const & group, std::string const & object) const
    {
        std::string const kindName = ReadString(group, object, "Kind");
        E_FrameKind kind = FK_IMAGE;
        if (kindName == KindRGB)
            kind = FK_RGB;
        else if (kindName == KindVector2C)
            kind = FK_VECTOR2C;
        else if (kindName == KindVector3C)
            kind = FK_VECTOR3C;
        else if (kindName != KindImage)
            Fail(object, QStringLiteral("unknown frame kind '%1'").arg(QString::fromStdString(kindName)));
        bool const isVector = kind == FK_VECTOR2C || kind == FK_VECTOR3C;
        unsigned int const width = ReadUInt(group, object, "Width");
        unsigned int const height = ReadUInt(group, object, "Height");
        unsigned int const depth = ReadUInt(group, object, "Depth");
        E_DataType const type = ReadDataType(group, object);
        unsigned int const choices = isVector ? ReadUInt(group, object, "Choices") : 0;
        unsigned int const count = ReadUInt(group, object, "ComponentCount");
        if (count > 1024 || choices > 1024 || depth > (1u << 20))
            Fail(object, QStringLiteral("implausible numbers of components, choices or planes"));

        std::vector<std::unique_ptr<I_Component>> components;
        Handle const componentGroups = OpenGroup(group, "Components");
        for (unsigned int k = 0; k < count; ++k) {
            std::string const path = object + "/Components/" + std::to_string(k);
            Handle const entry = OpenGroup(componentGroups, std::to_string(k));
            std::string const name = ReadString(entry, path, "Name");
            unsigned int const componentKind = ReadUInt(entry, path, "Kind");
            unsigned int const choice = ReadUInt(entry, path, "Choice");
            if (componentKind >= ComponentKindCount)
                Fail(path, QStringLiteral("unknown component kind %1").arg(componentKind));
            Handle const dataset(H5Dopen2(entry, "Planes", H5P_DEFAULT), H5Dclose);
            if (!dataset.IsValid())
                Fail(path + "/Planes", QStringLiteral("the dataset is missing"));
            E_DataType const planeType = ReadDataType(dataset, path + "/Planes");
            auto component = CreateComponent(name, E_ComponentKind(componentKind), choice, planeType,
                                             ReadPlanes(entry, path, "Planes", planeType, depth, width, height));
            if (H5Lexists(entry, "Scale", H5P_DEFAULT) > 0)
                component->SetScale(ReadScale(OpenGroup(entry, "Scale"), path + "/Scale").release());
            ReadNode(OpenGroup(entry, "Settings"), path + "/Settings", *component->GetSettings(), 0);
            components.push_back(std::move(component));
        }

        std::unique_ptr<I_Frame> frame;
        try {
            frame = CreateFrameFromComponents(kind, width, height, depth, type, choices, std::move(components));
        } catch (Basis::Exception const & e) {
            Fail(object, e.message());
        }
        auto const scale = [&](char const * name) { return ReadScale(OpenGroup(group, name), object + '/' + name).release(); };
        frame->SetScaleX(scale("ScaleX"));
        frame->SetScaleY(scale("ScaleY"));
        frame->SetScaleZ(scale("ScaleZ"));
        frame->SetScaleI(scale("ScaleI"));
        ReadNode(OpenGroup(group, "Attributes"), object + "/Attributes", *frame->GetAttributeRoot(), 0);
        if (auto * vector = dynamic_cast<I_FrameVector *>(frame.get())) {
            vector->SetGridX(ReadUInt(group, object, "GridX"));
            vector->SetGridY(ReadUInt(group, object, "GridY"));
            vector->SetGridZ(ReadUInt(group, object, "GridZ"));
        }
        return frame;
    }

    QString const m_path;
};

// Keeps the HDF5 library quiet: its errors become our FileError messages instead.
void SilenceHdf5()
{
    static bool const silenced = H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr) >= 0;
    (void)silenced;
}

} // namespace

I_Buffer * ImportBuffer(QString const & path, Basis::Parameter::C_Tree::Ptr const &)
{
    std::lock_guard<std::mutex> lock(Hdf5Mutex());
    SilenceHdf5();
    // HDF5 keeps freed memory on its own lists; hand it back after every file.
    struct Collect
    {
        ~Collect() { H5garbage_collect(); }
    } const collect;
    try {
        I_Buffer * buffer = Reader(path).Read();
        BASIS_DEV_LOG("FrameStore") << "imported " << buffer->GetFrameCount() << " frames from " << path;
        return buffer;
    } catch (std::bad_alloc const &) {
        BASIS_THROW(Basis::FileError, "Buffer file '" << path << "' describes more data than fits into memory");
    }
}

void ExportBuffer(I_Buffer const * buffer, QString const & path, Basis::Parameter::C_Tree::Ptr const & options)
{
    if (!buffer)
        BASIS_THROW(Basis::FileError, "Cannot write buffer file '" << path << "': there is no buffer");
    int const deflate = options ? options->Get<int>(QStringLiteral("Compression.Deflate"), 0) : 0;
    if (deflate < 0 || deflate > 9)
        BASIS_THROW(Basis::FileError, "Cannot write buffer file '" << path << "': deflate level " << deflate
                                                                    << " is not between 0 and 9");
    std::lock_guard<std::mutex> lock(Hdf5Mutex());
    SilenceHdf5();
    // Written beside its final name and renamed into place, which replaces a file atomically.
    // Unique per process and call, so that concurrent exports to one name do not collide.
    static std::atomic<unsigned int> exports{0};
    QString const temporary = QStringLiteral("%1.%2-%3.partial").arg(path).arg(getpid()).arg(exports++);
    try {
        Writer(path, deflate).Write(*buffer, temporary);
    } catch (...) {
        QFile::remove(temporary);
        throw;
    }
    if (std::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(path).constData()) != 0) {
        QFile::remove(temporary);
        BASIS_THROW(Basis::FileError, "Cannot write buffer file '" << path << "': the finished file cannot replace it");
    }
    BASIS_DEV_LOG("FrameStore") << "exported " << buffer->GetFrameCount() << " frames to " << path;
}

} // namespace FrameStore
