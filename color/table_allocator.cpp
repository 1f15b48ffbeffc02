#include "color/table_allocator.h"

#include <algorithm>
#include <iterator>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace {

// Enough for the tables of two writers alive at once.
constexpr std::size_t kept_blocks = 8;
// Larger blocks (a full 8-bit cube) are rare: they go straight back.
constexpr std::size_t largest_kept_block = 1 << 20;

struct block_cache {
    std::mutex mutex;
    std::vector<std::pair<void*, std::size_t>> blocks;

    ~block_cache()
    {
        for (const auto& block : blocks)
            ::operator delete(block.first);
    }
};

block_cache& cache()
{
    static block_cache shared;
    return shared;
}

} // namespace

void* acquire_table_memory(std::size_t bytes)
{
    {
        block_cache& c = cache();
        const std::lock_guard<std::mutex> lock(c.mutex);
        // Most recently freed first: its pages are the likeliest to be warm.
        const auto found = std::find_if(c.blocks.rbegin(), c.blocks.rend(),
                                        [bytes](const auto& block) { return block.second == bytes; });
        if (found != c.blocks.rend()) {
            void* block = found->first;
            c.blocks.erase(std::next(found).base());
            return block;
        }
    }
    return ::operator new(bytes);
}

void release_table_memory(void* block, std::size_t bytes) noexcept
{
    if (!block)
        return;
    if (bytes <= largest_kept_block) {
        block_cache& c = cache();
        const std::lock_guard<std::mutex> lock(c.mutex);
        if (c.blocks.size() < kept_blocks) {
            try {
                c.blocks.emplace_back(block, bytes);
                return;
            } catch (...) {
                // No room to remember it: give it back below.
            }
        }
    }
    ::operator delete(block);
}
