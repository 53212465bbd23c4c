// File operations for the logic. Paths are UTF-16 text on every system; the separators are `/` and, on
// Windows, also `\`.
#pragma once
#include "platform/unique_handle.hpp"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace platform {

// One open file, closed by the destructor. Can be moved, not copied.
class File {
public:
    // Opens for reading; others may read, write and delete the file meanwhile. Not open on failure; a folder
    // is a failure.
    static File open_read(const std::wstring& path);
    // Creates or replaces the file, with the same sharing. The old contents are lost if this succeeds.
    static File create(const std::wstring& path);
    // Opens or creates without truncating, at the start: after a shorter text the end of the old text
    // remains.
    static File open_over(const std::wstring& path);

    File() = default;

    bool is_open() const { return static_cast<bool>(handle_); }
    // The number of bytes read; 0 at the end of the file and on failure.
    std::size_t read(std::span<std::byte> target);
    // True if all bytes were written.
    bool write(std::span<const std::byte> bytes);
    bool seek_to_start();
    std::optional<std::uint64_t> size() const;
    void close() { handle_.reset(); }

private:
    struct SystemFile {
        using Handle = std::intptr_t;
        static Handle invalid() noexcept { return -1; }
        static void close(Handle handle) noexcept;
    };

    explicit File(std::intptr_t handle) noexcept
        : handle_(handle)
    {
    }

    unique_handle<SystemFile> handle_;
};

// True if anything exists at `path`, including a folder.
bool exists(const std::wstring& path);
bool is_folder(const std::wstring& path);
bool is_regular_file(const std::wstring& path);

// The kind of object at a path. A symbolic link or mount point is `other`, whatever its target is.
enum class PathKind { nothing, regular_file, folder, other };
PathKind path_kind(const std::wstring& path);
// 0 for a folder and for a file that cannot be examined.
std::uint64_t file_size(const std::wstring& path);
// Resolved against the current directory, without a query of the file system about the path. Empty on
// failure.
std::wstring absolute_path(const std::wstring& path);

// The current directory of the process. set_current_directory returns 0 or the system's error code.
std::wstring current_directory();
std::uint32_t set_current_directory(const std::wstring& path);

bool create_folder(const std::wstring& path);
bool remove_file(const std::wstring& path);
// Replaces `to`. Returns 0 or the system's error code.
std::uint32_t copy_file(const std::wstring& from, const std::wstring& to);
// As numbered by Windows, see path_attributes.hpp; no_attributes if the path cannot be examined.
std::uint32_t file_attributes(const std::wstring& path);
// Moves `from` to `to`, replacing it in one step.
bool replace_file(const std::wstring& from, const std::wstring& to);

} // namespace platform
