// Files, as far as the logic needs them. Paths are UTF-16 text on every system; `/` and, on Windows, `\`
// separate.
#pragma once
#include "platform/unique_handle.hpp"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace platform {

// One open file. Closed by the destructor; moved, never copied.
class File {
public:
    // For reading, shared for reading, writing and deleting. Not open on failure; a folder is a failure.
    static File open_read(const std::wstring& path);
    // Replaces whatever stands there, shared likewise: the old contents are gone when this succeeds.
    static File create(const std::wstring& path);
    // Opens or creates without cutting, positioned at the start: a shorter text leaves the old tail in place.
    static File open_over(const std::wstring& path);

    File() = default;

    bool is_open() const { return static_cast<bool>(handle_); }
    // Bytes delivered; 0 at the end of the file and on failure.
    std::size_t read(std::span<std::byte> target);
    // True when every byte was taken.
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

// True for anything that stands at `path`, a folder included.
bool exists(const std::wstring& path);
bool is_folder(const std::wstring& path);
bool is_regular_file(const std::wstring& path);

// What stands at a path. A link of the file system stands for itself, not for what it leads to: it is neither
// a file nor a folder.
enum class PathKind { nothing, regular_file, folder, other };
PathKind path_kind(const std::wstring& path);
// 0 for a folder and for what cannot be asked.
std::uint64_t file_size(const std::wstring& path);
// Counted from the current directory. Nothing is asked of what stands there; empty when the system cannot
// tell.
std::wstring absolute_path(const std::wstring& path);

// Of the process. Setting it gives 0 or the system's error code.
std::wstring current_directory();
std::uint32_t set_current_directory(const std::wstring& path);

bool create_folder(const std::wstring& path);
bool remove_file(const std::wstring& path);
// Replaces `to`. 0 or the system's error code.
std::uint32_t copy_file(const std::wstring& from, const std::wstring& to);
// As Windows numbers them, see path_attributes.hpp; no_attributes when the path cannot be examined.
std::uint32_t file_attributes(const std::wstring& path);
// Puts `from` in the place of `to`, replacing it in one step.
bool replace_file(const std::wstring& from, const std::wstring& to);

} // namespace platform
