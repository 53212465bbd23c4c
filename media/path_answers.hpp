// What stands at paths, asked with care for shares that do not answer.
#pragma once
#include "platform/path_answer.hpp"
#include <functional>
#include <string>
#include <vector>

namespace media {

// All that asks for files on the way to one picture shares one of these. A share or drive that does not
// answer is asked once, for each time may take it seconds: until forget(), nothing more is asked of what lies
// on it. Paths that are merely missing, and relative ones, are asked for every time. Used by one thread.
class PathAnswers {
public:
    using AskPath = std::function<platform::PathAnswer(const std::wstring&)>;

    explicit PathAnswers(AskPath ask = &platform::ask_path);

    // Of a path on a share that does not answer: nothing stands there.
    platform::PathKind kind_of(const std::wstring& path);
    bool exists(const std::wstring& path) { return kind_of(path) != platform::PathKind::nothing; }
    // Whether the path lies on a share or drive that is known not to answer. Asks nothing.
    bool is_silent(const std::wstring& path) const;
    // The next question goes to the share again.
    void forget() { silent_volumes_.clear(); }

private:
    AskPath ask_;
    std::vector<std::wstring> silent_volumes_;
};

} // namespace media
