#include "framestore/Frame.h"

#include "BasisTesting.h"
#include "basis/AlignedMemory.h"
#include "framestore/FrameAttributes.h"
#include "framestore/Plane.h"
#include "framestore/Scale.h"
#include "framestore/TypedScalarFrame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <vector>

using namespace FrameStore;

namespace {

// One plane per z of the frame's size and the type, every byte equal to fill.
void ExpectPlanes(I_Component const * component, E_DataType type, I_Frame const & frame, unsigned char fill = 0)
{
    ASSERT_NE(component, nullptr);
    EXPECT_EQ(component->GetDataType(), type);
    ASSERT_EQ(component->GetPlaneCount(), frame.GetDepth());
    for (unsigned int z = 0; z < frame.GetDepth(); ++z) {
        I_PlaneBase const * plane = component->GetPlane(z);
        EXPECT_EQ(plane->GetDataType(), type);
        EXPECT_EQ(plane->GetWidth(), frame.GetWidth());
        EXPECT_EQ(plane->GetHeight(), frame.GetHeight());
        auto const * bytes = static_cast<unsigned char const *>(plane->GetData());
        EXPECT_TRUE(std::all_of(bytes, bytes + plane->GetByteCount(), [&](unsigned char b) { return b == fill; }))
            << component->GetName() << " z " << z;
    }
    EXPECT_EQ(component->GetPlane(frame.GetDepth()), nullptr);
}

struct ScaleAccess
{
    I_Scale * (I_Frame::*get)() const;
    void (I_Frame::*set)(I_Scale *);
};
ScaleAccess const Scales[] = {{&I_Frame::GetScaleX, &I_Frame::SetScaleX},
                              {&I_Frame::GetScaleY, &I_Frame::SetScaleY},
                              {&I_Frame::GetScaleZ, &I_Frame::SetScaleZ},
                              {&I_Frame::GetScaleI, &I_Frame::SetScaleI}};

// Equal components, planes and scales, none of them shared.
void ExpectDeepCopy(I_Frame const & original, I_Frame const & copy)
{
    EXPECT_EQ(copy.GetDataType(), original.GetDataType());
    EXPECT_EQ(copy.GetDepth(), original.GetDepth());
    ASSERT_EQ(copy.GetComponentCount(), original.GetComponentCount());
    for (unsigned int i = 0; i < original.GetComponentCount(); ++i) {
        I_Component const * a = original.GetComponentAt(i);
        I_Component const * b = copy.GetComponentAt(i);
        EXPECT_TRUE(b->GetName() == a->GetName() && b->GetKind() == a->GetKind() && b->GetChoice() == a->GetChoice()
                    && b->GetDataType() == a->GetDataType())
            << a->GetName();
        ASSERT_EQ(b->GetPlaneCount(), a->GetPlaneCount());
        for (unsigned int z = 0; z < a->GetPlaneCount(); ++z) {
            EXPECT_NE(b->GetPlane(z)->GetData(), a->GetPlane(z)->GetData());
            ASSERT_EQ(b->GetPlane(z)->GetByteCount(), a->GetPlane(z)->GetByteCount());
            EXPECT_EQ(std::memcmp(b->GetPlane(z)->GetData(), a->GetPlane(z)->GetData(), a->GetPlane(z)->GetByteCount()), 0)
                << a->GetName() << " z " << z;
        }
    }
    for (ScaleAccess const & access : Scales) {
        I_Scale const * a = (original.*access.get)();
        I_Scale const * b = (copy.*access.get)();
        EXPECT_NE(a, b);
        EXPECT_TRUE(b->GetKind() == a->GetKind() && b->GetCoefficients() == a->GetCoefficients()
                    && b->GetUnit() == a->GetUnit() && b->GetDescription() == a->GetDescription());
    }
}

template <class T>
void SetAttribute(I_Frame & frame, std::string const & name, E_AttributeKind kind, T const & value)
{
    auto * node = dynamic_cast<I_Attribute<T> *>(frame.CreateAttribute(name, kind));
    ASSERT_NE(node, nullptr) << name;
    node->SetValue(value);
}

} // namespace

