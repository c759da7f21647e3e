#include "dataobjects/AttributesContainer.h"

#include "BasisTesting.h"

#include <atomic>
#include <map>
#include <thread>
#include <utility>

using namespace DataObjects;
using V = C_AttributeValue;
using Strings = std::vector<std::string>;
using IntList = std::vector<int>;
using DoubleList = std::vector<double>;

namespace {

// Name, type code and text of every attribute, in the order the set gives them.
Strings Dump(C_Attributes const & attributes)
{
    Strings out;
    for (C_Attribute const & a : attributes.GetAttributes())
        out.push_back(a.GetName() + ":" + std::to_string(a.GetValue().GetType()) + "=" + a.GetValue().ToString());
    return out;
}

Strings Names(C_Attributes const & attributes)
{
    Strings out;
    for (C_Attribute const & a : attributes.GetAttributes())
        out.push_back(a.GetName());
    return out;
}

C_AttributesContainer Make(std::vector<std::pair<std::string, V>> const & entries)
{
    C_AttributesContainer c;
    for (auto const & [name, value] : entries)
        c.Set(name, value);
    return c;
}

// An attribute set that is not a container and records the calls a merge makes on it.
class RecordingAttributes : public C_Attributes
{
public:
    void Set(C_Attribute const & a) override { Set(a.GetName(), a.GetValue()); }
    void Set(std::string const & name, V const & value) override { calls.push_back("Set " + name); m_values[name] = value; }
    V GetAttributeValue(std::string const & name) const override { return m_values.count(name) ? m_values.at(name) : V(); }
    C_Attribute GetAttribute(std::string const & name) const override { return {name, GetAttributeValue(name)}; }
    void Remove(std::string const & name) override { calls.push_back("Remove " + name); m_values.erase(name); }
    bool Contains(std::string const & name) const override { calls.push_back("Contains " + name); return m_values.count(name); }
    void Clear() override { m_values.clear(); }
    std::unique_ptr<C_Attributes> Clone() const override { return std::make_unique<RecordingAttributes>(*this); }
    bool IsEmpty() const override { return m_values.empty(); }
    std::vector<C_Attribute> GetAttributes() const override
    {
        std::vector<C_Attribute> out;
        for (auto const & [name, value] : m_values)
            out.emplace_back(name, value);
        return out;
    }

    mutable Strings calls;

private:
    std::map<std::string, V> m_values;
};

} // namespace

TEST(AttributesContainer, SetNeverStoresNullAndKeepsTheTypeCode)
{
    C_AttributesContainer c;
    EXPECT_TRUE(c.IsEmpty());
    c.Set("absent", V());
    EXPECT_TRUE(c.IsEmpty());

    c.Set("x", 2.5);
    c.Set("x", 7); // both scalars
    EXPECT_EQ(c.GetAttributeValue("x").GetVariant().userType(), QMetaType::Int);
    EXPECT_BASIS_THROW(c.Set("x", IntList{1}), Basis::Exception, "Unknown C_AttributeValue::type");
    c.Set(C_Attribute("l", IntList{1, 2}));
    EXPECT_BASIS_THROW(c.Set("l", DoubleList{1}), Basis::Exception, "Unknown C_AttributeValue::type");
    EXPECT_BASIS_THROW(c.Set(C_Attribute("l", V(3))), Basis::Exception, "Unknown C_AttributeValue::type");
    EXPECT_EQ(Dump(c), (Strings{"l:3=1,2", "x:1=7"}));

    c.Set("x", V());
    EXPECT_EQ(Names(c), Strings{"l"});
    c.Set(C_Attribute("l", V()));
    EXPECT_TRUE(c.IsEmpty());

    // Once removed, the name may take another type code.
    c.Set("x", DoubleList{0.5});
    EXPECT_EQ(Dump(c), Strings{"x:5=0.5"});
}

