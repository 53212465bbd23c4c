#include "driver_data_root.hpp"
#include "driver_wait.hpp"
#include "platform/text.hpp"
#include "tests/support/built_files.hpp"
#include "tests/support/environment.hpp"
#include <fstream>
#include <iterator>
#include <sstream>

namespace fs = std::filesystem;

namespace e2e {

namespace {

// 2001-09-09 01:46:40 as FILETIME.
constexpr FILETIME old_time{ 0x3E0D6000, 0x01C138CF };

// Not std::filesystem::copy, which in this standard library takes any two folders for the same one.
void copy_folder(const fs::path& from, const fs::path& to)
{
    fs::create_directories(to);
    for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
        const fs::path target = to / entry.path().filename();
        if (entry.is_directory())
            copy_folder(entry.path(), target);
        else
            fs::copy_file(entry.path(), target);
    }
}

HANDLE open_for_times(const fs::path& file, DWORD access)
{
    const HANDLE handle =
        CreateFileW(file.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        throw DriverError("cannot open " + platform::to_utf8(file.wstring()));
    return handle;
}

} // namespace

std::string file_bytes(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

void write_bytes(const fs::path& file, std::string_view bytes)
{
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream.flush())
        throw DriverError("cannot write " + platform::to_utf8(file.wstring()));
}

std::string utf16_bytes(std::wstring_view text)
{
    std::string bytes;
    for (const wchar_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

std::wstring utf16_text(std::string_view bytes)
{
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<wchar_t>(low | high << 8);
    }
    return text;
}

void make_old(const fs::path& file)
{
    const HANDLE handle = open_for_times(file, FILE_WRITE_ATTRIBUTES);
    const BOOL done = SetFileTime(handle, nullptr, nullptr, &old_time);
    CloseHandle(handle);
    if (!done)
        throw DriverError("cannot set a file's time");
}

bool is_old(const fs::path& file)
{
    const HANDLE handle = open_for_times(file, FILE_READ_ATTRIBUTES);
    FILETIME time{};
    GetFileTime(handle, nullptr, nullptr, &time);
    CloseHandle(handle);
    return CompareFileTime(&time, &old_time) == 0;
}

book::Page make_page(std::wstring box1, std::wstring box2, std::wstring box3)
{
    book::Page page;
    page.stamp = old_stamp;
    page.text = { std::move(box1), std::move(box2), std::move(box3) };
    page.back_color.fill(0xFFFFFF);
    return page;
}

book::Book load_book(const fs::path& file)
{
    book::Book book;
    std::wstring problem;
    const auto load = [&] {
        std::wstring error;
        std::wstring question;
        const bool is_loaded = book.load(file.wstring(), error, [&](const std::wstring& asked) {
            question = asked;
            return false;
        });
        problem = error + question;
        return is_loaded;
    };
    if (!wait_until(load))
        throw DriverError("unreadable Book: " + platform::to_utf8(problem));
    return book;
}

ReadOnly::ReadOnly(fs::path file)
    : file_(std::move(file))
    , handle_(CreateFileW(file_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
          FILE_ATTRIBUTE_NORMAL, nullptr))
{
    if (handle_ == INVALID_HANDLE_VALUE || !SetFileAttributesW(file_.c_str(), FILE_ATTRIBUTE_READONLY))
        throw DriverError("cannot protect " + platform::to_utf8(file_.wstring()));
}

ReadOnly::~ReadOnly()
{
    CloseHandle(handle_);
    SetFileAttributesW(file_.c_str(), FILE_ATTRIBUTE_NORMAL);
}

DataRoot::DataRoot(const std::wstring& name)
{
    const fs::path dist = test_support::dist_path();
    folder_ = dist.parent_path() / L"e2e" / test_support::run_name() / name;
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    copy_folder(dist, folder_);
}

fs::path DataRoot::add_book(
    const std::wstring& name, std::vector<book::Page> pages, const book::BookHeader& header) const
{
    book::Book book;
    book.header = header;
    book.pages = std::move(pages);
    fs::path file = folder_ / name;
    book.path = file.wstring();
    if (!book.save())
        throw DriverError("cannot write a Book");
    return file;
}

void DataRoot::write_history(const std::vector<std::wstring>& entries) const
{
    std::wstring text;
    for (const std::wstring& entry : entries)
        text += entry + L"\r\n";
    write_bytes(history_file(), utf16_bytes(text));
}

std::vector<std::wstring> DataRoot::history() const
{
    std::vector<std::wstring> entries;
    std::wstring text = utf16_text(file_bytes(history_file()));
    for (std::size_t end; (end = text.find(L"\r\n")) != text.npos; text.erase(0, end + 2))
        entries.push_back(text.substr(0, end));
    if (!text.empty())
        entries.push_back(text);
    return entries;
}

void DataRoot::remove() const
{
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

} // namespace e2e
