#include "background/dxf_arena.h"

#include <algorithm>

namespace quillon {

void DxfArena::Clear() {
    *this = {};
}

void DxfArena::AddBlock(std::size_t size) {
    const std::size_t usual = std::clamp(capacity * 2, kFirstBlock, kLargestBlock);
    BigArray<char> fresh(std::max(usual, size));
    if (!fresh) throw std::bad_alloc();
    blocks.push_back(std::move(fresh));
    block = blocks.back().Data();
    capacity = blocks.back().Size();
    total += capacity;
    used = 0;
}

}  // namespace quillon
