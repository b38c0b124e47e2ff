#pragma once
#include "zefra/ZefraExport.h"
// Memory for the nodes of configuration trees: the items and the cells of
// the child lists. A file is read, and a tree freed, tens of thousands of
// small blocks at a time; a free list per block size serves them at a
// fraction of the general allocator's cost.
//
// Blocks are carved from chunks of 64 KiB. A freed block goes to the free
// list of the thread that frees it and is used again for the next block of
// its size; chunks are kept for the life of the process, so memory that a
// large tree used stays ready for the next one. Blocks over 512 bytes come
// from the general allocator. Under AddressSanitizer every block does, so
// that a use after free is still caught.

#include <cstddef>

class ZEFRA_API QoDtBlockPool {
public:
    static void* Allocate(size_t size);
    // `size` is the one given to Allocate.
    static void Free(void* block, size_t size) noexcept;
};
