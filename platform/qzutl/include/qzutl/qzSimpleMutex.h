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
    // Spinning reads only, so that waiters do not steal the cache line from the owner; a waiter that has spun
    // for long gives up its time slice, so that more threads than cores still make progress.
    [[gnu::noinline, gnu::cold]] void P_LockContended() noexcept {
        for (int spins = 0; !try_lock();) {
            while (m_locked.load(std::memory_order_relaxed)) {
                if (++spins < s_spinsBeforeYield)
                    P_Pause();
                else
                    std::this_thread::yield();
            }
        }
    }

    static void P_Pause() noexcept {
#if defined(__x86_64__) || defined(__i386__)
        __builtin_ia32_pause();
#endif
    }

    static constexpr int s_spinsBeforeYield = 64;

    std::atomic<bool> m_locked{false};
};
