#include "platform/file.hpp"
#include "platform/path_answer.hpp"
#include "platform/path_attributes.hpp"
#include "platform/text.hpp"
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace platform {

namespace {

constexpr mode_t file_mode = 0666;
constexpr mode_t folder_mode = 0777;

int descriptor(std::intptr_t handle)
{
    return static_cast<int>(handle);
}

bool status_of(const std::wstring& path, struct stat& status)
{
    return ::stat(to_utf8(path).c_str(), &status) == 0;
}

int open_path(const std::wstring& path, int flags)
{
    const std::string name = to_utf8(path);
    int result = -1;
    do
        result = ::open(name.c_str(), flags | O_CLOEXEC, file_mode);
    while (result < 0 && errno == EINTR);
    return result;
}

} // namespace

File File::open_read(const std::wstring& path)
{
    File file(open_path(path, O_RDONLY));
    struct stat status { };
    // Here a folder can be opened for reading, but not read.
    if (file.is_open() && (::fstat(descriptor(file.handle_.get()), &status) != 0 || S_ISDIR(status.st_mode)))
        file.close();
    return file;
}

File File::create(const std::wstring& path)
{
    return File(open_path(path, O_WRONLY | O_CREAT | O_TRUNC));
}

File File::open_over(const std::wstring& path)
{
    return File(open_path(path, O_WRONLY | O_CREAT));
}

std::size_t File::read(std::span<std::byte> target)
{
    ssize_t count = -1;
    do
        count = ::read(descriptor(handle_.get()), target.data(), target.size());
    while (count < 0 && errno == EINTR);
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool File::write(std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor(handle_.get()), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

bool File::seek_to_start()
{
    return ::lseek(descriptor(handle_.get()), 0, SEEK_SET) == 0;
}

std::optional<std::uint64_t> File::size() const
{
    struct stat status { };
    if (::fstat(descriptor(handle_.get()), &status) != 0)
        return std::nullopt;
    return static_cast<std::uint64_t>(status.st_size);
}

void File::SystemFile::close(Handle handle) noexcept
{
    ::close(descriptor(handle));
}

bool exists(const std::wstring& path)
{
    struct stat status { };
    return status_of(path, status);
}

bool is_folder(const std::wstring& path)
{
    struct stat status { };
    return status_of(path, status) && S_ISDIR(status.st_mode);
}

bool is_regular_file(const std::wstring& path)
{
    struct stat status { };
    return status_of(path, status) && S_ISREG(status.st_mode);
}

PathKind path_kind(const std::wstring& path)
{
    struct stat status { };
    if (::lstat(to_utf8(path).c_str(), &status) != 0)
        return PathKind::nothing;
    if (S_ISDIR(status.st_mode))
        return PathKind::folder;
    return S_ISREG(status.st_mode) ? PathKind::regular_file : PathKind::other;
}

// Shares are mounted on this system: they answer, or the system waits for them.
PathAnswer ask_path(const std::wstring& path)
{
    return { path_kind(path) };
}

std::uint64_t file_size(const std::wstring& path)
{
    struct stat status { };
    return status_of(path, status) && !S_ISDIR(status.st_mode) ? static_cast<std::uint64_t>(status.st_size)
                                                               : 0;
}

std::wstring absolute_path(const std::wstring& path)
{
    std::error_code failed;
    const std::filesystem::path native{ to_utf8(path) };
    const std::filesystem::path full = std::filesystem::absolute(native, failed);
    return failed ? std::wstring{} : from_utf8(full.lexically_normal().native());
}

std::wstring current_directory()
{
    std::error_code failed;
    return from_utf8(std::filesystem::current_path(failed).native());
}

std::uint32_t set_current_directory(const std::wstring& path)
{
    return ::chdir(to_utf8(path).c_str()) == 0 ? 0 : static_cast<std::uint32_t>(errno);
}

bool create_folder(const std::wstring& path)
{
    return ::mkdir(to_utf8(path).c_str(), folder_mode) == 0;
}

std::uint32_t copy_file(const std::wstring& from, const std::wstring& to)
{
    std::error_code failed;
    std::filesystem::copy_file(
        to_utf8(from), to_utf8(to), std::filesystem::copy_options::overwrite_existing, failed);
    return static_cast<std::uint32_t>(failed.value());
}

std::uint32_t file_attributes(const std::wstring& path)
{
    if (!exists(path))
        return no_attributes;
    const std::uint32_t protection = ::access(to_utf8(path).c_str(), W_OK) == 0 ? 0 : read_only_attribute;
    return is_folder(path) ? protection | folder_attribute : protection;
}

bool remove_file(const std::wstring& path)
{
    return ::unlink(to_utf8(path).c_str()) == 0;
}

bool replace_file(const std::wstring& from, const std::wstring& to)
{
    return std::rename(to_utf8(from).c_str(), to_utf8(to).c_str()) == 0;
}

} // namespace platform
