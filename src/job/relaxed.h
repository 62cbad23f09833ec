#pragma once

#include <atomic>

/// A plain value that two threads may read and write without a lock.
///
/// It reads and assigns like the T it holds. Accesses are relaxed: a reader may see a value that is
/// one write old, and nothing else is ordered by it.
template<class T>
class Relaxed {
public:
    Relaxed(T value = T())
        : value(value) {}
    Relaxed(const Relaxed& other)
        : value(T(other)) {}
    Relaxed& operator=(const Relaxed& other) { return *this = T(other); }
    Relaxed& operator=(T newValue) {
        value.store(newValue, std::memory_order_relaxed);
        return *this;
    }
    operator T() const { return value.load(std::memory_order_relaxed); }

private:
    std::atomic<T> value;
};
