#include "platform/file.hpp"
#include "platform/path_answer.hpp"
#include "platform/path_attributes.hpp"
#include "platform/path_text.hpp"
#include <windows.h>
#include <algorithm>

namespace platform {

namespace {

constexpr DWORD share_everything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t largest_transfer = 0x40000000; // one call has 32 bits for the number of bytes

struct Search {
    using Handle = HANDLE;
    static Handle invalid() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Handle search) noexcept { FindClose(search); }
};

HANDLE system_handle(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

std::intptr_t open_path(const std::wstring& path, DWORD access, DWORD disposition)
{
    return reinterpret_cast<std::intptr_t>(CreateFileW(
        path.c_str(), access, share_everything, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

DWORD attributes_of(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str());
}

// FindFirstFileW returns the link itself, not its target. 0 if the tag is unknown.
DWORD reparse_tag(std::wstring path)
{
    while (path.size() > 1 && is_separator(path.back()))
        path.pop_back();
    WIN32_FIND_DATAW found{};
    const unique_handle<Search> search{ FindFirstFileW(path.c_str(), &found) };
    return search ? found.dwReserved0 : 0;
}

} // namespace

File File::open_read(const std::wstring& path)
{
    return File(open_path(path, GENERIC_READ, OPEN_EXISTING));
}

File File::create(const std::wstring& path)
{
    return File(open_path(path, GENERIC_WRITE, CREATE_ALWAYS));
}

File File::open_over(const std::wstring& path)
{
    return File(open_path(path, GENERIC_WRITE, OPEN_ALWAYS));
}

std::size_t File::read(std::span<std::byte> target)
{
    const auto wanted = static_cast<DWORD>(std::min(target.size(), largest_transfer));
    DWORD count = 0;
    return ReadFile(system_handle(handle_.get()), target.data(), wanted, &count, nullptr) ? count : 0;
}

bool File::write(std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), largest_transfer));
        DWORD count = 0;
        if (!WriteFile(system_handle(handle_.get()), bytes.data(), wanted, &count, nullptr) || count == 0)
            return false;
        bytes = bytes.subspan(count);
    }
    return true;
}

bool File::seek_to_start()
{
    return SetFilePointer(system_handle(handle_.get()), 0, nullptr, FILE_BEGIN) != INVALID_SET_FILE_POINTER;
}

std::optional<std::uint64_t> File::size() const
{
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(system_handle(handle_.get()), &size))
        return std::nullopt;
    return static_cast<std::uint64_t>(size.QuadPart);
}

void File::SystemFile::close(Handle handle) noexcept
{
    CloseHandle(system_handle(handle));
}

bool exists(const std::wstring& path)
{
    return attributes_of(path) != INVALID_FILE_ATTRIBUTES;
}

bool is_folder(const std::wstring& path)
{
    const DWORD attributes = attributes_of(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool is_regular_file(const std::wstring& path)
{
    const DWORD attributes = attributes_of(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

PathKind path_kind(const std::wstring& path)
{
    return ask_path(path).kind;
}

PathAnswer ask_path(const std::wstring& path)
{
    const DWORD attributes = attributes_of(path);
    if (attributes == no_attributes)
        return { PathKind::nothing, is_of_volume(GetLastError()) };
    const bool has_tag = (attributes & reparse_attribute) != 0;
    return { kind_of_attributes(attributes, has_tag ? reparse_tag(path) : 0) };
}

std::uint64_t file_size(const std::wstring& path)
{
    WIN32_FILE_ATTRIBUTE_DATA facts{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &facts)
        || (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return 0;
    return std::uint64_t{ facts.nFileSizeHigh } << 32 | facts.nFileSizeLow;
}

std::wstring absolute_path(const std::wstring& path)
{
    std::wstring full;
    // Another thread may change the current directory between the two calls. The required size is taken again
    // then.
    for (DWORD size = MAX_PATH; size > full.size();) {
        full.resize(size);
        size = GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
        if (size < full.size()) {
            full.resize(size);
            return full;
        }
    }
    return {};
}

std::wstring current_directory()
{
    std::wstring path(GetCurrentDirectoryW(0, nullptr), L'\0');
    path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
    return path;
}

std::uint32_t set_current_directory(const std::wstring& path)
{
    return SetCurrentDirectoryW(path.c_str()) ? ERROR_SUCCESS : GetLastError();
}

bool create_folder(const std::wstring& path)
{
    return CreateDirectoryW(path.c_str(), nullptr) != 0;
}

std::uint32_t copy_file(const std::wstring& from, const std::wstring& to)
{
    return CopyFileW(from.c_str(), to.c_str(), FALSE) ? ERROR_SUCCESS : GetLastError();
}

std::uint32_t file_attributes(const std::wstring& path)
{
    return attributes_of(path);
}

bool remove_file(const std::wstring& path)
{
    return DeleteFileW(path.c_str()) != 0;
}

bool replace_file(const std::wstring& from, const std::wstring& to)
{
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

} // namespace platform
