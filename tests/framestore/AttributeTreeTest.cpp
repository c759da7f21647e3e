#include "framestore/Attribute.h"

#include "framestore/Plane.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

using namespace FrameStore;

namespace {

template <class T>
void ExpectValueNode(E_AttributeKind kind, T const & value)
{
    SCOPED_TRACE(testing::Message() << "kind " << kind);
    std::unique_ptr<I_AttributeBase> node = CreateAttribute("Name", kind);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->GetKind(), kind);
    auto * typed = dynamic_cast<I_Attribute<T> *>(node.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_EQ(typed->GetValue(), T());
    typed->SetValue(value);
    EXPECT_EQ(typed->GetValue(), value);
}

template <class T>
void SetValue(I_AttributeBase * node, T const & value)
{
    auto * typed = dynamic_cast<I_Attribute<T> *>(node);
    ASSERT_NE(typed, nullptr);
    typed->SetValue(value);
}

template <class T>
T ValueOf(I_AttributeBase const * node)
{
    auto const * typed = dynamic_cast<I_Attribute<T> const *>(node);
    return typed ? typed->GetValue() : T();
}

} // namespace

TEST(AttributeTree, EveryKindHoldsItsValue)
{
    ExpectValueNode<std::int64_t>(AT_INT, std::numeric_limits<std::int64_t>::min());
    ExpectValueNode<std::uint64_t>(AT_UINT, std::numeric_limits<std::uint64_t>::max());
    ExpectValueNode<double>(AT_DOUBLE, -2.75);
    ExpectValueNode<std::string>(AT_STRING, "Gain");
    ExpectValueNode<bool>(AT_BOOL, true);
    ExpectValueNode<Basis::TimeStamp>(AT_TIMESTAMP, Basis::TimeStamp(5, 250));
    ExpectValueNode<std::vector<std::uint8_t>>(AT_BINARY, {0, 255, 7});
    EXPECT_EQ(CreateAttribute("Group", AT_GROUP)->GetKind(), AT_GROUP);
    EXPECT_EQ(CreateAttribute("Bad", E_AttributeKind(AttributeKindCount)), nullptr);

    std::unique_ptr<I_AttributeBase> node = CreateAttribute("Map", AT_PLANE);
    EXPECT_EQ(node->GetKind(), AT_PLANE);
    auto * holder = dynamic_cast<I_AttributePlane *>(node.get());
    ASSERT_NE(holder, nullptr);
    EXPECT_EQ(holder->GetPlane(), nullptr);
    I_PlaneBase * first = CreatePlane(DT_DOUBLE, 3, 1);
    holder->SetPlane(first);
    EXPECT_EQ(holder->GetPlane(), first);
    // The replaced plane must be destroyed; the sanitizer build reports it otherwise.
    I_PlaneBase * second = CreatePlane(DT_BYTE, 2, 2);
    holder->SetPlane(second);
    EXPECT_EQ(holder->GetPlane(), second);
}

TEST(AttributeTree, DottedPathsCreateFindAndRemoveNestedNodes)
{
    std::unique_ptr<I_AttributeBase> root = CreateAttribute("", AT_GROUP);
    I_AttributeBase * gain = root->Create("Camera.Gain", AT_STRING);
    ASSERT_NE(gain, nullptr);
    EXPECT_TRUE(gain->GetName() == "Gain" && gain->GetKind() == AT_STRING);
    I_AttributeBase * camera = root->Find("Camera");
    ASSERT_NE(camera, nullptr);
    EXPECT_EQ(camera->GetKind(), AT_GROUP);
    ASSERT_EQ(camera->GetChildCount(), 1u);
    EXPECT_EQ(camera->GetChild(0), gain);
    EXPECT_EQ(root->Find("Camera.Gain"), gain);
    I_AttributeBase * width = root->Create("Camera.Sensor.Width", AT_UINT);
    EXPECT_EQ(root->Find("Camera.Sensor.Width"), width);
    EXPECT_EQ(root->Find("Gain"), nullptr);
    EXPECT_EQ(root->Find("Camera.Gain.Unit"), nullptr);

    for (std::string const path : {"", "a.", ".a", "a..b", "Camera.", ".Camera", "Camera..Gain", "Camera.Gain."}) {
        EXPECT_EQ(root->Find(path), nullptr) << path;
        EXPECT_EQ(root->Create(path, AT_INT), nullptr) << path;
    }
    EXPECT_EQ(root->Create("New.Node", E_AttributeKind(AttributeKindCount)), nullptr);
    // Nothing was made on the way by the refused paths.
    EXPECT_EQ(root->GetChildCount(), 1u);
    EXPECT_EQ(camera->GetChildCount(), 2u);
    EXPECT_EQ(gain->GetChildCount(), 0u);

    EXPECT_TRUE(root->Remove("Camera.Gain"));
    EXPECT_EQ(root->Find("Camera.Gain"), nullptr);
    EXPECT_EQ(camera->GetChildCount(), 1u);
    for (char const * absent : {"Camera.Gain", "Lens.Gain", "Width"})
        EXPECT_FALSE(root->Remove(absent)) << absent;
    EXPECT_TRUE(root->Remove("Camera"));
    EXPECT_EQ(root->GetChildCount(), 0u);
}