TEST(Frame, ImageFrameOfEveryPixelType)
{
    for (E_DataType type : {DT_BYTE, DT_RGB, DT_DOUBLE, DT_FLOAT, DT_INT, DT_UINT, DT_WORD}) {
        SCOPED_TRACE(GetDataTypeName(type));
        std::unique_ptr<I_FrameImage> frame(CreateImageFrame(type, 4, 3, 2));
        ASSERT_NE(frame, nullptr);
        EXPECT_EQ(frame->GetDataType(), type);
        EXPECT_EQ(frame->GetDepth(), 2u);
        EXPECT_FALSE(frame->HasMask());
        int const index = frame->GetComponentIndex(I_FrameImage::COMPONENT_PIXEL);
        ASSERT_GE(index, 0);
        I_Component * pixel = frame->GetComponent(I_FrameImage::COMPONENT_PIXEL);
        EXPECT_EQ(pixel->GetKind(), CK_PIXEL);
        ExpectPlanes(pixel, type, *frame);
        EXPECT_EQ(frame->GetPlane(index, 1), pixel->GetPlane(1));
        EXPECT_EQ(dynamic_cast<I_FrameRGB *>(frame.get()) != nullptr, type == DT_RGB);
        EXPECT_EQ(dynamic_cast<I_FrameVector *>(frame.get()), nullptr);
    }
    EXPECT_EQ(CreateImageFrame(DT_UNKNOWN, 4, 3, 2), nullptr);
    EXPECT_EQ(CreateImageFrame(E_DataType(99), 4, 3, 2), nullptr);

    std::unique_ptr<I_FrameImage> frame(CreateImageFrame(DT_BYTE, 2, 2, 1));
    EXPECT_EQ(frame->GetComponentIndex("Nothing"), -1);
    EXPECT_EQ(frame->GetComponent("Nothing"), nullptr);
    EXPECT_EQ(frame->GetPlane(-1, 0), nullptr);
    EXPECT_EQ(frame->GetPlane(int(frame->GetComponentCount()), 0), nullptr);
}

TEST(Frame, ScalesStartAsIdentityAndAreTakenOver)
{
    std::unique_ptr<I_FrameImage> frame(CreateImageFrame(DT_FLOAT, 2, 2, 1));
    for (ScaleAccess const & access : Scales) {
        I_Scale * initial = (frame.get()->*access.get)();
        ASSERT_NE(initial, nullptr);
        EXPECT_EQ(initial->GetKind(), SK_LINEAR);
        EXPECT_EQ(initial->GetCoefficients(), (std::vector<double>{0.0, 1.0}));
        I_Scale * scale = C_ScaleFactory::GetInstance().CreateLinearScale(0.5, 10.0, "mm", "Axis");
        (frame.get()->*access.set)(scale);
        EXPECT_EQ((frame.get()->*access.get)(), scale);
        (frame.get()->*access.set)(nullptr);
        EXPECT_EQ((frame.get()->*access.get)(), scale);
    }
}

TEST(Frame, MaskFromDefaultOrGivenPlanes)
{
    std::unique_ptr<I_FrameImage> frame(CreateImageFrame(DT_WORD, 3, 2, 2));
    I_Component * mask = frame->CreateMaskComponent({});
    ASSERT_NE(mask, nullptr);
    EXPECT_TRUE(frame->HasMask());
    EXPECT_EQ(mask->GetName(), I_Frame::COMPONENT_MASK);
    EXPECT_EQ(mask->GetKind(), CK_MASK);
    ExpectPlanes(mask, DT_BYTE, *frame, 1);
    unsigned int const count = frame->GetComponentCount();
    EXPECT_EQ(frame->CreateMaskComponent({}), mask);
    EXPECT_EQ(frame->GetComponentCount(), count);

    std::unique_ptr<I_FrameImage> adopting(CreateImageFrame(DT_FLOAT, 3, 2, 2));
    I_PlaneBase * a = CreatePlane(DT_BYTE, 3, 2);
    I_PlaneBase * b = CreatePlane(DT_BYTE, 3, 2);
    I_Component * given = adopting->CreateMaskComponent({a, b});
    ASSERT_NE(given, nullptr);
    EXPECT_TRUE(adopting->HasMask());
    EXPECT_EQ(given->GetPlane(0), a);
    EXPECT_EQ(given->GetPlane(1), b);

    auto refuse = [](std::vector<I_PlaneBase *> const & planes) {
        std::unique_ptr<I_FrameImage> target(CreateImageFrame(DT_FLOAT, 3, 2, 2));
        EXPECT_EQ(target->CreateMaskComponent(planes), nullptr);
        EXPECT_FALSE(target->HasMask());
        for (I_PlaneBase * plane : planes)
            delete plane; // still the caller's
    };
    refuse({CreatePlane(DT_BYTE, 3, 2)});
    refuse({CreatePlane(DT_BYTE, 3, 2), CreatePlane(DT_BYTE, 3, 2), CreatePlane(DT_BYTE, 3, 2)});
    refuse({CreatePlane(DT_BYTE, 3, 2), CreatePlane(DT_WORD, 3, 2)});
    refuse({CreatePlane(DT_BYTE, 3, 2), CreatePlane(DT_BYTE, 2, 3)});
    refuse({CreatePlane(DT_BYTE, 3, 2), nullptr});
}

