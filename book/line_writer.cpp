#include "book/line_writer.hpp"
#include <algorithm>

namespace book {

namespace {

constexpr std::size_t buffer_units = 0x20000; // 256 KiB

} // namespace

LineWriter::LineWriter(ByteSink& sink)
    : sink_(sink)
{
}

void LineWriter::append(std::wstring_view text)
{
    std::ranges::transform(
        text, claim(text.size()), [](wchar_t unit) { return static_cast<FileUnit>(unit); });
}

void LineWriter::append_ascii(std::string_view text)
{
    std::ranges::copy(text, claim(text.size()));
}

void LineWriter::append_line(std::wstring_view text)
{
    append(text);
    append_ascii("\r\n");
}

void LineWriter::flush()
{
    if (count_ > 0)
        sink_.write(std::as_bytes(std::span(buffer_.get(), count_)));
    count_ = 0;
}

// Reserves room for `count` units in the buffer, which is flushed first if they do not fit. A longer text
// gets a larger buffer, so that every text is written in one piece.
FileUnit* LineWriter::claim(std::size_t count)
{
    if (count > capacity_ - count_) {
        flush();
        if (count > capacity_) {
            capacity_ = std::max(buffer_units, count);
            buffer_ = std::make_unique_for_overwrite<FileUnit[]>(capacity_);
        }
    }
    FileUnit* const place = buffer_.get() + count_;
    count_ += count;
    return place;
}

} // namespace book
