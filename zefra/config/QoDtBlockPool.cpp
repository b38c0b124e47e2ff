#include "zefra/config/QoDtBlockPool.h"

#include <mutex>
#include <new>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#define QODT_POOL_BYPASS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QODT_POOL_BYPASS 1
#endif
#endif

#ifndef QODT_POOL_BYPASS

namespace {

constexpr size_t kGrain = 16;
constexpr size_t kLargest = 512;
constexpr size_t kClasses = kLargest / kGrain + 1;
constexpr size_t kChunkBytes = size_t{64} << 10;

struct FreeBlock {
    FreeBlock* next;
};

// One thread's free lists, by size in steps of kGrain, and what is left of
// its current chunk. Plain data: the thread-local needs no constructor.
struct Pool {
    FreeBlock* free[kClasses];
    char* next;
    char* end;
};

thread_local Pool t_pool;

// Every chunk made, so that the chunks stay reachable after the thread that
// made them has ended. Never destroyed: trees may be freed while the
// program's statics are.
struct Chunks {
    std::mutex mutex;
    std::vector<void*> all;
};

Chunks& AllChunks() {
    static Chunks* const chunks = new Chunks;
    return *chunks;
}

void NewChunk(Pool& pool) {
    void* const chunk = ::operator new(kChunkBytes);
    Chunks& chunks = AllChunks();
    {
        const std::lock_guard<std::mutex> lock(chunks.mutex);
        chunks.all.push_back(chunk);
    }
    // The rest of the old chunk, less than one block, is left unused.
    pool.next = static_cast<char*>(chunk);
    pool.end = pool.next + kChunkBytes;
}

size_t ClassOf(size_t size) { return size == 0 ? 1 : (size + kGrain - 1) / kGrain; }

}  // namespace

void* QoDtBlockPool::Allocate(size_t size) {
    if (size > kLargest) return ::operator new(size);
    const size_t sizeClass = ClassOf(size);
    Pool& pool = t_pool;
    if (FreeBlock* const block = pool.free[sizeClass]) {
        pool.free[sizeClass] = block->next;
        return block;
    }
    const size_t bytes = sizeClass * kGrain;
    if (static_cast<size_t>(pool.end - pool.next) < bytes) NewChunk(pool);
    void* const block = pool.next;
    pool.next += bytes;
    return block;
}

void QoDtBlockPool::Free(void* block, size_t size) noexcept {
    if (block == nullptr) return;
    if (size > kLargest) {
        ::operator delete(block);
        return;
    }
    const size_t sizeClass = ClassOf(size);
    Pool& pool = t_pool;
    auto* const freed = static_cast<FreeBlock*>(block);
    freed->next = pool.free[sizeClass];
    pool.free[sizeClass] = freed;
}

#else

void* QoDtBlockPool::Allocate(size_t size) { return ::operator new(size); }

void QoDtBlockPool::Free(void* block, size_t) noexcept { ::operator delete(block); }

#endif