TEST(Frame, EnableFlagsOfImageFrame)
{
    std::unique_ptr<I_FrameImage> frame(CreateImageFrame(DT_BYTE, 3, 2, 2));
    auto disabledCount = [&] {
        int count = 0;
        for (unsigned int i = 0; i < 12; ++i)
            count += frame->IsEnabled(i % 3, i / 3 % 2, i / 6) ? 0 : 1;
        return count;
    };
    EXPECT_EQ(disabledCount(), 0);
    frame->SetEnabled(2, 1, 1, false);
    EXPECT_FALSE(frame->IsEnabled(2, 1, 1));
    EXPECT_EQ(disabledCount(), 1);
    frame->SetEnabled(3, 0, 0, false);
    frame->SetEnabled(0, 2, 0, false);
    frame->SetEnabled(0, 0, 2, false);
    EXPECT_EQ(disabledCount(), 1);
    frame->SetEnabled(2, 1, 1, true);
    EXPECT_EQ(disabledCount(), 0);
    EXPECT_FALSE(frame->IsEnabled(3, 0, 0)); // outside, with flags made
    std::unique_ptr<I_FrameImage> fresh(CreateImageFrame(DT_BYTE, 3, 2, 2));
    EXPECT_FALSE(fresh->IsEnabled(0, 0, 2)); // outside, before any flag exists
}

TEST(Frame, TypedScalars)
{
    std::unique_ptr<I_FrameImage> frame(CreateImageFrame(DT_WORD, 4, 3, 2));
    I_Component * temperature = frame->AddTypedScalar("Temperature", DT_DOUBLE);
    ASSERT_NE(temperature, nullptr);
    EXPECT_EQ(temperature->GetKind(), CK_TYPED_SCALAR);
    ExpectPlanes(temperature, DT_DOUBLE, *frame);
    I_Component * flags = CreateTypedScalarInFrame(frame.get(), "Flags", DT_BYTE);
    ExpectPlanes(flags, DT_BYTE, *frame);
    unsigned int const count = frame->GetComponentCount();
    EXPECT_EQ(frame->AddTypedScalar("Temperature", DT_DOUBLE), temperature);
    EXPECT_EQ(CreateTypedScalarInFrame(frame.get(), "Flags", DT_BYTE), flags);

    EXPECT_BASIS_THROW(frame->AddTypedScalar("Temperature", DT_FLOAT), Basis::InvalidRequest,
                       "The frame already has a component 'Temperature' of another kind or type");
    // The frame's own names are reserved, also those of components it makes only on demand:
    // a typed scalar called "Mask" would otherwise pass for the mask.
    EXPECT_BASIS_THROW(CreateTypedScalarInFrame(frame.get(), I_FrameImage::COMPONENT_PIXEL, DT_WORD),
                       Basis::InvalidRequest, "The name 'Pixel' is reserved for the frame's own components");
    EXPECT_BASIS_THROW(frame->AddTypedScalar(I_Frame::COMPONENT_MASK, DT_BYTE), Basis::InvalidRequest,
                       "The name 'Mask' is reserved for the frame's own components");
    EXPECT_BASIS_THROW(frame->AddTypedScalar(I_Frame::COMPONENT_ENABLED, DT_BYTE), Basis::InvalidRequest,
                       "The name 'Enabled' is reserved for the frame's own components");
    EXPECT_FALSE(frame->HasMask());
    EXPECT_TRUE(frame->IsEnabled(0, 0, 0));
    EXPECT_BASIS_THROW(frame->AddTypedScalar("Height", DT_UNKNOWN), Basis::InvalidRequest,
                       "A typed scalar cannot be of data type DT_UNKNOWN");
    EXPECT_BASIS_THROW(CreateTypedScalarInFrame(nullptr, "Height", DT_FLOAT), Basis::InvalidRequest,
                       "No frame to add the typed scalar 'Height' to");
    EXPECT_EQ(frame->GetComponentCount(), count);
    EXPECT_EQ(frame->GetTypedScalarNames(), (std::vector<std::string>{"Temperature", "Flags"}));

    C_TypedScalarFrame access(frame.get(), "Flags");
    EXPECT_TRUE(access.IsExisting());
    EXPECT_EQ(access.GetComponent(1), flags);
    EXPECT_EQ(access.GetComponent(2), nullptr);
    access.SetLinearScale(0.5, 2.0, "um", "Height");
    ASSERT_NE(flags->GetScale(), nullptr);
    EXPECT_EQ(flags->GetScale()->GetCoefficients(), (std::vector<double>{2.0, 0.5}));
    EXPECT_EQ(flags->GetScale()->GetUnit(), "um");
    EXPECT_FALSE(C_TypedScalarFrame(frame.get(), I_FrameImage::COMPONENT_PIXEL).IsExisting());
    EXPECT_EQ(C_TypedScalarFrame(frame.get(), "Missing").GetComponent(0), nullptr);

    ASSERT_NE(frame->CreateMaskComponent({}), nullptr);
    EXPECT_TRUE(frame->RemoveComponent("Temperature"));
    EXPECT_EQ(frame->GetComponent("Temperature"), nullptr);
    EXPECT_EQ(frame->GetTypedScalarNames(), std::vector<std::string>{"Flags"});
    EXPECT_FALSE(frame->RemoveComponent("Temperature"));
    EXPECT_TRUE(frame->RemoveComponent(I_Frame::COMPONENT_MASK));
    EXPECT_FALSE(frame->HasMask());
    EXPECT_BASIS_THROW(frame->RemoveComponent(I_FrameImage::COMPONENT_PIXEL), Basis::InvalidRequest,
                       "The component 'Pixel' belongs to the frame's layout and cannot be removed");
    EXPECT_NE(frame->GetComponent(I_FrameImage::COMPONENT_PIXEL), nullptr);
}

