// Sets a finer resolution of the system timer for the life of the object.
#pragma once
#include <cstdint>

namespace ovlib {

class SystemTime {
public:
    explicit SystemTime(std::uint32_t milliseconds);
    SystemTime(const SystemTime&) = delete;
    SystemTime& operator=(const SystemTime&) = delete;
    ~SystemTime();

    // 0 if the system refused.
    std::uint32_t period() const { return period_; }

private:
    std::uint32_t period_;
};

} // namespace ovlib
