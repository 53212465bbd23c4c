// Reads any bytes as the header of a picture; what may be drawn follows from what was read alone.
#include "media/picture_header.hpp"
#include "tests/fuzz/stable.hpp"
#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::span bytes = std::as_bytes(std::span{ data, size });
    const auto read = media::read_picture_size(bytes);
    fuzz::require(!read || media::can_be_drawn(*read) == (read->pixels() * 4 < std::uint64_t{ 1 } << 31)
        || read->pixels() >> 62 != 0);
    // What may reach the decoder has a size, which can be drawn; only bytes of no known kind have none.
    fuzz::require(!read || !media::can_be_decoded(bytes)
        || (media::can_be_drawn(*read) && read->pixels() != 0
            && read->pixels() <= media::largest_decoding_cost));
    return 0;
}