TEST(Frame, AttributesAsText)
{
    std::unique_ptr<I_FrameImage> frame(CreateImageFrame(DT_BYTE, 2, 2, 1));
    SetAttribute<std::string>(*frame, "Info.Name", AT_STRING, "Run 7");
    SetAttribute<std::int64_t>(*frame, "Info.Count", AT_INT, -42);
    SetAttribute<std::uint64_t>(*frame, "Info.Size", AT_UINT, std::numeric_limits<std::uint64_t>::max());
    SetAttribute<double>(*frame, "Info.Gain", AT_DOUBLE, 2.5);
    SetAttribute<double>(*frame, "Info.Tenth", AT_DOUBLE, 0.1);
    SetAttribute<bool>(*frame, "Info.Valid", AT_BOOL, true);
    SetAttribute<Basis::TimeStamp>(*frame, "Info.Time", AT_TIMESTAMP, Basis::TimeStamp(12, 500000000000));
    SetAttribute<std::vector<std::uint8_t>>(*frame, "Info.Raw", AT_BINARY, {1, 2});
    dynamic_cast<I_AttributePlane &>(*frame->CreateAttribute("Info.Map", AT_PLANE)).SetPlane(CreatePlane(DT_DOUBLE, 1, 1));

    C_FrameAttributes text(frame.get());
    EXPECT_EQ(text.GetString("Info.Name"), "Run 7");
    EXPECT_EQ(text.GetString("Info.Count"), "-42");
    EXPECT_EQ(text.GetString("Info.Size"), "18446744073709551615");
    EXPECT_EQ(text.GetString("Info.Gain"), "2.5");
    EXPECT_EQ(text.GetString("Info.Tenth"), "0.1"); // shortest form, not 17 digits
    EXPECT_EQ(text.GetString("Info.Valid"), "true");
    EXPECT_EQ(text.GetString("Info.Time"), "12.5");
    for (char const * empty : {"Info.Raw", "Info.Map", "Info", "Info.Missing"})
        EXPECT_EQ(text.GetString(empty), "") << empty;
    EXPECT_EQ(C_FrameAttributes(nullptr).GetString("Info.Name"), "");
}

