#include "dataobjects/BufferAttributes.h"
#include "dataobjects/GetTimeValueFromAttributes.h"

#include "basis/Units.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"
#include "framestore/Scale.h"
#include "BasisTesting.h"

#include <memory>
#include <stdexcept>

using namespace DataObjects;
using FrameStore::I_AttributeBase;
using V = C_AttributeValue;
using Strings = std::vector<std::string>;

namespace {

struct Fixture
{
    std::unique_ptr<FrameStore::I_Buffer> buffer{FrameStore::CreateBuffer()};
    FrameStore::I_Frame * frame = buffer->CreateFrame(4, 3, 1, FrameStore::DT_WORD);
    FrameStore::I_Frame * other = buffer->CreateFrame(4, 3, 1, FrameStore::DT_WORD);
};

Strings Dump(C_Attributes const & attributes)
{
    Strings out;
    for (C_Attribute const & a : attributes.GetAttributes())
        out.push_back(a.GetName() + ":" + std::to_string(a.GetValue().GetType()) + "=" + a.GetValue().ToString());
    return out;
}

std::string Text(I_AttributeBase const * node)
{
    return static_cast<FrameStore::I_Attribute<std::string> const &>(*node).GetValue();
}

FrameStore::I_PlaneBase * PlaneOf(I_AttributeBase const * node)
{
    return static_cast<FrameStore::I_AttributePlane const &>(*node).GetPlane();
}

// A plane node holding a plane of the given type and size, made behind the set's back.
void PutPlane(FrameStore::I_Frame & frame, std::string const & name, FrameStore::E_DataType type, unsigned width,
              unsigned height)
{
    static_cast<FrameStore::I_AttributePlane &>(*frame.CreateAttribute(name, FrameStore::AT_PLANE))
        .SetPlane(FrameStore::CreatePlane(type, width, height));
}

// A node kind the library does not know.
class ForeignNode : public I_AttributeBase
{
public:
    ForeignNode() : I_AttributeBase("foreign") {}
    FrameStore::E_AttributeKind GetKind() const override { return FrameStore::E_AttributeKind(9); }
    std::unique_ptr<I_AttributeBase> Clone() const override { return std::make_unique<ForeignNode>(); }
};

// Owner is a buffer or a frame: the set is laid over its tree, and the node is checked there.
template <class E, class Owner>
void ExpectListRoundTrip(Owner & owner, std::vector<E> const & list)
{
    C_BufferAttributes set(owner);
    std::string const name = "list." + std::to_string(V(list).GetType());
    set.Set(name, list);
    I_AttributeBase const * node = owner.FindAttribute(name);
    ASSERT_TRUE(node);
    ASSERT_EQ(node->GetKind(), FrameStore::AT_PLANE);
    FrameStore::I_PlaneBase const * plane = PlaneOf(node);
    EXPECT_EQ(plane->GetDataType(), FrameStore::GetDataType<E>());
    EXPECT_EQ(plane->GetWidth(), list.size());
    EXPECT_EQ(plane->GetHeight(), 1u);
    V const back = set.GetAttributeValue(name);
    EXPECT_TRUE(back.IsList<E>());
    EXPECT_EQ(back.GetValue<std::vector<E>>(), list);
}

template <class Owner>
void ExpectListsRoundTrip(Owner & owner)
{
    ExpectListRoundTrip<std::uint16_t>(owner, {0, 1, 65535});
    ExpectListRoundTrip<int>(owner, {-7, 0, 2147483647, 4});
    ExpectListRoundTrip<float>(owner, {1.5f, -0.25f});
    ExpectListRoundTrip<double>(owner, {1e-300, 2.0 / 3.0, -4});
    ExpectListRoundTrip<double>(owner, {});
}

FrameStore::I_FrameVector * VectorFrame(bool threeC)
{
    if (threeC)
        return FrameStore::CreateVectorFrame3C(6, 5, 1, 2);
    return FrameStore::CreateVectorFrame2C(6, 5, 1, 2);
}

} // namespace

