// The Books that were opened or saved, newest first, kept in a file of one path a line.
#pragma once
#include "book/byte_stream.hpp"
#include <cstddef>
#include <string>
#include <vector>

namespace book {

inline constexpr std::size_t history_limit = 1000;

// The paths that stand in a history file. An empty line ends it; blank ones are passed over.
std::vector<std::wstring> read_history(ByteSource& source);
void write_history(const std::vector<std::wstring>& entries, ByteSink& sink);

// File errors are silent: the list goes on with what it has. Paths are compared without regard to case. Every
// operation takes its path by value: it may be one of the entries.
class HistoryList {
public:
    HistoryList() = default;
    explicit HistoryList(std::wstring file);

    void load();
    void save() const;
    // Puts `entry` in front, where it takes the place of its equals, and saves. Of two equal neighbours the
    // second stays.
    void add(std::wstring entry);
    // Erases every equal of `entry` and saves.
    void remove(std::wstring entry);
    // Erases the newest entry, if there is one, and saves.
    void remove_first();

    const std::vector<std::wstring>& entries() const { return entries_; }

    std::wstring path; // of the list's own file

private:
    std::vector<std::wstring> entries_;
};

} // namespace book
