#include "book/line_writer.hpp"
#include <algorithm>

namespace book {

namespace {

constexpr std::size_t buffer_units = 0x20000; // 256 KiB

} // namespace

LineWriter::LineWriter(ByteSink& sink)
    : sink_(sink)
    , buffer_(std::make_unique_for_overwrite<FileUnit[]>(buffer_units))
{
}

template <class Text> void LineWriter::append_pieces(Text text)
{
    while (!text.empty()) {
        if (count_ == buffer_units)
            flush();
        const Text piece = text.substr(0, buffer_units - count_);
        std::ranges::transform(
            piece, buffer_.get() + count_, [](auto unit) { return static_cast<FileUnit>(unit); });
        count_ += piece.size();
        text.remove_prefix(piece.size());
    }
}

void LineWriter::append(std::wstring_view text)
{
    append_pieces(text);
}

void LineWriter::append_ascii(std::string_view text)
{
    append_pieces(text);
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

} // namespace book
