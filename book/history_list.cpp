#include "book/history_list.hpp"
#include "book/line_reader.hpp"
#include "book/page_text.hpp"
#include <utility>

namespace book {

std::vector<std::wstring> read_history(ByteSource& source)
{
    std::vector<std::wstring> entries;
    LineReader reader(source);
    for (FileText line = reader.read_line(); !line.empty(); line = reader.read_line()) {
        line = trimmed(line, TrimMode::both);
        // Editors write a byte order mark; it is not part of a path.
        if (!line.empty() && line.front() == static_cast<FileUnit>(byte_order_mark))
            line.remove_prefix(1);
        if (!line.empty())
            append_units(entries.emplace_back(), line);
    }
    return entries;
}

void write_history(const std::vector<std::wstring>& entries, LineWriter& writer)
{
    for (const std::wstring& entry : entries)
        writer.append_line(entry);
    writer.flush();
}

HistoryList::HistoryList(std::wstring file)
    : path(std::move(file))
{
}

void HistoryList::load()
{
    entries_.clear();
    platform::File file = platform::File::open_read(path);
    if (!file.is_open())
        return;
    FileSource source(file);
    entries_ = read_history(source);
}

void HistoryList::save() const
{
    // Memory first: a failed allocation leaves the old file whole.
    platform::File file;
    FileSink sink(file);
    LineWriter writer(sink);
    file = platform::File::create(path);
    if (file.is_open())
        write_history(entries_, writer);
}

void HistoryList::add(std::wstring entry)
{
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        // The entry that moves into the gap is skipped: of two equal neighbours the second stays.
        if (same_text_ignoring_case(entries_[i], entry))
            entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(i));
    }
    entries_.insert(entries_.begin(), std::move(entry));
    // Drops one entry for the added one: a longer list, from an edited file, keeps its length.
    if (entries_.size() > history_limit)
        entries_.pop_back();
    save();
}

void HistoryList::remove(std::wstring entry)
{
    std::erase_if(entries_, [&](const std::wstring& other) { return same_text_ignoring_case(other, entry); });
    save();
}

void HistoryList::remove_first()
{
    if (entries_.empty())
        return;
    entries_.erase(entries_.begin());
    save();
}

} // namespace book