TEST(AttributeTree, CreateAtAnExistingPathKeepsOrReplacesTheNode)
{
    std::unique_ptr<I_AttributeBase> root = CreateAttribute("", AT_GROUP);
    I_AttributeBase * gain = root->Create("Camera.Gain", AT_DOUBLE);
    SetValue(gain, 2.0);
    SetValue<std::string>(root->Create("Camera.Gain.Unit", AT_STRING), "dB");
    EXPECT_EQ(root->Create("Camera.Gain", AT_DOUBLE), gain);
    EXPECT_EQ(ValueOf<double>(gain), 2.0);

    I_AttributeBase * replaced = root->Create("Camera.Gain", AT_INT);
    ASSERT_NE(replaced, nullptr);
    EXPECT_EQ(replaced->GetKind(), AT_INT);
    EXPECT_EQ(root->Find("Camera.Gain"), replaced);
    EXPECT_EQ(root->Find("Camera")->GetChildCount(), 1u);
    // The sub-attributes survive the change of kind.
    EXPECT_EQ(replaced->GetChildCount(), 1u);
    EXPECT_EQ(ValueOf<std::string>(root->Find("Camera.Gain.Unit")), "dB");
}

TEST(AttributeTree, CloneIsDeep)
{
    std::unique_ptr<I_AttributeBase> root = CreateAttribute("Root", AT_GROUP);
    SetValue<std::int64_t>(root->Create("A.Count", AT_INT), 7);
    auto * map = dynamic_cast<I_AttributePlane *>(root->Create("A.Map", AT_PLANE));
    map->SetPlane(CreatePlane(DT_INT, 2, 1));
    static_cast<std::int32_t *>(map->GetPlane()->GetData())[1] = 99;
    ASSERT_NE(root->Create("B", AT_STRING), nullptr);

    std::unique_ptr<I_AttributeBase> copy = root->Clone();
    SetValue<std::int64_t>(root->Find("A.Count"), 8);
    static_cast<std::int32_t *>(map->GetPlane()->GetData())[1] = -1;
    EXPECT_TRUE(root->Remove("B"));

    EXPECT_NE(copy->Find("A.Count"), root->Find("A.Count"));
    EXPECT_EQ(ValueOf<std::int64_t>(copy->Find("A.Count")), 7);
    auto * copiedMap = dynamic_cast<I_AttributePlane *>(copy->Find("A.Map"));
    ASSERT_NE(copiedMap, nullptr);
    ASSERT_NE(copiedMap->GetPlane(), nullptr);
    EXPECT_NE(copiedMap->GetPlane(), map->GetPlane());
    EXPECT_EQ(static_cast<std::int32_t const *>(copiedMap->GetPlane()->GetData())[1], 99);
    EXPECT_NE(copy->Find("B"), nullptr);
}

TEST(AttributeTree, GetListNamesValueNodesInTreeOrder)
{
    std::unique_ptr<I_AttributeBase> root = CreateAttribute("", AT_GROUP);
    root->Create("Top", AT_INT);
    root->Create("Camera.Gain.Unit", AT_STRING);
    root->Create("Camera.Gain", AT_DOUBLE); // a value node with a child
    root->Create("Camera.Sensor.Width", AT_UINT);
    root->Create("Note", AT_PLANE);

    std::vector<std::string> names{"kept"};
    std::vector<I_AttributeBase *> nodes{nullptr};
    Attributes::GetList(root.get(), true, "", names, nodes);
    std::vector<std::string> const all{"kept", "Top", "Camera.Gain", "Camera.Gain.Unit", "Camera.Sensor.Width", "Note"};
    EXPECT_EQ(names, all);
    ASSERT_EQ(nodes.size(), all.size());
    for (std::size_t i = 1; i < all.size(); ++i)
        EXPECT_EQ(nodes[i], root->Find(all[i])) << all[i];

    names.clear();
    nodes.clear();
    Attributes::GetList(root.get(), false, "", names, nodes);
    EXPECT_EQ(names, (std::vector<std::string>{"Top", "Note"}));
    EXPECT_EQ(nodes, (std::vector<I_AttributeBase *>{root->Find("Top"), root->Find("Note")}));

    names.clear();
    Attributes::GetList(root->Find("Camera"), true, "Frame.Camera", names, nodes);
    EXPECT_EQ(names, (std::vector<std::string>{"Frame.Camera.Gain", "Frame.Camera.Gain.Unit", "Frame.Camera.Sensor.Width"}));
}
