#include "look/custom_colors.hpp"
#include "platform/file.hpp"
#include <cstddef>
#include <span>

namespace look {

namespace {

// The file is 16 colours of four bytes each, little-endian, and nothing else.
constexpr std::size_t color_size = 4;
using FileImage = std::array<std::byte, std::tuple_size_v<CustomColors> * color_size>;

} // namespace

CustomColors read_custom_colors(const std::wstring& path)
{
    FileImage image{};
    platform::File file = platform::File::open_read(path);
    // A read may return less than asked for; what a short file lacks stays zero.
    std::span<std::byte> rest{ image };
    while (file.is_open() && !rest.empty()) {
        const std::size_t count = file.read(rest);
        if (count == 0)
            break;
        rest = rest.subspan(count);
    }
    CustomColors colors{};
    for (std::size_t at = 0; at < image.size(); ++at)
        colors[at / color_size] |= std::to_integer<std::uint32_t>(image[at]) << 8 * (at % color_size);
    return colors;
}

bool write_custom_colors(const std::wstring& path, const CustomColors& colors)
{
    FileImage image{};
    for (std::size_t at = 0; at < image.size(); ++at)
        image[at] = static_cast<std::byte>(colors[at / color_size] >> 8 * (at % color_size));
    platform::File file = platform::File::create(path);
    return file.is_open() && file.write(image);
}

} // namespace look
