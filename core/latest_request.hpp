// Only the latest request counts: what serves an earlier one finds out that it was overtaken.
#pragma once
#include <cstdint>

namespace core {

// For work that lets messages through, or waits, while it serves a request: another request may be made
// meanwhile. A request is only a number, so it may be kept and compared at any time. For one thread.
class LatestRequest {
public:
    enum class Request : std::uint64_t { none };

    // A new one; every earlier one is overtaken.
    Request make() { return latest_ = Request{ static_cast<std::uint64_t>(latest_) + 1 }; }
    // None before the first.
    Request latest() const { return latest_; }
    bool is_latest(Request request) const { return request == latest_; }

private:
    Request latest_ = Request::none;
};

} // namespace core
