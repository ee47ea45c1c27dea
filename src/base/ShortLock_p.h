#ifndef SHORTLOCK_P_H
#define SHORTLOCK_P_H

#include <mutex>

/// Locks a mutex that everybody holds for moments only. It tries for some microseconds before it
/// sleeps, for the other side takes the mutex again and again while this one is being woken.
inline std::unique_lock<std::mutex> shortLock(std::mutex& mutex)
{
    constexpr int Attempts = 1000;
    for (int i = 0; i < Attempts; ++i) {
        std::unique_lock<std::mutex> lock(mutex, std::try_to_lock);
        if (lock.owns_lock())
            return lock;
    }
    return std::unique_lock<std::mutex>(mutex);
}

#endif