TEST(BufferAttributes, ScalarsAreStoredAsTextAndReadBackAsText)
{
    Fixture f;
    C_BufferAttributes frameSet(*f.frame);
    C_BufferAttributes bufferSet(*f.buffer);
    frameSet.Set("n", 5);
    bufferSet.Set(C_Attribute("q", QString::fromLatin1("\xB5s")));
    bufferSet.Set("d", 0.1);

    I_AttributeBase const * node = f.frame->FindAttribute("n");
    ASSERT_TRUE(node);
    EXPECT_EQ(node->GetKind(), FrameStore::AT_STRING);
    EXPECT_EQ(Text(node), "5");
    V const five = frameSet.GetAttributeValue("n");
    EXPECT_EQ(five.GetType(), V::T_SCALAR);
    EXPECT_EQ(five.GetVariant().userType(), qMetaTypeId<std::string>()); // the text, not the int
    EXPECT_EQ(five, V(std::string("5")));
    EXPECT_EQ(Text(f.buffer->FindAttribute("q")), "\xB5s"); // Latin-1
    EXPECT_EQ(Text(f.buffer->FindAttribute("d")), "0.1");

    // Buffer-wide and frame attributes are separate trees.
    EXPECT_FALSE(bufferSet.Contains("n"));
    EXPECT_FALSE(frameSet.Contains("q"));
    EXPECT_TRUE(bufferSet.GetAttributeValue("missing").IsNull());

    frameSet.Set("n", 6.5); // any scalar over a scalar
    EXPECT_EQ(frameSet.GetAttribute("n"), C_Attribute("n", std::string("6.5")));
}

TEST(BufferAttributes, ListsRoundTripThroughPlanesOnBufferAndFrame)
{
    Fixture f;
    ExpectListsRoundTrip(*f.buffer);
    ExpectListsRoundTrip(*f.frame);
}

TEST(BufferAttributes, PlaneFollowsTheListCountButNeverItsElementType)
{
    Fixture f;
    C_BufferAttributes set(*f.frame);
    set.Set("f", std::vector<float>{1, 2, 3});
    FrameStore::I_PlaneBase const * plane = PlaneOf(f.frame->FindAttribute("f"));
    EXPECT_EQ(plane->GetWidth(), 3u);

    set.Set("f", std::vector<float>{1, 2, 3, 4, 5});
    EXPECT_EQ(PlaneOf(f.frame->FindAttribute("f")), plane); // the same plane, widened
    EXPECT_EQ(plane->GetWidth(), 5u);
    EXPECT_EQ(plane->GetHeight(), 1u);
    set.Set("f", std::vector<float>{9, 8});
    EXPECT_EQ(set.GetAttributeValue("f").GetValue<std::vector<float>>(), (std::vector<float>{9, 8}));

    EXPECT_BASIS_THROW(set.Set("f", std::vector<double>{1, 2}), Basis::VerificationFailed,
                       "Cannot convert attribute value to plane's type.");
    EXPECT_BASIS_THROW(set.Set("f", std::vector<int>{1, 2}), Basis::VerificationFailed,
                       "Cannot convert attribute value to plane's type.");
    EXPECT_EQ(set.GetAttributeValue("f").GetValue<std::vector<float>>(), (std::vector<float>{9, 8}));
}

TEST(BufferAttributes, ScalarsAndListsDoNotTakeEachOthersNodes)
{
    Fixture f;
    C_BufferAttributes set(*f.buffer);
    set.Set("list", std::vector<int>{1, 2});
    set.Set("text", "abc");
    EXPECT_BASIS_THROW(set.Set("list", 3), Basis::Exception, "Can't assign scalar attribute to AT_PLANE");
    EXPECT_BASIS_THROW(set.Set("text", std::vector<int>{3}), Basis::Exception,
                       "Can't assign list attribute to AT_STRING");
    EXPECT_EQ(Dump(set), (Strings{"list:3=1,2", "text:1=abc"}));

    // Overwriting merge removes first, so there the kind may change.
    C_AttributesContainer source;
    source.Set("list", "now text");
    MergeAttributes(set, source, true);
    EXPECT_EQ(f.buffer->FindAttribute("list")->GetKind(), FrameStore::AT_STRING);
}

