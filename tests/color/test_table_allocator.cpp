#include "color/colour_table.h"
#include "color/table_allocator.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr std::size_t cube_bytes = 17 * 17 * 17 * sizeof(colour_entry);

TEST(table_allocator, freed_table_memory_is_reused_for_the_next_table)
{
    void* first = acquire_table_memory(cube_bytes);
    release_table_memory(first, cube_bytes);
    void* second = acquire_table_memory(cube_bytes);
    EXPECT_EQ(second, first);
    release_table_memory(second, cube_bytes);
}

TEST(table_allocator, keeps_only_a_few_blocks_and_never_hands_one_out_twice)
{
    std::vector<void*> blocks;
    for (int i = 0; i < 20; ++i)
        blocks.push_back(acquire_table_memory(cube_bytes));
    for (void* block : blocks)
        release_table_memory(block, cube_bytes);

    std::vector<void*> again;
    for (int i = 0; i < 20; ++i) {
        void* block = acquire_table_memory(cube_bytes);
        for (void* other : again)
            ASSERT_NE(block, other);
        again.push_back(block);
    }
    for (void* block : again)
        release_table_memory(block, cube_bytes);
}

TEST(table_allocator, tables_copy_and_move_like_plain_vectors)
{
    colour_table a;
    fill_identity(a);
    colour_table b = a;
    EXPECT_EQ(b.entries.size(), a.entries.size());
    EXPECT_EQ(b.entries.back().r, 1.0f);
    colour_table c = std::move(a);
    EXPECT_EQ(c.entries.size(), b.entries.size());
}

} // namespace
