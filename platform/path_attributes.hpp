// Interpretation of the file attributes and error codes of Windows.
#pragma once
#include "platform/file.hpp"
#include <algorithm>
#include <array>
#include <cstdint>

namespace platform {

inline constexpr std::uint32_t no_attributes = 0xFFFFFFFF; // for any failure
inline constexpr std::uint32_t read_only_attribute = 0x1;
inline constexpr std::uint32_t folder_attribute = 0x10;
inline constexpr std::uint32_t reparse_attribute = 0x400;
inline constexpr std::uint32_t symbolic_link_tag = 0xA000000C;
inline constexpr std::uint32_t mount_point_tag = 0xA0000003;

// A tag counts only with reparse_attribute. Files that a storage service or a compressor marks with its own
// tag are regular files.
constexpr PathKind kind_of_attributes(std::uint32_t attributes, std::uint32_t reparse_tag)
{
    if (attributes == no_attributes)
        return PathKind::nothing;
    const bool is_link = reparse_tag == symbolic_link_tag || reparse_tag == mount_point_tag;
    if ((attributes & reparse_attribute) != 0 && is_link)
        return PathKind::other;
    return (attributes & folder_attribute) != 0 ? PathKind::folder : PathKind::regular_file;
}

// Whether the error code of a failed query concerns the whole share or drive. Otherwise it concerns only the
// path, which may be missing or denied.
constexpr bool is_of_volume(std::uint32_t failure)
{
    constexpr std::array codes{
        21u, // the drive is not ready
        51u, // the remote computer is not available
        53u, // the network path was not found
        55u, // the network device no longer exists
        59u, // an unexpected network error
        64u, // the network name was deleted
        67u, // the network name was not found
        121u, // the timeout expired
        1203u, // no network provider accepted the path
        1222u, // no network is present
        1231u, // the network is unreachable
        1232u, // the host is unreachable
    };
    return std::ranges::find(codes, failure) != codes.end();
}

} // namespace platform
