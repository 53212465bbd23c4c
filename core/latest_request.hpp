// Only the latest request counts: code that serves an earlier one finds out that it is outdated.
#pragma once
#include <cstdint>

namespace core {

// For work that dispatches messages or waits while it serves a request, so that another request may be made
// in the meantime. A request is only a number, so it may be kept and compared at any time. For one thread.
class LatestRequest {
public:
    enum class Request : std::uint64_t { none };

    // Makes a new request; all earlier ones are outdated.
    Request make() { return latest_ = Request{ static_cast<std::uint64_t>(latest_) + 1 }; }
    // Request::none before the first.
    Request latest() const { return latest_; }
    bool is_latest(Request request) const { return request == latest_; }

private:
    Request latest_ = Request::none;
};

} // namespace core