TEST(BufferAttributes, RefusesNodeKindsAndPlaneTypesItDoesNotHandle)
{
    Fixture f;
    C_BufferAttributes set(*f.frame);
    f.frame->CreateAttribute("count", FrameStore::AT_INT);
    EXPECT_TRUE(set.Contains("count"));
    EXPECT_TRUE(set.GetAttributeValue("count").IsNull());
    EXPECT_BASIS_THROW(set.Set("count", 1), Basis::Exception, "Can't assign to unsupported attribute types");
    f.frame->GetAttributeRoot()->AdoptChild(std::make_unique<ForeignNode>());
    EXPECT_BASIS_THROW(set.Set("foreign", 1), Basis::Exception, "Unsupported attribute type");

    f.frame->CreateAttribute("bare", FrameStore::AT_PLANE);
    EXPECT_TRUE(set.GetAttributeValue("bare").IsNull()); // a plane node without a plane
    set.Set("bare", std::vector<std::uint16_t>{4, 5});
    EXPECT_EQ(PlaneOf(f.frame->FindAttribute("bare"))->GetDataType(), FrameStore::DT_WORD);

    for (auto const & [type, name] : {std::pair(FrameStore::DT_BYTE, QString("DT_BYTE")),
                                      std::pair(FrameStore::DT_RGB, QString("DT_RGB"))}) {
        PutPlane(*f.frame, "odd", type, 2, 1);
        EXPECT_BASIS_THROW(set.Set("odd", std::vector<int>{1, 2}), Basis::Exception,
                           "Can't assign C_AttributeValue object to " + name + " plane.");
        EXPECT_BASIS_THROW(set.GetAttributeValue("odd"), Basis::Exception,
                           "Can't create C_AttributeValue object from " + name + " plane.");
    }
    PutPlane(*f.frame, "odd", FrameStore::DT_UINT, 2, 1);
    EXPECT_BASIS_THROW(set.Set("odd", std::vector<int>{1, 2}), Basis::Exception, "Unsupported plane type");
    EXPECT_BASIS_THROW(set.GetAttributeValue("odd"), Basis::Exception, "Unsupported plane type");
    EXPECT_BASIS_THROW(set.GetAttributes(), Basis::Exception, "Unsupported plane type");

    // The element type is checked before the plane's height.
    PutPlane(*f.frame, "tall", FrameStore::DT_FLOAT, 3, 2);
    EXPECT_BASIS_THROW(set.Set("tall", std::vector<double>{1}), Basis::VerificationFailed,
                       "Cannot convert attribute value to plane's type.");
    EXPECT_BASIS_THROW(set.Set("tall", std::vector<float>{1}), Basis::VerificationFailed, "Invalid plane y-size");
    EXPECT_EQ(PlaneOf(f.frame->FindAttribute("tall"))->GetWidth(), 3u);
    EXPECT_EQ(set.GetAttributeValue("tall").Count(), 6u); // every element of the plane
}

TEST(BufferAttributes, EmptyNamesAreRefused)
{
    Fixture f;
    C_BufferAttributes set(*f.buffer);
    EXPECT_BASIS_THROW(set.GetAttributeValue(""), Basis::InvalidArgumentError, "Empty name.");
    EXPECT_BASIS_THROW(set.GetAttribute(""), Basis::InvalidArgumentError, "Empty name.");
    EXPECT_BASIS_THROW(set.Contains(""), Basis::InvalidArgumentError, "Empty name");
    EXPECT_BASIS_THROW(set.Remove(""), Basis::InvalidArgumentError, "Empty name");
    EXPECT_BASIS_THROW(set.Set("", 1), Basis::InvalidArgumentError, "Empty name");
    EXPECT_BASIS_THROW(set.Set("", V()), Basis::InvalidArgumentError, "Empty name");
    EXPECT_BASIS_THROW(set.Set("a..b", 1), Basis::InvalidArgumentError, "Invalid attribute name a..b");
    EXPECT_TRUE(set.IsEmpty());
}

TEST(BufferAttributes, DottedNamesFormATreeListedInTreeOrder)
{
    Fixture f;
    C_BufferAttributes set(*f.frame);
    EXPECT_TRUE(set.IsEmpty());
    set.Set("b", 1);
    set.Set("a.x", 2);
    EXPECT_FALSE(set.Contains("a")); // a group, not an attribute
    EXPECT_TRUE(set.GetAttributeValue("a").IsNull());
    set.Set("a", "g"); // takes the group's place and keeps its member
    set.Set("a.y.z", std::vector<int>{3});
    EXPECT_EQ(Dump(set), (Strings{"b:1=1", "a:1=g", "a.x:1=2", "a.y.z:3=3"}));
    EXPECT_TRUE(set.Contains("a.y.z"));
    EXPECT_FALSE(set.Contains("a.y"));
    EXPECT_EQ(f.frame->FindAttribute("a")->GetKind(), FrameStore::AT_STRING);

    f.frame->CreateAttribute("group.only", FrameStore::AT_GROUP);
    EXPECT_EQ(Dump(set).size(), 4u);
    set.Clear();
    EXPECT_TRUE(set.IsEmpty());
    f.frame->CreateAttribute("group", FrameStore::AT_GROUP);
    EXPECT_TRUE(set.IsEmpty()); // only a group
    EXPECT_EQ(f.frame->GetAttributeRoot()->GetChildCount(), 1u);
}

