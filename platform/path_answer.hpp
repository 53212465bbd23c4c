// What stands at a path, and whether it could be told at all.
#pragma once
#include "platform/file.hpp"

namespace platform {

struct PathAnswer {
    PathKind kind = PathKind::nothing;
    // The share or drive that would tell does not answer, which may have taken seconds.
    bool is_unreachable = false;
};
PathAnswer ask_path(const std::wstring& path);

} // namespace platform
