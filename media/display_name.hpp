// What an entry of a file list is called where there is no room for its path.
#pragma once
#include "platform/path_answer.hpp"
#include <functional>
#include <string>
#include <vector>

namespace media {

// The name of a regular file or a folder; anything else, addresses and missing files included, as it stands.
// A relative entry counts from the current directory.
std::wstring display_name(const std::wstring& entry);

// Names the entries of a list one after another. A share that does not answer is asked once, for each time
// may take it seconds: what else lies on it stands as it is.
class DisplayNames {
public:
    using AskPath = std::function<platform::PathAnswer(const std::wstring&)>;

    explicit DisplayNames(AskPath ask = &platform::ask_path);
    std::wstring of(const std::wstring& entry);

private:
    platform::PathKind kind_of(const std::wstring& entry);

    AskPath ask_;
    std::vector<std::wstring> silent_volumes_;
};

} // namespace media
