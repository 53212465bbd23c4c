#include "media/file_links.hpp"
#include "platform/file.hpp"
#include <utility>

namespace media {

std::vector<std::byte> hashed_bytes(std::wstring_view path)
{
    std::vector<std::byte> bytes;
    bytes.reserve(path.size() * 2);
    for (const wchar_t unit : path) {
        bytes.push_back(static_cast<std::byte>(unit & 0xFF));
        bytes.push_back(static_cast<std::byte>(unit >> 8 & 0xFF));
    }
    return bytes;
}

std::wstring link_name(const platform::Digest& digest)
{
    constexpr wchar_t digits[] = L"0123456789abcdef";
    std::wstring name;
    for (const std::uint8_t byte : digest) {
        name += digits[byte >> 4];
        name += digits[byte & 0xF];
    }
    return name + L".lnk";
}

HashedLinkNames::HashedLinkNames(std::wstring prefix)
    : prefix_(std::move(prefix))
{
}

std::optional<std::wstring> HashedLinkNames::link_of(const std::wstring& path)
{
    const std::optional<platform::Digest> digest = hash_.digest(hashed_bytes(path));
    return digest ? std::optional{ prefix_ + link_name(*digest) } : std::nullopt;
}

bool save_whole(const std::wstring& link, const std::function<bool(const std::wstring& file)>& write)
{
    const std::wstring unfinished = link + L".new";
    if (write(unfinished) && platform::replace_file(unfinished, link))
        return true;
    platform::remove_file(unfinished);
    return false;
}

} // namespace media
