// A flag that is set for the length of a scope, also if the scope is left by an exception.
#pragma once

namespace core {

class ScopedFlag {
public:
    // `flag` must outlive this object.
    explicit ScopedFlag(bool& flag)
        : flag_(flag)
    {
        flag_ = true;
    }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;
    ~ScopedFlag() { flag_ = false; }

private:
    bool& flag_;
};

} // namespace core