TEST(AttributesContainer, LookupsAndTheEmptyName)
{
    C_AttributesContainer c;
    EXPECT_BASIS_THROW(c.GetAttributeValue(""), Basis::InvalidArgumentError, "Empty name.");
    EXPECT_BASIS_THROW(c.GetAttribute(""), Basis::InvalidArgumentError, "Empty name.");
    EXPECT_FALSE(c.Contains(""));
    c.Set("", 1); // stored without a check, though it cannot be read back
    EXPECT_TRUE(c.Contains(""));
    EXPECT_EQ(Dump(c), Strings{":1=1"});
    EXPECT_BASIS_THROW(c.GetAttributeValue(""), Basis::InvalidArgumentError, "Empty name.");

    c.Set("k.v", "text");
    EXPECT_FALSE(c.Contains("k")); // exact names only
    EXPECT_TRUE(c.GetAttribute("k.v") == C_Attribute("k.v", "text"));
    C_Attribute const missing = c.GetAttribute("missing");
    EXPECT_EQ(missing.GetName(), "missing");
    EXPECT_TRUE(missing.GetValue().IsNull());
}

TEST(AttributesContainer, AttributesComeInByteOrderOfTheirNames)
{
    EXPECT_EQ(Dump(Make({{"b", 1}, {"a.x", 2}, {"a", 3}})), (Strings{"a:1=3", "a.x:1=2", "b:1=1"}));
    // Upper case before lower, '.' before '0', and bytes from 0x80 after all of ASCII.
    EXPECT_EQ(Names(Make({{"\xC3\xA4", 1}, {"z", 2}, {"a0", 3}, {"a.", 4}, {"B", 5}})),
              (Strings{"B", "a.", "a0", "z", "\xC3\xA4"}));
}

TEST(AttributesContainer, RemoveTakesDottedMembersOrAnAsteriskPrefix)
{
    auto c = Make({{"a", 1}, {"a.x", 2}, {"a.x.y", 3}, {"ab", 4}, {"a-", 5}, {"b", 6}});
    c.Remove("a.x"); // a member with its own members, not its group
    EXPECT_EQ(Names(c), (Strings{"a", "a-", "ab", "b"}));
    c.Set("a.x", 2);
    c.Remove("a");
    EXPECT_EQ(Names(c), (Strings{"a-", "ab", "b"}));
    for (char const * absent : {"zzz", "A", "b.", "a", ""})
        c.Remove(absent);
    EXPECT_EQ(Names(c), (Strings{"a-", "ab", "b"}));
    c.Set("a", 1);
    c.Set("a.x", 2);
    c.Remove("a*");
    EXPECT_EQ(Names(c), Strings{"b"});

    // Only the part before the asterisk counts.
    auto acq = Make({{"Ac", 1}, {"Acq", 2}, {"AcqTime", 3}, {"AcqTimeList", 4}, {"Bcq", 5}, {"acq", 6}});
    acq.Remove("Acq*Time");
    EXPECT_EQ(Names(acq), (Strings{"Ac", "Bcq", "acq"}));
    acq.Remove("*");
    EXPECT_TRUE(acq.IsEmpty());
}

TEST(AttributesContainer, CopiesMovesAndClonesAreDeep)
{
    auto const original = Make({{"a", 1}, {"b", "t"}, {"l", IntList{1, 2}}});
    Strings const content = Dump(original);

    C_AttributesContainer copy(original);
    EXPECT_EQ(Dump(copy), content);
    copy.Set("a", 2);
    copy.Remove("b");
    EXPECT_EQ(Dump(original), content);

    auto assigned = Make({{"z", 9}, {"a", "old"}});
    assigned = original; // replaces, does not merge
    EXPECT_EQ(Dump(assigned), content);
    C_AttributesContainer const & alias = assigned;
    assigned = alias;
    EXPECT_EQ(Dump(assigned), content);
    assigned.Set("a", 5);
    EXPECT_EQ(Dump(original), content);

    C_AttributesContainer moved(std::move(assigned));
    EXPECT_EQ(Names(moved), (Strings{"a", "b", "l"}));
    auto moveAssigned = Make({{"q", 1}});
    moveAssigned = std::move(moved);
    EXPECT_EQ(Names(moveAssigned), (Strings{"a", "b", "l"}));

    C_Attributes const & base = original;
    C_AttributesContainer fromBase(base);
    EXPECT_EQ(Dump(fromBase), content);
    fromBase.Set("b", "changed");
    EXPECT_EQ(Dump(original), content);

    std::unique_ptr<C_Attributes> clone = original.Clone();
    ASSERT_NE(clone, nullptr);
    EXPECT_NE(dynamic_cast<C_AttributesContainer *>(clone.get()), nullptr);
    EXPECT_EQ(Dump(*clone), content);
    clone->Clear();
    EXPECT_TRUE(clone->IsEmpty());
    EXPECT_EQ(Dump(original), content);
}

