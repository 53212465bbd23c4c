// The kind of object at a path, and whether the query could be answered.
#pragma once
#include "platform/file.hpp"

namespace platform {

struct PathAnswer {
    PathKind kind = PathKind::nothing;
    // The share or drive does not answer. Finding that out may have taken seconds.
    bool is_unreachable = false;
};
PathAnswer ask_path(const std::wstring& path);

} // namespace platform
