#pragma once

#include <cstddef>

// Memory for colour-table entries. Every style writer builds four tables of
// the same size and drops them when it is done; handing the blocks back to
// the system and faulting them in again for the next writer costs more than
// reading the tables. A few freed blocks are therefore kept for reuse.
void* acquire_table_memory(std::size_t bytes);
void release_table_memory(void* block, std::size_t bytes) noexcept;

template <typename T> class table_allocator {
public:
    using value_type = T;

    table_allocator() noexcept = default;
    template <typename U> table_allocator(const table_allocator<U>&) noexcept {}

    T* allocate(std::size_t n) { return static_cast<T*>(acquire_table_memory(n * sizeof(T))); }
    void deallocate(T* p, std::size_t n) noexcept { release_table_memory(p, n * sizeof(T)); }

    template <typename U> bool operator==(const table_allocator<U>&) const noexcept { return true; }
    template <typename U> bool operator!=(const table_allocator<U>&) const noexcept { return false; }
};
