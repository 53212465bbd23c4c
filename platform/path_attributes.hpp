// What Windows tells of a path, made out.
#pragma once
#include "platform/file.hpp"
#include <algorithm>
#include <array>
#include <cstdint>

namespace platform {

inline constexpr std::uint32_t no_attributes = 0xFFFFFFFF; // whatever the reason
inline constexpr std::uint32_t read_only_attribute = 0x1;
inline constexpr std::uint32_t folder_attribute = 0x10;
inline constexpr std::uint32_t reparse_attribute = 0x400;
inline constexpr std::uint32_t symbolic_link_tag = 0xA000000C;
inline constexpr std::uint32_t mount_point_tag = 0xA0000003;

// The tag counts only with its attribute. Files that a storage service or a compressor keeps behind a tag of
// its own are files.
constexpr PathKind kind_of_attributes(std::uint32_t attributes, std::uint32_t reparse_tag)
{
    if (attributes == no_attributes)
        return PathKind::nothing;
    const bool is_link = reparse_tag == symbolic_link_tag || reparse_tag == mount_point_tag;
    if ((attributes & reparse_attribute) != 0 && is_link)
        return PathKind::other;
    return (attributes & folder_attribute) != 0 ? PathKind::folder : PathKind::regular_file;
}

// Why attributes could not be had, as Windows numbers it, concerns the whole share or drive and not this path
// alone, which may merely be missing or denied.
constexpr bool is_of_volume(std::uint32_t failure)
{
    constexpr std::array codes{
        21u, // the drive is not ready
        51u, // the remote computer does not listen
        53u, // there is no such network path
        55u, // the network device is gone
        59u, // an unexpected network error
        64u, // the network name is gone
        67u, // there is no such network name
        121u, // it took too long
        1203u, // no network took the path
        1222u, // there is no network
        1231u, // the network cannot be reached
        1232u, // nor the computer
    };
    return std::ranges::find(codes, failure) != codes.end();
}

} // namespace platform