TEST(BufferAttributes, RemoveTakesMembersAndPrefixes)
{
    Fixture f;
    C_BufferAttributes set(*f.buffer);
    for (char const * name : {"a", "a.x", "ab", "Acq", "AcqTime", "AcqTimeList", "Dev", "Dev.Rate", "Device", "g.m"})
        set.Set(name, 1);
    set.Remove("a");
    set.Remove("missing");
    set.Remove("Dev.Rate");
    EXPECT_TRUE(set.Contains("Dev"));
    EXPECT_FALSE(set.Contains("Dev.Rate"));
    set.Remove("Dev");
    set.Remove("g"); // a group goes with its members
    EXPECT_EQ(Dump(set), (Strings{"ab:1=1", "Acq:1=1", "AcqTime:1=1", "AcqTimeList:1=1", "Device:1=1"}));
    set.Remove("AcqT*ignored");
    EXPECT_EQ(Dump(set), (Strings{"ab:1=1", "Acq:1=1", "Device:1=1"}));
    set.Set("Acq.sub", 2);
    set.Remove("Ac*");
    EXPECT_EQ(Dump(set), (Strings{"ab:1=1", "Device:1=1"}));
    set.Set("ab", V()); // a null value removes
    EXPECT_EQ(Dump(set), (Strings{"Device:1=1"}));
    set.Remove("*");
    EXPECT_TRUE(set.IsEmpty());
}

TEST(BufferAttributes, CopiesShareTheTreeAndAssignmentReplacesTheTargetTree)
{
    Fixture f;
    C_BufferAttributes first(*f.frame);
    first.Set("old", 1);
    C_BufferAttributes copy(first);
    copy.Set("via.copy", 2);
    std::unique_ptr<C_Attributes> const clone = first.Clone();
    clone->Set("via.clone", 3);
    EXPECT_EQ(Dump(first), (Strings{"old:1=1", "via.copy:1=2", "via.clone:1=3"}));

    C_BufferAttributes second(*f.other);
    second.Set("b", "x");
    second.Set("a", std::vector<double>{0.5});
    copy = second;
    EXPECT_EQ(Dump(C_BufferAttributes(*f.frame)), (Strings{"b:1=x", "a:5=0.5"}));
    copy.Set("later", 4); // copy now addresses the other frame
    EXPECT_TRUE(second.Contains("later"));
    EXPECT_FALSE(first.Contains("later"));

    second = C_BufferAttributes(*f.other); // the same tree: nothing is lost
    EXPECT_EQ(Dump(second), (Strings{"b:1=x", "a:5=0.5", "later:1=4"}));

    PutPlane(*f.other, "bytes", FrameStore::DT_BYTE, 1, 1);
    EXPECT_BASIS_THROW(first = second, Basis::Exception, "Can't create C_AttributeValue object from DT_BYTE plane.");
    EXPECT_EQ(Dump(first), (Strings{"b:1=x", "a:5=0.5"}));
}

