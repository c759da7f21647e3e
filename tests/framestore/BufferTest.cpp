#include "framestore/Buffer.h"

#include "framestore/Frame.h"
#include "framestore/Plane.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

using namespace FrameStore;

namespace {

std::string TextOf(I_AttributeBase const * node)
{
    auto const * text = dynamic_cast<I_Attribute<std::string> const *>(node);
    return text ? text->GetValue() : "<none>";
}

std::int32_t & Element(I_Frame const * frame, unsigned int index)
{
    return static_cast<std::int32_t *>(frame->GetPlane(0, 0)->GetData())[index];
}

} // namespace

TEST(Buffer, OwnsAndIndexesFramesAndKeepsAttributesOnClear)
{
    std::unique_ptr<I_Buffer> buffer(CreateBuffer());
    EXPECT_EQ(buffer->GetFrameCount(), 0u);
    EXPECT_EQ(buffer->GetFrame(0), nullptr);
    EXPECT_EQ(buffer->GetAttributeRoot()->GetChildCount(), 0u);

    I_Frame * first = CreateImageFrame(DT_BYTE, 2, 2, 1);
    buffer->AppendFrame(first);
    buffer->AppendFrame(nullptr);
    EXPECT_EQ(buffer->GetFrameCount(), 1u);
    EXPECT_EQ(buffer->GetFrame(0), first);
    I_FrameImage * second = buffer->CreateFrame(3, 2, 2, DT_WORD);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(buffer->GetFrame(1), static_cast<I_Frame *>(second));
    EXPECT_TRUE(second->GetWidth() == 3 && second->GetHeight() == 2 && second->GetDepth() == 2);
    EXPECT_EQ(second->GetDataType(), DT_WORD);
    EXPECT_EQ(buffer->CreateFrame(1, 1, 1, DT_UNKNOWN), nullptr);
    EXPECT_EQ(buffer->GetFrameCount(), 2u);
    EXPECT_EQ(buffer->GetFrame(2), nullptr);

    I_AttributeBase * name = buffer->CreateAttribute("Recording.Name", AT_STRING);
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(buffer->FindAttribute("Recording.Name"), name);
    EXPECT_EQ(buffer->GetAttributeRoot()->Find("Recording.Name"), name);
    EXPECT_TRUE(buffer->RemoveAttribute("Recording.Name"));
    EXPECT_EQ(buffer->FindAttribute("Recording.Name"), nullptr);
    EXPECT_FALSE(buffer->RemoveAttribute("Recording.Name"));

    buffer->Clear();
    EXPECT_EQ(buffer->GetFrameCount(), 0u);
    EXPECT_NE(buffer->FindAttribute("Recording"), nullptr);
}

TEST(Buffer, CopyFromMakesDeepCopies)
{
    std::unique_ptr<I_Buffer> source(CreateBuffer());
    I_FrameImage * image = source->CreateFrame(2, 2, 1, DT_INT);
    Element(image, 3) = 31;
    source->AppendFrame(CreateVectorFrame2C(2, 2, 1, 2));
    dynamic_cast<I_Attribute<std::string> &>(*source->CreateAttribute("Recording.Name", AT_STRING)).SetValue("Run 1");

    std::unique_ptr<I_Buffer> target(CreateBuffer());
    target->CreateFrame(5, 5, 1, DT_BYTE);
    target->CreateAttribute("Old", AT_INT);
    target->CopyFrom(*source);
    ASSERT_EQ(target->GetFrameCount(), 2u);
    I_Frame * copied = target->GetFrame(0);
    EXPECT_NE(copied, source->GetFrame(0));
    EXPECT_EQ(copied->GetDataType(), DT_INT);
    EXPECT_NE(copied->GetPlane(0, 0)->GetData(), image->GetPlane(0, 0)->GetData());
    EXPECT_EQ(Element(copied, 3), 31);
    EXPECT_NE(target->GetFrame(1), source->GetFrame(1));
    EXPECT_NE(dynamic_cast<I_FrameVector2C *>(target->GetFrame(1)), nullptr);
    EXPECT_EQ(target->FindAttribute("Old"), nullptr);
    I_AttributeBase * copiedName = target->FindAttribute("Recording.Name");
    EXPECT_NE(copiedName, source->FindAttribute("Recording.Name"));
    EXPECT_EQ(TextOf(copiedName), "Run 1");

    Element(copied, 3) = -5;
    dynamic_cast<I_Attribute<std::string> &>(*copiedName).SetValue("Changed");
    target->Clear();
    EXPECT_EQ(Element(image, 3), 31);
    EXPECT_EQ(TextOf(source->FindAttribute("Recording.Name")), "Run 1");

    I_Frame * before = source->GetFrame(1);
    source->CopyFrom(*source);
    EXPECT_EQ(source->GetFrameCount(), 2u);
    EXPECT_EQ(source->GetFrame(1), before);
    EXPECT_EQ(TextOf(source->FindAttribute("Recording.Name")), "Run 1");
}