TEST(Frame, ImageFrameTakesOverPlaneMemory)
{
    auto * block = Basis::AllocateElements<std::int32_t>(6);
    block[5] = 77;
    std::unique_ptr<I_FrameImage> frame(CreateImageFrameWithPlaneMemory(DT_INT, 3, 2, static_cast<void *>(block)));
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->GetDepth(), 1u);
    EXPECT_EQ(frame->GetDataType(), DT_INT);
    I_PlaneBase * plane = frame->GetComponent(I_FrameImage::COMPONENT_PIXEL)->GetPlane(0);
    EXPECT_EQ(plane->GetData(), block);
    EXPECT_EQ(static_cast<std::int32_t const *>(plane->GetData())[5], 77);

    std::vector<void *> const blocks{Basis::AllocateElements<std::uint32_t>(4), Basis::AllocateElements<std::uint32_t>(4)};
    std::unique_ptr<I_FrameImage> rgb(CreateImageFrameWithPlaneMemory(DT_RGB, 2, 2, blocks));
    ASSERT_NE(rgb, nullptr);
    EXPECT_NE(dynamic_cast<I_FrameRGB *>(rgb.get()), nullptr);
    ASSERT_EQ(rgb->GetDepth(), 2u);
    EXPECT_EQ(rgb->GetComponent(I_FrameImage::COMPONENT_PIXEL)->GetPlane(0)->GetData(), blocks[0]);
    EXPECT_EQ(rgb->GetComponent(I_FrameImage::COMPONENT_PIXEL)->GetPlane(1)->GetData(), blocks[1]);

    // Refused memory stays with the caller.
    void * kept = Basis::AllocateElements<float>(4);
    EXPECT_EQ(CreateImageFrameWithPlaneMemory(DT_FLOAT, 2, 2, static_cast<void *>(nullptr)), nullptr);
    EXPECT_EQ(CreateImageFrameWithPlaneMemory(DT_UNKNOWN, 2, 2, kept), nullptr);
    EXPECT_EQ(CreateImageFrameWithPlaneMemory(DT_FLOAT, 2, 2, std::vector<void *>{kept, nullptr}), nullptr);
    Basis::FreeAligned(kept);
}

TEST(Frame, VectorFramesHaveComponentsPerChoice)
{
    std::unique_ptr<I_FrameVector2C> two(CreateVectorFrame2C(4, 3, 2, 3));
    ASSERT_NE(two, nullptr);
    EXPECT_EQ(two->GetChoiceCount(), 3u);
    EXPECT_EQ(two->GetDataType(), DT_FLOAT);
    EXPECT_EQ(dynamic_cast<I_FrameVector3C *>(two.get()), nullptr);
    for (unsigned int choice = 0; choice < 3; ++choice) {
        for (std::string const & name : {I_FrameVector::COMPONENT_U, I_FrameVector::COMPONENT_V}) {
            I_Component * component = two->GetComponent(name, choice);
            ASSERT_NE(component, nullptr) << name << choice;
            EXPECT_TRUE(component->GetName() == name && component->GetKind() == CK_VECTOR
                        && component->GetChoice() == choice);
            ExpectPlanes(component, DT_FLOAT, *two);
        }
        EXPECT_EQ(two->GetComponent(I_FrameVector::COMPONENT_W, choice), nullptr);
    }
    EXPECT_EQ(two->GetComponent(I_FrameVector::COMPONENT_U, 3), nullptr);
    EXPECT_EQ(two->GetComponent(I_Frame::COMPONENT_ENABLED)->GetKind(), CK_ENABLED);
    ExpectPlanes(two->GetComponent(I_Frame::COMPONENT_ENABLED), DT_BYTE, *two);
    EXPECT_EQ(two->GetComponent(I_FrameVector::COMPONENT_ACTIVE_CHOICE)->GetKind(), CK_ACTIVE_CHOICE);
    ExpectPlanes(two->GetComponent(I_FrameVector::COMPONENT_ACTIVE_CHOICE), DT_INT, *two);
    EXPECT_BASIS_THROW(two->RemoveComponent(I_FrameVector::COMPONENT_U), Basis::InvalidRequest,
                       "The component 'U' belongs to the frame's layout and cannot be removed");

    EXPECT_TRUE(two->GetGridX() == 1 && two->GetGridY() == 1 && two->GetGridZ() == 1);
    two->SetGridX(4);
    two->SetGridY(8);
    two->SetGridZ(2);
    EXPECT_TRUE(two->GetGridX() == 4 && two->GetGridY() == 8 && two->GetGridZ() == 2);

    std::unique_ptr<I_FrameVector3C> three(CreateVectorFrame3C(2, 2, 1, 2));
    ASSERT_NE(three, nullptr);
    for (unsigned int choice = 0; choice < 2; ++choice)
        ExpectPlanes(three->GetComponent(I_FrameVector::COMPONENT_W, choice), DT_FLOAT, *three);
    EXPECT_EQ(three->GetComponent(I_FrameVector::COMPONENT_W, 2), nullptr);
    EXPECT_EQ(CreateVectorFrame2C(2, 2, 1, 0), nullptr);
    EXPECT_EQ(CreateVectorFrame3C(2, 2, 1, 0), nullptr);
}