TEST(BufferAttributes, GetBufferAttributesReadsEveryFrame)
{
    Fixture f;
    C_BufferAttributes(*f.buffer).Set("Camera", "cam1");
    C_BufferAttributes(*f.frame).Set("AcqTime", 10);
    C_BufferAttributes(*f.other).Set("AcqTime", 20);
    C_BufferAttributes(*f.other).Set("Rate", std::vector<int>{1, 2});
    f.other->SetScaleX(FrameStore::C_ScaleFactory::GetInstance().CreateLinearScale(2, 1, "mm", "x"));
    f.other->SetScaleZ(FrameStore::C_ScaleFactory::GetInstance().CreateLinearScale(5, 0, "mm", "z"));
    f.other->SetScaleI(FrameStore::C_ScaleFactory::GetInstance().CreateLinearScale(3, 0, "counts", "i"));

    GlobalAndFrameAttributes const record = GetBufferAttributes(*f.buffer);
    EXPECT_EQ(Dump(record.bufferAttributes), (Strings{"Camera:1=cam1"}));
    ASSERT_EQ(record.frameAttributes.size(), 2u);
    EXPECT_EQ(Dump(record.frameAttributes[0]), (Strings{"AcqTime:1=10"}));
    EXPECT_EQ(Dump(record.frameAttributes[1]), (Strings{"AcqTime:1=20", "Rate:3=1,2"}));
    ASSERT_EQ(record.scalesX.size(), 2u);
    ASSERT_EQ(record.scalesY.size(), 2u);
    ASSERT_EQ(record.scalesZ.size(), 2u);
    ASSERT_EQ(record.scalesI.size(), 2u);
    EXPECT_EQ(record.scalesX[0], LinearScale());
    EXPECT_EQ(record.scalesX[1], LinearScale(2, 1, "mm", "x"));
    EXPECT_EQ(record.scalesY[1], LinearScale());
    EXPECT_EQ(record.scalesZ[1], LinearScale(5, 0, "mm", "z"));
    EXPECT_EQ(record.scalesI[1], LinearScale(3, 0, "counts", "i"));

    // The record is a copy.
    C_BufferAttributes(*f.frame).Set("AcqTime", 99);
    EXPECT_EQ(Dump(record.frameAttributes[0]), (Strings{"AcqTime:1=10"}));

    f.buffer->Clear();
    GlobalAndFrameAttributes const bare = GetBufferAttributes(*f.buffer);
    EXPECT_EQ(Dump(bare.bufferAttributes), (Strings{"Camera:1=cam1"}));
    EXPECT_TRUE(bare.frameAttributes.empty());
    EXPECT_TRUE(bare.scalesI.empty());
}

TEST(TimeAttributes, FrameDtIsStoredAsMicrosecondText)
{
    Fixture f;
    C_BufferAttributes set(*f.frame);
    EXPECT_FALSE(HasFrameDt(set));
    SetFrameDt(set, 100);
    EXPECT_TRUE(HasFrameDt(set));
    EXPECT_EQ(Text(f.frame->FindAttribute("FrameDt")), "100 \xB5s");
    EXPECT_EQ(GetFrameDt(set), 100);

    SetFrameDt(set, 1234567.0);
    EXPECT_EQ(Text(f.frame->FindAttribute("FrameDt")), "1.23457e+06 \xB5s");
    SetFrameDt(set, 0.000123456789);
    EXPECT_EQ(Text(f.frame->FindAttribute("FrameDt")), "0.000123457 \xB5s");
    EXPECT_DOUBLE_EQ(GetFrameDt(set), 0.000123457);

    C_AttributesContainer memory;
    SetFrameDt(memory, -2.5);
    EXPECT_EQ(memory.GetAttributeValue("FrameDt").GetValue<std::string>(), "-2.5 \xB5s");
    EXPECT_EQ(GetFrameDt(memory), -2.5);
}

TEST(TimeAttributes, GetTimeValueScansTheLeadingNumber)
{
    C_AttributesContainer set;
    EXPECT_BASIS_THROW(GetTimeValue(set, "AcqTime"), Basis::Exception,
                       "Attribute with the name AcqTime does not exist in the attribute set.");
    EXPECT_BASIS_THROW(GetFrameDt(set), Basis::Exception,
                       "Attribute with the name FrameDt does not exist in the attribute set.");
    auto const time = [&](V const & value) {
        set.Remove("t");
        set.Set("t", value);
        return GetTimeValue(set, "t");
    };
    EXPECT_EQ(time("  12.5ms"), 12.5);
    EXPECT_EQ(time("+3e2 s"), 300);
    EXPECT_EQ(time("-0.25"), -0.25);
    EXPECT_EQ(time("abc"), 0.0);
    EXPECT_EQ(time(""), 0.0);
    EXPECT_EQ(time("+-1"), 0.0);
    EXPECT_EQ(time(42), 42);
    EXPECT_EQ(time(std::vector<double>{7.5, 8}), 7.5); // read as its text 7.5,8
}

