#include "controls/drop_data.hpp"
#include "platform/byte_view.hpp"
#include <algorithm>
#include <cstring>

namespace ovlib {

using platform::ByteOrder;
using platform::ByteView;

namespace {

constexpr std::size_t unit_size = 2;

// DROPFILES: the offset of the list, a point, a flag for client coordinates, and a flag for wide characters.
namespace drop_files {
constexpr std::size_t list_offset = 0;
constexpr std::size_t is_wide = 16;
constexpr std::size_t header_size = 20;
} // namespace drop_files

// FILEGROUPDESCRIPTORW: a count, then records of equal size.
namespace descriptor {
constexpr std::size_t count_size = 4;
constexpr std::size_t record_size = 592;
constexpr std::size_t flags = 0;
constexpr std::size_t size_high = 64;
constexpr std::size_t size_low = 68;
constexpr std::size_t name = 72;
constexpr std::size_t name_units = 260;
constexpr std::uint32_t has_size = 0x40;
} // namespace descriptor

wchar_t unit_at(const ByteView& view, std::uint64_t at)
{
    return static_cast<wchar_t>(view.number16(at, ByteOrder::little));
}

// The text at `at`, up to its terminator, to the end of the bytes or to `limit` units.
std::wstring wide_text(const ByteView& view, std::uint64_t at, std::uint64_t limit)
{
    std::wstring text;
    for (; text.size() < limit && view.has(at, unit_size); at += unit_size) {
        const wchar_t unit = unit_at(view, at);
        if (unit == 0)
            break;
        text += unit;
    }
    return text;
}

std::string narrow_text(const ByteView& view, std::uint64_t at)
{
    std::string text;
    for (; view.has(at, 1) && view.byte(at) != 0; ++at)
        text += static_cast<char>(view.byte(at));
    return text;
}

// No file has a control character in its name. In a Book's file such a character could end a field, and the
// rest of the path would be read as other fields.
bool is_control(wchar_t unit)
{
    return unit < L' ';
}

void add_path(std::vector<std::wstring>& paths, std::wstring path)
{
    if (!path.empty() && path.size() < drop_path_limit && std::ranges::none_of(path, is_control))
        paths.push_back(std::move(path));
}

void append_unit(std::vector<std::byte>& block, wchar_t unit)
{
    block.push_back(static_cast<std::byte>(unit & 0xFF));
    block.push_back(static_cast<std::byte>(unit >> 8 & 0xFF));
}

} // namespace

std::vector<std::wstring> dropped_paths(std::span<const std::byte> block, const ConvertNarrow& convert)
{
    const ByteView view{ block };
    std::vector<std::wstring> paths;
    std::uint64_t at = view.number32(drop_files::list_offset, ByteOrder::little);
    if (block.size() < drop_files::header_size || at < drop_files::header_size)
        return paths;
    const bool is_wide = view.number32(drop_files::is_wide, ByteOrder::little) != 0;
    while (is_wide && view.has(at, unit_size)) {
        std::wstring path = wide_text(view, at, block.size());
        if (path.empty())
            break;
        at += (path.size() + 1) * unit_size;
        add_path(paths, std::move(path));
    }
    while (!is_wide && view.has(at, 1)) {
        const std::string path = narrow_text(view, at);
        if (path.empty())
            break;
        at += path.size() + 1;
        add_path(paths, convert(path));
    }
    return paths;
}

std::vector<std::byte> drop_block(const std::vector<std::wstring>& paths)
{
    std::vector<std::byte> block(drop_files::header_size);
    block[drop_files::list_offset] = std::byte{ drop_files::header_size };
    block[drop_files::is_wide] = std::byte{ 1 };
    for (const std::wstring& path : paths) {
        for (const wchar_t unit : path)
            append_unit(block, unit);
        append_unit(block, 0);
    }
    append_unit(block, 0);
    return block;
}

std::wstring dropped_text(std::span<const std::byte> block)
{
    return wide_text(ByteView{ block }, 0, block.size());
}

std::vector<VirtualFile> virtual_files(std::span<const std::byte> block)
{
    std::vector<VirtualFile> files;
    if (block.size() < descriptor::count_size)
        return files;
    const std::uint64_t stated = ByteView{ block }.number32(0, ByteOrder::little);
    const std::uint64_t complete = (block.size() - descriptor::count_size) / descriptor::record_size;
    const auto count = static_cast<std::size_t>(std::min(stated, complete));
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = descriptor::count_size + i * descriptor::record_size;
        const ByteView record{ block.subspan(at, descriptor::record_size) };
        VirtualFile file{ wide_text(record, descriptor::name, descriptor::name_units), std::nullopt };
        if (record.number32(descriptor::flags, ByteOrder::little) & descriptor::has_size) {
            const std::uint64_t high = record.number32(descriptor::size_high, ByteOrder::little);
            file.size = high << 32 | record.number32(descriptor::size_low, ByteOrder::little);
        }
        files.push_back(std::move(file));
    }
    return files;
}

std::uint64_t content_size(const VirtualFile& file, std::uint64_t block_size)
{
    const std::uint64_t stated = file.size.value_or(0);
    return stated != 0 ? std::min(stated, block_size) : block_size;
}

} // namespace ovlib
