// The data of a drag from another program. The blocks come from outside, so nothing in them is trusted: a
// count or a text that reaches beyond its block ends with the block.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ovlib {

// The kind of data that a drop takes. The values are the bits of the mask of allowed kinds.
enum class DropSource : std::uint32_t { nothing = 0, files = 1, virtual_files = 2, text = 4 };
inline constexpr std::uint32_t all_drop_kinds = 7;

constexpr bool is_allowed(DropSource source, std::uint32_t allowed_kinds)
{
    return (static_cast<std::uint32_t>(source) & allowed_kinds) != 0;
}

inline constexpr std::uint32_t no_drop = 0;
inline constexpr std::uint32_t drop_copy = 1;

// The effect to report, of the effects that the source offers: copying or none.
constexpr std::uint32_t drop_effect(bool is_accepted, std::uint32_t offered)
{
    return is_accepted ? drop_copy & offered : no_drop;
}

// Units of a path with its terminator. Longer paths are left out.
inline constexpr std::size_t drop_path_limit = 2080;

// Converts a path in the code page of the system.
using ConvertNarrow = std::function<std::wstring(std::string_view)>;

// The paths of a DROPFILES block, in their order. The list ends at an empty path or with the block.
std::vector<std::wstring> dropped_paths(std::span<const std::byte> block, const ConvertNarrow& convert);

// A DROPFILES block with these paths.
std::vector<std::byte> drop_block(const std::vector<std::wstring>& paths);

// The text of a CF_UNICODETEXT block: up to the first 0 or the end of the block.
std::wstring dropped_text(std::span<const std::byte> block);

// A file without a path, such as an attachment of a mail.
struct VirtualFile {
    std::wstring name; // as the source wrote it
    std::optional<std::uint64_t> size; // in bytes, if the source states it

    friend bool operator==(const VirtualFile&, const VirtualFile&) = default;
};

// The records of a FILEGROUPDESCRIPTORW block that are complete.
std::vector<VirtualFile> virtual_files(std::span<const std::byte> block);

// How many bytes of a block of `block_size` belong to the file: memory blocks may be larger than what was
// requested.
std::uint64_t content_size(const VirtualFile& file, std::uint64_t block_size);

} // namespace ovlib
