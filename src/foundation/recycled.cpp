#include "foundation/recycled.h"

#include <new>

namespace TESK {

namespace {

constexpr std::size_t step = 16;
constexpr std::size_t size_classes = 16; // larger objects are not kept
constexpr std::size_t most_kept = 4096;  // of each size

struct Free_blocks {
    struct Block {
        Block* next;
    };
    Block* first = nullptr;
    std::size_t count = 0;
};
thread_local Free_blocks free_blocks[size_classes];

constexpr std::size_t size_class(std::size_t size) {
    return (size - 1) / step;
}

// The address sanitizer finds the use of a dropped object only when its memory is really given back.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool keeps_blocks = false;
#elif defined(__has_feature)
constexpr bool keeps_blocks = !__has_feature(address_sanitizer);
#else
constexpr bool keeps_blocks = true;
#endif

} // namespace

void* Recycled::operator new(std::size_t size) {
    const std::size_t index = size_class(size);
    if (index >= size_classes)
        return ::operator new(size);
    Free_blocks& free = free_blocks[index];
    if (free.first == nullptr)
        return ::operator new((index + 1) * step);
    --free.count;
    void* block = free.first;
    free.first = free.first->next;
    return block;
}

void Recycled::operator delete(void* block, std::size_t size) {
    const std::size_t index = size_class(size);
    if (block == nullptr || !keeps_blocks || index >= size_classes || free_blocks[index].count >= most_kept) {
        ::operator delete(block);
        return;
    }
    Free_blocks& free = free_blocks[index];
    free.first = new (block) Free_blocks::Block{free.first};
    ++free.count;
}

} // namespace TESK
