// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Memory.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <sys/mman.h>

namespace vexlator::platform {

namespace {

constexpr std::size_t smallestMapping = std::size_t{1} << 20;

bool IsMapped(std::size_t bytes) {
    return bytes >= smallestMapping;
}

void* Map(std::size_t bytes) {
    void* block = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return block == MAP_FAILED ? nullptr : block;
}

void* Remap(void* block, std::size_t oldBytes, std::size_t newBytes) {
    void* moved = ::mremap(block, oldBytes, newBytes, MREMAP_MAYMOVE);
    return moved == MAP_FAILED ? nullptr : moved;
}

void* Grow(void* block, std::size_t oldBytes, std::size_t newBytes) {
    if (!IsMapped(newBytes)) return std::realloc(block, newBytes);
    if (IsMapped(oldBytes)) return Remap(block, oldBytes, newBytes);
    void* mapped = Map(newBytes);
    if (mapped && oldBytes > 0) std::memcpy(mapped, block, oldBytes);
    if (mapped) std::free(block);
    return mapped;
}

}  // namespace

void* ResizeBlock(void* block, std::size_t oldBytes, std::size_t newBytes) {
    void* grown = Grow(block, oldBytes, newBytes);
    if (!grown) throw std::bad_alloc();
    if (IsMapped(newBytes)) ::madvise(grown, newBytes, MADV_HUGEPAGE);
    return grown;
}

void FreeBlock(void* block, std::size_t bytes) noexcept {
    if (IsMapped(bytes))
        ::munmap(block, bytes);
    else
        std::free(block);
}

}  // namespace vexlator::platform
