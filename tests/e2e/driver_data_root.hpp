// The folder that a program under test runs in, and the files that a test puts there and checks afterwards.
#pragma once
#include "book/book.hpp"
#include <windows.h>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace e2e {

// The bytes of a file on disk; empty for a missing file.
std::string file_bytes(const std::filesystem::path& file);
void write_bytes(const std::filesystem::path& file, std::string_view bytes);
// A text as UTF-16LE bytes without a byte order mark, and back.
std::string utf16_bytes(std::wstring_view text);
std::wstring utf16_text(std::string_view bytes);

// Gives a file an old time, so that a later write is visible by the file's time.
void make_old(const std::filesystem::path& file);
bool is_old(const std::filesystem::path& file);

// A page with these texts and a stamp in the past.
book::Page make_page(std::wstring box1, std::wstring box2 = L"", std::wstring box3 = L"");
inline constexpr std::wstring_view old_stamp = L"2001020304050620010203040506";

// Loads a Book from its file, which the program may still be writing. Throws DriverError if the file cannot
// be read without a question until the deadline.
book::Book load_book(const std::filesystem::path& file);

// Makes a file unwritable and read-only during its lifetime. The attribute alone has no effect if the tests
// run as root, so the file is held open too.
class ReadOnly {
public:
    explicit ReadOnly(std::filesystem::path file);
    ReadOnly(const ReadOnly&) = delete;
    ReadOnly& operator=(const ReadOnly&) = delete;
    ~ReadOnly();

private:
    std::filesystem::path file_;
    HANDLE handle_;
};

// A copy of the program and everything shipped with it in a new folder. Deletes an old folder of that name.
class DataRoot {
public:
    explicit DataRoot(const std::wstring& name);

    const std::filesystem::path& folder() const { return folder_; }
    std::filesystem::path program() const { return folder_ / L"pagewick.exe"; }
    std::filesystem::path history_file() const { return folder_ / L"dat" / L"history.txt"; }
    std::filesystem::path settings_file() const { return folder_ / L"dat" / L"pagewick.ini"; }
    std::filesystem::path log_file() const { return folder_ / L"pagewick_log.txt"; }

    // Writes a Book there, with this header unchanged, and returns its full path.
    std::filesystem::path add_book(
        const std::wstring& name, std::vector<book::Page> pages, const book::BookHeader& header = {}) const;
    void write_history(const std::vector<std::wstring>& entries) const;
    std::vector<std::wstring> history() const;
    void remove() const;

private:
    std::filesystem::path folder_;
};

} // namespace e2e
