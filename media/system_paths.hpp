// The file system as it is asked for links and moved files.
#pragma once
#include "media/file_links.hpp"

namespace media {

// Relative paths count from the current directory, which all threads share.
class SystemPaths : public PathQuestions {
public:
    bool exists(const std::wstring& path) override;
    std::wstring absolute(const std::wstring& path) override;
};

// What an entry of a file list names, in full: an address as it stands.
std::wstring full_entry(const std::wstring& entry);

} // namespace media
