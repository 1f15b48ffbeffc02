#include "color/colour_table.h"
#include "color/table_allocator.h"

#include <gtest/gtest.h>
#include <set>
#include <vector>

constexpr std::size_t cube_bytes = 17 * 17 * 17 * sizeof(colour_entry);

TEST(table_allocator, reuses_freed_blocks_and_never_hands_one_out_twice)
{
    void* first = acquire_table_memory(cube_bytes);
    release_table_memory(first, cube_bytes);
    void* second = acquire_table_memory(cube_bytes);
    EXPECT_EQ(second, first);
    release_table_memory(second, cube_bytes);

    // More blocks than the cache keeps, freed and taken again: all distinct.
    for (int round = 0; round < 2; ++round) {
        std::vector<void*> blocks;
        for (int i = 0; i < 20; ++i)
            blocks.push_back(acquire_table_memory(cube_bytes));
        EXPECT_EQ(std::set<void*>(blocks.begin(), blocks.end()).size(), blocks.size());
        for (void* block : blocks)
            release_table_memory(block, cube_bytes);
    }
}
