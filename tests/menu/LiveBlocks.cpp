#include "LiveBlocks.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> liveBlocks = 0;

} // namespace

std::size_t LiveBlocks() {
    return liveBlocks;
}

// In a source of their own, where the compiler can't look into them and doubt that they match.
void* operator new(std::size_t size) {
    void* block = std::malloc(size != 0 ? size : 1);
    if (block == nullptr) throw std::bad_alloc();
    ++liveBlocks;
    return block;
}

void operator delete(void* block) noexcept {
    if (block != nullptr) --liveBlocks;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    ::operator delete(block);
}
