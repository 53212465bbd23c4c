// Reading and writing the whole file of the big Book.
#include "bench/harness.hpp"
#include "platform/file.hpp"
#include "platform/text.hpp"
#include <memory>
#include <stdexcept>
#include <vector>

namespace bench {

namespace {

constexpr char iconv[] = "iconv";

void load(book::Book& book, const std::wstring& file)
{
    std::wstring error;
    if (!book.load(file, error, nullptr))
        throw std::runtime_error(platform::to_utf8(error));
}

// The time of a load alone: the old Book is freed before each round.
void run_load(Bench& bench)
{
    auto book = std::make_shared<book::Book>();
    const std::wstring file = bench.options().book;
    bench.run({ .name = "load",
        .subject = [book, file] { load(*book, file); },
        .against = iconv,
        .target_ratio = 1,
        .prepare = [book] { book->clear(); } });
}

// Writes the same number of bytes in as many calls as the Book has pages.
Work raw_writes(const std::wstring& file, std::size_t bytes, std::size_t writes)
{
    return [file, bytes, writes] {
        const std::vector<std::byte> piece(bytes / writes);
        const std::vector<std::byte> last(piece.size() + bytes % writes);
        platform::File target = platform::File::create(file);
        for (std::size_t i = 1; i < writes; ++i)
            target.write(piece);
        if (!target.write(last))
            throw std::runtime_error("cannot write " + platform::to_utf8(file));
    };
}

void run_save(Bench& bench)
{
    const std::wstring scratch = bench.options().scratch;
    book::Book book;
    load(book, bench.options().book);
    const auto bytes = static_cast<std::size_t>(book.file_size);
    bench.run({ .name = "save",
        .subject =
            [&] {
                if (!book.save_to(scratch))
                    throw std::runtime_error("cannot write " + platform::to_utf8(scratch));
            },
        .against = "as many writes of the same bytes",
        .yardstick = raw_writes(scratch, bytes, book.pages.size()),
        .target_ratio = 2 });
    platform::remove_file(scratch);
}

} // namespace

void run_load_save(Bench& bench)
{
    run_load(bench);
    run_save(bench);
}

} // namespace bench
