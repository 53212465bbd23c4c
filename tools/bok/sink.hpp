// Where the text of a command goes: a stream, or a file that appears whole or not at all.
#pragma once
#include "platform/file.hpp"
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

namespace bok {

// A file written beside its place and put there in one step. Until `commit` the old contents stand, and a
// Replacement that goes away before takes its beginnings with it. All failures are thrown as Problem.
class Replacement {
public:
    explicit Replacement(std::wstring target);
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement();

    // The file to write, which stands beside the target and is empty at first.
    const std::wstring& path() const { return path_; }
    const std::wstring& target() const { return target_; }
    void commit();

private:
    std::wstring target_;
    std::wstring path_;
    bool committed_ = false;
};

// Gathers text and hands it on in large pieces.
class Sink {
public:
    virtual ~Sink() = default;

    // Append here, then call pass_on().
    std::string& text() { return text_; }
    void pass_on();
    // Hands on the rest and makes it last. Throws Problem when anything was lost on the way.
    void finish();

protected:
    virtual void write(std::string_view bytes) = 0;
    virtual void close() = 0;

private:
    std::string text_;
};

// A sink into `file`, or into `out` when no file is named.
std::unique_ptr<Sink> open_sink(std::ostream& out, const std::wstring& file = {});

} // namespace bok
