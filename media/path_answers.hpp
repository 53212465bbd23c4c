// Queries paths, and remembers shares that do not answer.
#pragma once
#include "platform/path_answer.hpp"
#include <functional>
#include <string>
#include <vector>

namespace media {

// A query to a share or drive that does not answer may block for seconds. So it is made once: until forget(),
// all other paths there count as missing without a query. Missing paths elsewhere and relative paths are
// queried every time. All code that shows one page's files shares one object. Used by one thread.
class PathAnswers {
public:
    using AskPath = std::function<platform::PathAnswer(const std::wstring&)>;

    explicit PathAnswers(AskPath ask = &platform::ask_path);

    // PathKind::nothing for every path on a share that does not answer.
    platform::PathKind kind_of(const std::wstring& path);
    bool exists(const std::wstring& path) { return kind_of(path) != platform::PathKind::nothing; }
    // Whether the path is on a share or drive that is known not to answer. Makes no query.
    bool is_silent(const std::wstring& path) const;
    // The next query goes to the share again.
    void forget() { silent_volumes_.clear(); }

private:
    AskPath ask_;
    std::vector<std::wstring> silent_volumes_;
};

} // namespace media
