// A flag that is set for the length of a scope, also if the scope is left by an exception. Scopes can be
// nested.
#pragma once

namespace platform {

class ScopedFlag {
public:
    // `flag` must outlive this object.
    explicit ScopedFlag(bool& flag)
        : flag_(flag)
        , before_(flag)
    {
        flag_ = true;
    }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;
    ~ScopedFlag() { flag_ = before_; }

private:
    bool& flag_;
    bool before_;
};

} // namespace platform
