// PathQuestions of the real file system.
#pragma once
#include "media/file_links.hpp"

namespace media {

// Relative paths count from the current directory, which all threads share.
class SystemPaths : public PathQuestions {
public:
    bool exists(const std::wstring& path) override;
    std::wstring absolute(const std::wstring& path) override;
};

// The absolute path of an entry; an address unchanged.
std::wstring full_entry(const std::wstring& entry);

} // namespace media
