// Lines of wide text files: little-endian UTF-16, as Books and the history are kept.
#pragma once
#include "book/byte_stream.hpp"
#include <array>
#include <string>
#include <string_view>
#include <type_traits>

namespace book {

// One code unit as it stands in a file: the program's own character where that has 16 bits.
using FileUnit = std::conditional_t<sizeof(wchar_t) == sizeof(char16_t), wchar_t, char16_t>;
using FileText = std::basic_string_view<FileUnit>;

inline constexpr std::size_t block_size = 65536; // bytes

// Appends what a file holds to text of the program.
void append_units(std::wstring& text, FileText units);

// A line ends with the first LF that directly follows a CR of the same line; a lone LF is a unit like others.
// What stands behind the last such end is a line too.
//
// The source is read by blocks of `block_size` bytes. A block of an odd number of bytes ends the line in hand
// (an empty one is the end for most callers) and is then read on; the high byte of its last unit is the byte
// which that place of the buffer held before, zero in the first block.
class LineReader {
public:
    // `source` must outlive the reader.
    explicit LineReader(ByteSource& source);
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    // The next line with its end; empty at the end of the source. Valid until the next call.
    FileText read_line();
    // Appends the lines before the next one that begins with `stop` to `text`. True when there is such a
    // line, which comes next; false when a line was empty instead.
    bool append_lines(FileUnit stop, std::wstring& text);
    // Forgets everything read and starts again.
    void restart();
    std::uint64_t delivered_bytes() const { return delivered_bytes_; }

private:
    enum class Delivery { none, even, odd };

    Delivery refill();
    bool has_units() const { return pos_ < count_; }
    bool line_ends_at(std::size_t place, bool after_cr) const;
    std::size_t end_of_line(bool after_cr) const;
    std::size_t start_of_line_with(FileUnit stop, bool after_cr) const;
    FileText take_to(std::size_t place);
    FileText read_line_over_blocks();

    ByteSource& source_;
    std::array<FileUnit, block_size / sizeof(FileUnit)> block_{};
    std::size_t pos_ = 0;
    std::size_t count_ = 0;
    std::uint64_t delivered_bytes_ = 0;
    bool has_ended_ = false;
    std::basic_string<FileUnit> long_line_; // a line that lies in more than one block
};

} // namespace book
