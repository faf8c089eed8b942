#include "hostkit/structures/tree.h"
#include "tests/hostkit/structures/limited_memory.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

// No memory for anything, for as long as it lives.
class No_Memory {
public:
    No_Memory() { test::largest_allocation = 0; }
    ~No_Memory() { test::largest_allocation = std::numeric_limits<std::size_t>::max(); }
    No_Memory(const No_Memory&) = delete;
    No_Memory& operator=(const No_Memory&) = delete;
};

}

TEST(TreeMemory, TooLittleRefusesAChangeAndLeavesTheTree)
{
    hostkit::Tree_Reset();
    Strato_2D* const root = hostkit::Root_2D();
    Strato_2D* const from = hostkit::Object_2D_Add(root, {});
    Strato_2D* const to = hostkit::Object_2D_Add(root, {});
    Strato_2D* const child = hostkit::Object_2D_Add(from, {});
    const auto taken = [&] {
        const No_Memory here;
        return from->Child_Remove(child);
    };
    EXPECT_EQ(taken(), nullptr);
    EXPECT_EQ(from->Child_Get_Id(child), 0);
    EXPECT_EQ(child->Parent_Get_Pt(), from);
    ASSERT_EQ(from->Child_Remove(child), child);
    const auto put = [&] {
        const No_Memory here;
        return to->Child_Add(child);
    };
    EXPECT_EQ(put(), 0);
    EXPECT_EQ(to->Child_Get_Nb(), 0);
    EXPECT_EQ(child->Parent_Get_Pt(), nullptr);
    EXPECT_EQ(to->Child_Add(child), 1);
    hostkit::Tree_Reset();
}
