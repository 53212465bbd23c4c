// Reads lines of UTF-16LE text files: Books and the history.
#pragma once
#include "book/byte_stream.hpp"
#include <array>
#include <string>
#include <string_view>
#include <type_traits>

namespace book {

// One code unit of a file. It is wchar_t where that has 16 bits, so that text is copied without conversion.
using FileUnit = std::conditional_t<sizeof(wchar_t) == sizeof(char16_t), wchar_t, char16_t>;
using FileText = std::basic_string_view<FileUnit>;

inline constexpr std::size_t block_size = 65536; // bytes

// Appends file text to a string, widening each unit where wchar_t has 32 bits.
void append_units(std::wstring& text, FileText units);

// A line ends with the first LF that directly follows a CR of the same line; a lone LF is an ordinary unit.
// Text after the last CR LF is a line too.
//
// The source is read in blocks of `block_size` bytes. When a block has an odd number of bytes, the current
// line ends where the block begins (callers that stop at an empty line may stop there), and reading then
// continues with the block. The high byte of its last unit is the byte that was in that place of the buffer
// before, zero in the first block. This belongs to the file format: a broken copy gives the same pages on
// every system.
class LineReader {
public:
    // `source` must outlive the reader.
    explicit LineReader(ByteSource& source);
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    // The next line including its CR LF; empty at the end of the source. Valid until the next call.
    FileText read_line();
    // Appends to `text` all lines before the next one that begins with `stop`. True if there is such a line,
    // which is then the next one read; false if read_line would have returned an empty line first.
    bool append_lines(FileUnit stop, std::wstring& text);
    // Restarts the source and the reader from the beginning.
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
    std::basic_string<FileUnit> long_line_; // a line that spans several blocks
};

} // namespace book
