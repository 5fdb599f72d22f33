#pragma once

#include <atomic>
#include <thread>

/// A small lock for sections of a few instructions: it spins briefly and then lets other threads run.
/// Usable with std::lock_guard; it does not nest and needs no clean-up.
class qzSimpleMutex {
public:
    constexpr qzSimpleMutex() noexcept = default;
    qzSimpleMutex(qzSimpleMutex const&) = delete;
    qzSimpleMutex& operator=(qzSimpleMutex const&) = delete;

    void lock() noexcept {
        if (!try_lock()) [[unlikely]]
            P_LockContended();
    }

    bool try_lock() noexcept { return !m_locked.exchange(true, std::memory_order_acquire); }

    void unlock() noexcept { m_locked.store(false, std::memory_order_release); }

private:
    // Waits without touching the lock, each time twice as long: while the owner has the cache line to itself
    // it finishes several sections in the time that one exchange between processors takes. A waiter that has
    // been patient gives up its time slice instead, so that more threads than processors still make progress.
    [[gnu::noinline, gnu::cold]] void P_LockContended() noexcept {
        int pauses = s_firstPauses;
        do {
            for (int k = 0; k < pauses; ++k)
                P_Pause();
            if (pauses < s_mostPauses)
                pauses *= 2;
            else
                std::this_thread::yield();
        } while (m_locked.load(std::memory_order_relaxed) || !try_lock());
    }

    static void P_Pause() noexcept {
#if defined(__x86_64__) || defined(__i386__)
        __builtin_ia32_pause();
#endif
    }

    static constexpr int s_firstPauses = 8;
    static constexpr int s_mostPauses = 512;

    std::atomic<bool> m_locked{false};
};
