// Reads any bytes as each block that a drop delivers, and the names in them as those of attachments.
#include "controls/drop_data.hpp"
#include "media/attachment_name.hpp"
#include "tests/fuzz/stable.hpp"
#include <algorithm>
#include <cstdint>
#include <span>

namespace {

using Bytes = std::span<const std::byte>;

std::wstring widened(std::string_view text)
{
    std::wstring wide;
    for (const char unit : text)
        wide += static_cast<unsigned char>(unit);
    return wide;
}

void check_paths(Bytes block)
{
    const auto paths = ovlib::dropped_paths(block, &widened);
    fuzz::require(paths.size() <= block.size());
    for (const std::wstring& path : paths)
        fuzz::require(!path.empty() && path.size() < ovlib::drop_path_limit);
    const std::vector<std::byte> delivered = ovlib::drop_block(paths);
    fuzz::require(ovlib::dropped_paths(delivered, {}) == paths);
}

void check_name(const std::wstring& proposed)
{
    const std::wstring name = media::attachment_name(proposed);
    fuzz::require(!name.empty() && name.size() <= 200);
    fuzz::require(name.find_first_of(L"\\/<>:\"|?*") == name.npos);
    fuzz::require(std::ranges::none_of(name, [](wchar_t unit) { return unit < 0x20; }));
    fuzz::require(name.back() != L'.' && name.back() != L' ');
    fuzz::require(media::attachment_name(name) == name);
}

void check_files(Bytes block)
{
    constexpr std::size_t record_size = 592;
    const auto files = ovlib::virtual_files(block);
    fuzz::require(files.size() <= block.size() / record_size);
    for (const ovlib::VirtualFile& file : files) {
        fuzz::require(file.name.size() <= 260);
        fuzz::require(ovlib::content_size(file, block.size()) <= block.size());
        check_name(file.name);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Bytes block = std::as_bytes(std::span{ data, size });
    check_paths(block);
    check_files(block);
    const std::wstring text = ovlib::dropped_text(block);
    fuzz::require(text.size() <= size / 2 && text.find(L'\0') == text.npos);
    check_name(text);
    return 0;
}