TEST(AttributesContainer, MergeKeepsOrOverwritesThroughTheInterface)
{
    auto const source = Make({{"b", 2.5}, {"c", DoubleList{1, 2}}, {"d", IntList{4}}});
    auto const target = Make({{"a", 1}, {"b", "keep"}, {"d", 3}});

    C_AttributesContainer kept(target);
    MergeAttributes(kept, source, false);
    EXPECT_EQ(Dump(kept), (Strings{"a:1=1", "b:1=keep", "c:5=1,2", "d:1=3"}));
    C_AttributesContainer replaced(target);
    MergeAttributes(replaced, source, true); // d changes its type code
    EXPECT_EQ(Dump(replaced), (Strings{"a:1=1", "b:1=2.5", "c:5=1,2", "d:3=4"}));

    // One present and one absent name on a target that is not a container.
    for (bool overwrite : {true, false}) {
        RecordingAttributes recorder;
        recorder.Set("p", 1);
        recorder.calls.clear();
        MergeAttributes(recorder, Make({{"p", 2}, {"q", 3}}), overwrite);
        Strings const expected = overwrite ? Strings{"Contains p", "Remove p", "Set p", "Contains q", "Set q"}
                                           : Strings{"Contains p", "Contains q", "Set q"};
        EXPECT_EQ(recorder.calls, expected) << "overwrite " << overwrite;
        EXPECT_EQ(Dump(recorder), (Strings{overwrite ? "p:1=2" : "p:1=1", "q:1=3"}));
    }

    // A source that is not a container, copied into one.
    RecordingAttributes foreign;
    foreign.Set("z", IntList{1});
    foreign.Set("y", 2);
    EXPECT_EQ(Dump(C_AttributesContainer(foreign)), (Strings{"y:1=2", "z:3=1"}));
}

TEST(AttributesContainer, ConcurrentSetAndRemoveLeaveAKnownContent)
{
    constexpr int threads = 8;
    constexpr int rounds = 300;
    C_AttributesContainer c;
    std::atomic<bool> go{false};
    std::vector<std::thread> pool;
    for (int t = 0; t < threads; ++t)
        pool.emplace_back([&, t] {
            std::string const own = "T" + std::to_string(t);
            while (!go.load())
                std::this_thread::yield();
            for (int r = 0; r < rounds; ++r) {
                c.Set(own + ".keep", r);
                c.Set(own + ".list", IntList{t, r});
                c.Set(own + ".gone", 1.5);
                c.Set(own + ".gone.sub", "x");
                c.Remove(own + ".gone");
                c.Set(own + "Tmp" + std::to_string(r % 3), r);
                c.Remove(own + "Tmp*");
                c.Set(own + ".null", r);
                c.Set(own + ".null", V());
                // Every thread's last write of "shared" is the last round, and its last call on
                // "toggle" removes it, so the final state does not depend on the interleaving.
                c.Set("shared", r);
                c.Set("toggle", t);
                c.Remove("toggle");
            }
        });
    go = true;
    for (std::thread & thread : pool)
        thread.join();

    Strings expected;
    for (int t = 0; t < threads; ++t) {
        std::string const own = "T" + std::to_string(t);
        expected.push_back(own + ".keep:1=" + std::to_string(rounds - 1));
        expected.push_back(own + ".list:3=" + std::to_string(t) + "," + std::to_string(rounds - 1));
    }
    expected.push_back("shared:1=" + std::to_string(rounds - 1));
    EXPECT_EQ(Dump(c), expected);
}
