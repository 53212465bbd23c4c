// Writes UTF-16LE text files through a buffer of 256 KiB, so that a file takes few system calls.
#pragma once
#include "book/line_reader.hpp"
#include <memory>
#include <string_view>

namespace book {

// Allocates its memory when it is constructed: appending and flushing never fail for lack of memory.
class LineWriter {
public:
    // `sink` must outlive the writer.
    explicit LineWriter(ByteSink& sink);
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;

    void append(std::wstring_view text);
    void append_ascii(std::string_view text);
    // Appends the text and CR LF.
    void append_line(std::wstring_view text);
    // Writes the rest of the buffer. Without this call the end of the file is missing.
    void flush();

private:
    template <class Text> void append_pieces(Text text);

    ByteSink& sink_;
    std::unique_ptr<FileUnit[]> buffer_;
    std::size_t count_ = 0; // units in the buffer
};

} // namespace book