TEST(Frame, CloneIsDeepAndOfTheSameKind)
{
    std::unique_ptr<I_FrameImage> image(CreateImageFrame(DT_FLOAT, 3, 2, 2));
    static_cast<float *>(image->GetPlane(0, 1)->GetData())[4] = 1.25f;
    image->SetScaleX(C_ScaleFactory::GetInstance().CreateLinearScale(0.5, 3.0, "mm", "X"));
    image->SetScaleI(C_ScaleFactory::GetInstance().CreatePolynomialScale({1.0, 2.0, 3.0}, "V", "I"));
    SetAttribute<double>(*image, "Info.Gain", AT_DOUBLE, 1.5);
    static_cast<std::uint16_t *>(image->AddTypedScalar("Height", DT_WORD)->GetPlane(1)->GetData())[2] = 900;
    ASSERT_NE(image->CreateMaskComponent({}), nullptr);
    image->SetEnabled(1, 1, 0, false);

    std::unique_ptr<I_Frame> copy = image->Clone();
    EXPECT_NE(dynamic_cast<I_FrameImage *>(copy.get()), nullptr);
    EXPECT_EQ(dynamic_cast<I_FrameRGB *>(copy.get()), nullptr);
    ExpectDeepCopy(*image, *copy);
    EXPECT_FALSE(copy->IsEnabled(1, 1, 0));
    EXPECT_NE(copy->FindAttribute("Info.Gain"), image->FindAttribute("Info.Gain"));
    static_cast<float *>(image->GetPlane(0, 1)->GetData())[4] = -1.0f;
    image->GetScaleX()->SetFactor(9.0);
    SetAttribute<double>(*image, "Info.Gain", AT_DOUBLE, 0.0);
    EXPECT_EQ(static_cast<float const *>(copy->GetPlane(0, 1)->GetData())[4], 1.25f);
    EXPECT_DOUBLE_EQ(copy->GetScaleX()->GetFactor(0.0), 0.5);
    EXPECT_EQ(C_FrameAttributes(copy.get()).GetString("Info.Gain"), "1.5");

    std::unique_ptr<I_FrameImage> colour(CreateImageFrame(DT_RGB, 2, 2, 1));
    std::unique_ptr<I_Frame> colourCopy = colour->Clone();
    EXPECT_NE(dynamic_cast<I_FrameRGB *>(colourCopy.get()), nullptr);
    ExpectDeepCopy(*colour, *colourCopy);

    std::unique_ptr<I_FrameVector3C> vectors(CreateVectorFrame3C(3, 2, 2, 2));
    vectors->SetGridX(4);
    vectors->SetGridY(5);
    vectors->SetGridZ(6);
    static_cast<float *>(vectors->GetComponent(I_FrameVector::COMPONENT_W, 1)->GetPlane(1)->GetData())[3] = 2.0f;
    std::unique_ptr<I_Frame> vectorCopy = vectors->Clone();
    auto * copied3C = dynamic_cast<I_FrameVector3C *>(vectorCopy.get());
    ASSERT_NE(copied3C, nullptr);
    EXPECT_EQ(copied3C->GetChoiceCount(), 2u);
    EXPECT_TRUE(copied3C->GetGridX() == 4 && copied3C->GetGridY() == 5 && copied3C->GetGridZ() == 6);
    ExpectDeepCopy(*vectors, *vectorCopy);

    std::unique_ptr<I_FrameVector2C> twoC(CreateVectorFrame2C(2, 2, 1, 1));
    std::unique_ptr<I_Frame> twoCopy = twoC->Clone();
    EXPECT_NE(dynamic_cast<I_FrameVector2C *>(twoCopy.get()), nullptr);
    EXPECT_EQ(dynamic_cast<I_FrameVector3C *>(twoCopy.get()), nullptr);
    ExpectDeepCopy(*twoC, *twoCopy);
}