TEST(BufferStructureInformation, DescribesFrameZero)
{
    std::unique_ptr<FrameStore::I_Buffer> images(FrameStore::CreateBuffer());
    images->CreateFrame(5, 4, 2, FrameStore::DT_DOUBLE)->CreateMaskComponent({});
    images->CreateFrame(1, 1, 1, FrameStore::DT_BYTE);
    BufferStructureInformation const image = GetBufferStructureInformationForBuffer(*images);
    EXPECT_EQ(image.frameCount, 2u);
    EXPECT_EQ(image.depth, 2u);
    EXPECT_EQ(image.width, 5u);
    EXPECT_EQ(image.height, 4u);
    EXPECT_EQ(image.dataType, FrameStore::DT_DOUBLE);
    EXPECT_TRUE(image.isImage);
    EXPECT_FALSE(image.isVector || image.isVector3C);
    EXPECT_TRUE(image.hasMask);
    EXPECT_EQ(image.gridX, 0u);

    for (bool const threeC : {false, true}) {
        std::unique_ptr<FrameStore::I_Buffer> vectors(FrameStore::CreateBuffer());
        FrameStore::I_FrameVector * frame = VectorFrame(threeC);
        frame->SetGridX(16);
        frame->SetGridY(8);
        vectors->AppendFrame(frame);
        BufferStructureInformation const vector = GetBufferStructureInformationForBuffer(*vectors);
        EXPECT_EQ(vector.frameCount, 1u);
        EXPECT_EQ(vector.width, 6u);
        EXPECT_EQ(vector.dataType, FrameStore::DT_FLOAT);
        EXPECT_FALSE(vector.isImage);
        EXPECT_TRUE(vector.isVector);
        EXPECT_EQ(vector.isVector3C, threeC);
        EXPECT_FALSE(vector.hasMask);
        EXPECT_EQ(vector.gridX, 16u);
    }

    std::unique_ptr<FrameStore::I_Buffer> empty(FrameStore::CreateBuffer());
    EXPECT_BASIS_THROW(GetBufferStructureInformationForBuffer(*empty), Basis::VerificationFailed, "Buffer has no frames");
}

TEST(AdcAttribute, ReadsPhaseOrTimeSeriesOfFrameZero)
{
    auto const buffer = std::shared_ptr<FrameStore::I_Buffer>(FrameStore::CreateBuffer());
    auto const adc = [&] { return GetAdcAttribute(buffer); };
    EXPECT_EQ(adc().value, 0.0);
    EXPECT_TRUE(adc().unit.isEmpty());
    EXPECT_TRUE(GetAdcAttribute(nullptr).unit.isEmpty());

    FrameStore::I_Frame * frame = buffer->CreateFrame(2, 2, 1, FrameStore::DT_WORD);
    C_BufferAttributes(*buffer->CreateFrame(2, 2, 1, FrameStore::DT_WORD)).Set("AcqPhase", 99); // not frame 0
    C_BufferAttributes set(*frame);
    set.Set("AcqTime", 5);
    EXPECT_EQ(adc().value, 0.0);
    EXPECT_TRUE(adc().unit.isEmpty());

    set.Set("AcqTimeSeries", "250 us");
    EXPECT_EQ(adc().value, 250);
    EXPECT_EQ(adc().unit, QString(Basis::TimeUnits::Microsecond));
    set.Set("AcqPhase", 12.5);
    EXPECT_EQ(adc().value, 12.5); // the phase wins
    EXPECT_EQ(adc().unit, QString(Basis::AngleUnits::Degree));

    auto const failure = [&]() -> std::string {
        try {
            adc();
        } catch (std::invalid_argument const & e) {
            return std::string("invalid_argument: ") + e.what();
        } catch (std::out_of_range const & e) {
            return std::string("out_of_range: ") + e.what();
        }
        return "no failure";
    };
    set.Set("AcqPhase", "phase");
    EXPECT_EQ(failure(), "invalid_argument: invalid stod argument");
    set.Set("AcqPhase", "1e999");
    EXPECT_EQ(failure(), "out_of_range: stod argument out of range");

    set.Remove("AcqPhase");
    set.Set("AcqPhase", std::vector<int>{1}); // not a text: the unit without a value
    EXPECT_EQ(adc().value, 0.0);
    EXPECT_EQ(adc().unit, QString(Basis::AngleUnits::Degree));
}

TEST(BufferAttributes, FailuresNameTheirSourceFile)
{
    Fixture f;
    C_BufferAttributes set(*f.frame);
    auto const file = [](auto && statement) {
        try {
            statement();
        } catch (Basis::Exception const & e) {
            return e.file();
        }
        return QString();
    };
    EXPECT_TRUE(file([&] { set.GetAttributeValue(""); }).endsWith("BufferAttributes.cpp"));
    EXPECT_TRUE(file([&] { GetFrameDt(set); }).endsWith("GetTimeValueFromAttributes.cpp"));
}
