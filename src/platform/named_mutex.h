#pragma once

#include <memory>
#include <string_view>

namespace hourwright::platform {

/// A mutex that processes share by name. It is free again when its holder ends, however it ends.
class NamedMutex {
public:
    virtual ~NamedMutex() = default;

    /// Waits until the mutex is ours. False when it cannot be had at all (its file cannot be made).
    [[nodiscard]] virtual bool lock() = 0;
    virtual void unlock() = 0;
};

/// Holds a named mutex for a scope.
class NamedMutexLock {
public:
    explicit NamedMutexLock(NamedMutex& mutex) : mutex_(mutex), held_(mutex.lock()) {}
    ~NamedMutexLock() {
        if (held_)
            mutex_.unlock();
    }
    NamedMutexLock(const NamedMutexLock&) = delete;
    NamedMutexLock& operator=(const NamedMutexLock&) = delete;

    [[nodiscard]] bool held() const { return held_; }

private:
    NamedMutex& mutex_;
    bool held_;
};

} // namespace hourwright::platform
