#pragma once

#include "qzutl/qzLargePages.h"
#include "qzutl/qzMallocAllocator.h"
#include "qzutl/qzSimpleMutex.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <mutex>
#include <new>

/// How a pool grows: the object counts of its first block and of the next one, and the factor by which every
/// later block is larger than the one before it.
struct qzPoolSettings {
    std::size_t firstBlock = 256;
    std::size_t nextBlock = 256;
    double growthFactor = 1.3;
};

/// A pool of fixed-size slots for objects of one class. Slots are taken in a fixed order: first the unused
/// slots of the newest block, then the slots that were given back (last in, first out), then a new block.
/// Blocks are allocated when first needed and go back to the backing only when the pool ends.
///
/// Every operation is guarded by the pool's mutex. When the backing has no memory, Allocate throws what the
/// backing throws; the mutex is free by then and the pool remains usable.
template <class T, class Mutex = qzSimpleMutex,
          class Backing = qzMallocAllocator<char, qzDefaultAllocatorFunctions>>
class qzFixedSizeAllocatorND {
public:
    constexpr qzFixedSizeAllocatorND() noexcept = default;
    explicit constexpr qzFixedSizeAllocatorND(qzPoolSettings settings) noexcept : m_settings(settings) {}
    qzFixedSizeAllocatorND(qzFixedSizeAllocatorND const&) = delete;
    qzFixedSizeAllocatorND& operator=(qzFixedSizeAllocatorND const&) = delete;

    /// Objects must be given back before their pool ends.
    ~qzFixedSizeAllocatorND() { P_ReleaseBlocks(); }

    /// Uninitialised memory for one T.
    void* Allocate() {
        std::lock_guard const guard(m_mutex);
        void* const slot = P_TakeSlot();
        ++m_liveCount;
        return slot;
    }

    /// Gives back memory that Allocate handed out, on any thread.
    void Release(void* memory) noexcept {
        std::lock_guard const guard(m_mutex);
        m_freeList = ::new (memory) FreeSlot{m_freeList};
        if (--m_liveCount == 0 && m_closing)
            P_ReleaseBlocks();
    }

    /// Says that the program is about to end: memory goes back to the system as soon as no object is alive.
    /// Objects that outlive this call, and objects made after it, keep working.
    void Close() noexcept {
        std::lock_guard const guard(m_mutex);
        m_closing = true;
        if (m_liveCount == 0)
            P_ReleaseBlocks();
    }

    std::size_t GetLiveCount() const noexcept {
        std::lock_guard const guard(m_mutex);
        return m_liveCount;
    }

    std::size_t GetBlockCount() const noexcept {
        std::lock_guard const guard(m_mutex);
        return m_blockCount;
    }

private:
    struct FreeSlot {
        FreeSlot* next;
    };

    struct Block {
        Block* previous;
    };

    static constexpr std::size_t s_alignment = std::max({alignof(T), alignof(FreeSlot), alignof(Block)});
    static_assert(s_alignment <= alignof(std::max_align_t), "the backing aligns no further than this");

    static constexpr std::size_t P_RoundUp(std::size_t bytes) noexcept {
        return (bytes + s_alignment - 1) / s_alignment * s_alignment;
    }

    static constexpr std::size_t s_slotSize = P_RoundUp(std::max(sizeof(T), sizeof(FreeSlot)));
    static constexpr std::size_t s_headerSize = P_RoundUp(sizeof(Block));
    static constexpr std::size_t s_largestBlock =
        (static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) - s_headerSize) / s_slotSize;

    void* P_TakeSlot() {
        if (m_unused == m_unusedEnd) {
            if (m_freeList != nullptr) {
                FreeSlot* const slot = m_freeList;
                m_freeList = slot->next;
                return slot;
            }
            P_AddBlock();
        }
        void* const slot = m_unused;
        m_unused += s_slotSize;
        return slot;
    }

    [[gnu::noinline, gnu::cold]] void P_AddBlock() {
        std::size_t const count = P_NextBlockSize();
        char* const memory = Backing::Allocate(s_headerSize + count * s_slotSize);
        qzPreferLargePages(memory, s_headerSize + count * s_slotSize);
        m_blocks = ::new (static_cast<void*>(memory)) Block{m_blocks};
        m_unused = memory + s_headerSize;
        m_unusedEnd = m_unused + count * s_slotSize;
        m_lastBlockSize = count;
        ++m_blockCount;
    }

    // Settings of any kind give a size that memory can be asked for.
    std::size_t P_NextBlockSize() const noexcept {
        std::size_t size = m_settings.firstBlock;
        if (m_blockCount == 1)
            size = m_settings.nextBlock;
        else if (m_blockCount > 1)
            size = P_Grow(static_cast<double>(m_lastBlockSize) * m_settings.growthFactor);
        return std::clamp<std::size_t>(size, 1, s_largestBlock);
    }

    static constexpr std::size_t P_Grow(double size) noexcept {
        if (!(size >= 1))
            return 1;
        return size < static_cast<double>(s_largestBlock) ? static_cast<std::size_t>(size) : s_largestBlock;
    }

    [[gnu::noinline, gnu::cold]] void P_ReleaseBlocks() noexcept {
        while (m_blocks != nullptr) {
            Block* const block = m_blocks;
            m_blocks = block->previous;
            Backing::Release(reinterpret_cast<char*>(block));
        }
        m_unused = m_unusedEnd = nullptr;
        m_freeList = nullptr;
        m_blockCount = 0;
    }

    mutable Mutex m_mutex;
    bool m_closing = false;
    char* m_unused = nullptr;
    char* m_unusedEnd = nullptr;
    FreeSlot* m_freeList = nullptr;
    std::size_t m_liveCount = 0;
    Block* m_blocks = nullptr;
    std::size_t m_blockCount = 0;
    std::size_t m_lastBlockSize = 0;
    qzPoolSettings m_settings;
};

/// A pool for objects in static storage: never destroyed, only closed at the end of the program, so that
/// objects of other translation units and libraries may be given back, or even made, after that.
///
///     static qzStaticPool<Holder> pool;    // constant-initialised: ready before any other static object
template <class Pool>
class qzStaticPool {
public:
    constexpr qzStaticPool() noexcept : m_pool() {}
    qzStaticPool(qzStaticPool const&) = delete;
    qzStaticPool& operator=(qzStaticPool const&) = delete;
    ~qzStaticPool() {}

    Pool& Get() noexcept { return m_pool; }

    /// Its destructor closes the pool; one of them stands beside every static pool.
    struct Closer {
        qzStaticPool& pool;
        ~Closer() { pool.Get().Close(); }
    };

private:
    union {
        Pool m_pool;
    };
};
