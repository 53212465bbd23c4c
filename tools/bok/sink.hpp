// The output of a command: a stream, or a file that is written completely or not at all.
#pragma once
#include "platform/file.hpp"
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

namespace bok {

// Replaces a file atomically: it is written under a temporary name and renamed by `commit`. Until then the
// target is unchanged, and the destructor of an uncommitted Replacement deletes the temporary file. Failures
// throw Problem.
class Replacement {
public:
    explicit Replacement(std::wstring target);
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement();

    // The temporary file, in the folder of the target. It exists and is empty.
    const std::wstring& path() const { return path_; }
    const std::wstring& target() const { return target_; }
    void commit();

private:
    std::wstring target_;
    std::wstring path_;
    bool committed_ = false;
};

// Buffers text and writes it in large pieces.
class Sink {
public:
    virtual ~Sink() = default;

    // Append here, then call pass_on().
    std::string& text() { return text_; }
    void pass_on();
    // Writes the rest and closes the output. Throws Problem if anything could not be written.
    void finish();

protected:
    virtual void write(std::string_view bytes) = 0;
    virtual void close() = 0;

private:
    std::string text_;
};

// A sink for `file`, or for `out` if `file` is empty.
std::unique_ptr<Sink> open_sink(std::ostream& out, const std::wstring& file = {});

} // namespace bok
