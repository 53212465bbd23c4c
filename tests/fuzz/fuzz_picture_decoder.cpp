// Holds the reader of headers against another decoder: what that one finds in any bytes is never larger than
// what was claimed of them, unless they are refused.
#include "media/picture_header.hpp"
#include "tests/fuzz/stable.hpp"
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <magick/MagickCore.h>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

// The decoder keeps what it allocates once; its own leaks are not looked for here. The sanitizer asks for
// this name.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreserved-identifier"
extern "C" const char* __asan_default_options()
{
    return "detect_leaks=0";
}
#pragma clang diagnostic pop

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t max_size);

namespace {

using namespace std::string_view_literals;
using Bytes = std::span<const std::uint8_t>;

// The decoder is told the kind: by itself it would run scripts and fetch files that the bytes name.
struct Kind {
    std::string_view signature;
    const char* name;
};

constexpr std::string_view png_signature = "\x89PNG\r\n\x1A\n"sv;
constexpr Kind kinds[] = {
    { png_signature, "PNG" },
    { "\xFF\xD8"sv, "JPEG" },
    { "GIF8"sv, "GIF" },
    { "BM"sv, "BMP" },
    { "II*\0"sv, "TIFF" },
    { "MM\0*"sv, "TIFF" },
    { "\0\0\1\0"sv, "ICO" },
    { "\0\0\2\0"sv, "CUR" },
};

const Kind* kind_of(Bytes bytes)
{
    const auto begins = [&](const Kind& kind) {
        return bytes.size() >= kind.signature.size()
            && std::memcmp(bytes.data(), kind.signature.data(), kind.signature.size()) == 0;
    };
    const auto found = std::ranges::find_if(kinds, begins);
    return found == std::end(kinds) ? nullptr : &*found;
}

struct Release {
    void operator()(Image* images) const { DestroyImageList(images); }
    void operator()(ImageInfo* info) const { DestroyImageInfo(info); }
    void operator()(ExceptionInfo* exception) const { DestroyExceptionInfo(exception); }
};

// All pictures that the decoder finds, with their sizes and without their pixels. Of a TIFF the first page,
// which is the one that is shown.
std::unique_ptr<Image, Release> decoded(const Kind& kind, Bytes bytes)
{
    const std::unique_ptr<ImageInfo, Release> info{ CloneImageInfo(nullptr) };
    const std::unique_ptr<ExceptionInfo, Release> exception{ AcquireExceptionInfo() };
    std::snprintf(info->magick, sizeof info->magick, "%s", kind.name);
    std::snprintf(info->filename, sizeof info->filename, "%s:", kind.name);
    SetImageOption(info.get(), "png:ignore-crc", "true");
    if (kind.name == "TIFF"sv) {
        info->scene = 0;
        info->number_scenes = 1;
    }
    return std::unique_ptr<Image, Release>{ PingBlob(
        info.get(), bytes.data(), bytes.size(), exception.get()) };
}

// The outline of what stands on a GIF's screen or in another picture alone.
media::PictureSize outline_of(const Kind& kind, const Image& image)
{
    const bool has_place = kind.name == "GIF"sv;
    const auto far = [&](ssize_t near, std::size_t length) {
        return static_cast<std::uint32_t>(
            length + static_cast<std::size_t>(has_place ? std::max<ssize_t>(near, 0) : 0));
    };
    return { far(image.page.x, image.columns), far(image.page.y, image.rows) };
}

bool is_held_by(const Kind& kind, media::PictureSize found, media::PictureSize claimed)
{
    const bool has_choice = kind.name == "ICO"sv || kind.name == "CUR"sv;
    return has_choice ? found.pixels() <= claimed.pixels()
                      : found.width <= claimed.width && found.height <= claimed.height;
}

std::uint32_t big32(const std::uint8_t* at)
{
    return std::uint32_t{ at[0] } << 24 | std::uint32_t{ at[1] } << 16 | std::uint32_t{ at[2] } << 8 | at[3];
}

std::uint32_t crc(Bytes bytes)
{
    std::uint32_t value = 0xFFFFFFFF;
    for (const std::uint8_t one : bytes) {
        value ^= one;
        for (int bit = 0; bit < 8; ++bit)
            value = value >> 1 ^ (0xEDB88320u & (0u - (value & 1)));
    }
    return ~value;
}

// A chunk whose sum is wrong says nothing to the decoder, so every change of a PNG would end there.
void mend_sums(std::span<std::uint8_t> png)
{
    constexpr std::size_t frame = 12; // length, name and sum
    for (std::size_t at = png_signature.size(); png.size() - at >= frame;) {
        const std::size_t length = big32(&png[at]);
        if (length > png.size() - at - frame)
            return;
        const std::uint32_t sum = crc(png.subspan(at + 4, 4 + length));
        for (std::size_t i = 0; i < 4; ++i)
            png[at + 8 + length + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
        at += frame + length;
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    MagickCoreGenesis("", MagickFalse);
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(
    std::uint8_t* data, std::size_t size, std::size_t max_size, unsigned)
{
    size = LLVMFuzzerMutate(data, size, max_size);
    const Kind* const kind = kind_of({ data, size });
    if (kind && kind->signature == png_signature)
        mend_sums({ data, size });
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Bytes bytes{ data, size };
    const Kind* const kind = kind_of(bytes);
    if (!kind || !media::can_be_decoded(std::as_bytes(bytes)))
        return 0;
    const auto claimed = media::read_picture_size(std::as_bytes(bytes));
    fuzz::require(claimed.has_value());
    const auto images = decoded(*kind, bytes);
    for (const Image* image = images.get(); image; image = GetNextImageInList(image)) {
        const media::PictureSize found = outline_of(*kind, *image);
        if (!is_held_by(*kind, found, *claimed)) {
            std::fprintf(stderr, "%s: %u x %u found, %u x %u claimed\n", kind->name, found.width,
                found.height, claimed->width, claimed->height);
            fuzz::require(false);
        }
    }
    return 0;
}
