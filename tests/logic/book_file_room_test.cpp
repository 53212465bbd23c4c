// Memory for pages is reserved by an estimate from the file's size, which may be far from the truth.
#include "tests/support/book_file_fixture.hpp"

namespace {

using namespace test_support;

// Delivers a small file and reports a large size.
class BoastingSource final : public book::ByteSource {
public:
    BoastingSource(std::vector<std::byte> bytes, std::uint64_t size)
        : source_(std::move(bytes))
        , size_(size)
    {
    }
    std::size_t read(std::span<std::byte> target) override { return source_.read(target); }
    void restart() override { source_.restart(); }
    std::uint64_t size() override { return size_; }

private:
    MemorySource source_;
    std::uint64_t size_;
};

std::vector<std::byte> small_pages(std::size_t count)
{
    std::wstring text = header_lines();
    const std::wstring page = page_of_box1(L"");
    for (std::size_t i = 0; i < count; ++i)
        text += page;
    return bytes_of(text);
}

Book loaded(std::size_t pages, std::uint64_t size)
{
    BoastingSource source(small_pages(pages), size);
    Book book;
    std::wstring error;
    EXPECT_TRUE(book::load_book(book, source, L"book", error, {}));
    EXPECT_EQ(book.pages.size(), pages);
    return book;
}

TEST(RoomForPages, IsNoMoreThanABookMayHoldWhateverTheFileSize)
{
    const std::uint64_t gigabyte = 1 << 30;
    for (const std::uint64_t size : { gigabyte, 1000 * gigabyte, ~std::uint64_t{ 0 } })
        EXPECT_LE(loaded(4200, size).pages.capacity(), book::page_limit);
}

TEST(RoomForPages, FollowsTheEstimateForAnOrdinaryBook)
{
    const std::size_t count = 20000;
    const std::size_t capacity = loaded(count, small_pages(count).size()).pages.capacity();
    EXPECT_LE(capacity, count + count / 4);
}

TEST(RoomForPages, GrowsByAQuarterPastTheLimit)
{
    const std::size_t count = book::page_limit + 10;
    const std::size_t capacity = loaded(count, ~std::uint64_t{ 0 }).pages.capacity();
    EXPECT_LE(capacity, book::page_limit + book::page_limit / 4);
}

} // namespace
