// The Books that were opened or saved, newest first, kept in a file with one path per line.
#pragma once
#include "book/line_writer.hpp"
#include <cstddef>
#include <string>
#include <vector>

namespace book {

inline constexpr std::size_t history_limit = 1000;

// The paths in a history file, trimmed. Lines of only white space are skipped.
std::vector<std::wstring> read_history(ByteSource& source);
void write_history(const std::vector<std::wstring>& entries, LineWriter& writer);

// File errors are not reported: the list keeps the entries it has. Paths are compared ignoring case.
// Operations take their path by value because it may be one of the entries.
class HistoryList {
public:
    HistoryList() = default;
    explicit HistoryList(std::wstring file);

    void load();
    void save() const;
    // Erases the entries equal to `entry`, inserts it at the front and saves. Of two equal neighbours only
    // the first is erased; files written by this program never hold such neighbours.
    void add(std::wstring entry);
    // Erases every entry equal to `entry` and saves.
    void remove(std::wstring entry);
    // Erases the newest entry and saves; does nothing on an empty list.
    void remove_first();

    const std::vector<std::wstring>& entries() const { return entries_; }

    std::wstring path; // of the list's own file

private:
    std::vector<std::wstring> entries_;
};

} // namespace book
