// Lines in blocks of every size, compared with a reader that takes one unit at a time.
#include "book/line_reader.hpp"
#include "book/line_writer.hpp"
#include "tests/support/memory_stream.hpp"
#include "tests/support/temp_folder.hpp"
#include <gtest/gtest.h>
#include <random>

namespace {

using book::block_size;
using book::LineReader;
using test_support::Bytes;
using test_support::bytes_of;
using test_support::MemorySink;
using test_support::MemorySource;
using Lines = std::vector<std::wstring>;
using Sizes = std::vector<std::size_t>;

std::wstring to_wide(book::FileText text)
{
    std::wstring wide;
    book::append_units(wide, text);
    return wide;
}

// The rules of the contract, implemented as literally as possible.
class PlainReader {
public:
    explicit PlainReader(book::ByteSource& source)
        : source_(source)
    {
    }

    std::wstring read_line()
    {
        std::wstring line;
        while (true) {
            if (pos_ >= count_) {
                pos_ = 0;
                count_ = source_.read(buffer_);
                if (count_ % 2 != 0 || count_ == 0)
                    return line;
            }
            const auto low = std::to_integer<unsigned>(buffer_[pos_]);
            const auto high = std::to_integer<unsigned>(buffer_[pos_ + 1]);
            pos_ += 2;
            line += static_cast<wchar_t>(low | high << 8);
            if (line.ends_with(L"\r\n"))
                return line;
        }
    }

private:
    book::ByteSource& source_;
    std::vector<std::byte> buffer_ = std::vector<std::byte>(block_size);
    std::size_t pos_ = 0;
    std::size_t count_ = 0;
};

Lines plain_lines(const Bytes& bytes, const Sizes& sizes)
{
    MemorySource source(bytes, sizes);
    PlainReader reader(source);
    Lines lines;
    for (std::wstring line = reader.read_line(); !line.empty(); line = reader.read_line())
        lines.push_back(line);
    return lines;
}

Lines lines_of(const Bytes& bytes, const Sizes& sizes = {})
{
    MemorySource source(bytes, sizes);
    LineReader reader(source);
    Lines lines;
    for (book::FileText line = reader.read_line(); !line.empty(); line = reader.read_line())
        lines.push_back(to_wide(line));
    return lines;
}

// Runs of lines and the lines that stop them, alternating; the last entry is a run.
Lines runs_of(const Bytes& bytes, const Sizes& sizes, wchar_t stop)
{
    MemorySource source(bytes, sizes);
    LineReader reader(source);
    Lines runs;
    while (true) {
        const bool is_stopped = reader.append_lines(static_cast<book::FileUnit>(stop), runs.emplace_back());
        if (!is_stopped)
            return runs;
        runs.push_back(to_wide(reader.read_line()));
    }
}

Lines plain_runs(const Bytes& bytes, const Sizes& sizes, wchar_t stop)
{
    Lines runs{ L"" };
    for (const std::wstring& line : plain_lines(bytes, sizes)) {
        if (line.front() != stop) {
            runs.back() += line;
            continue;
        }
        runs.push_back(line);
        runs.emplace_back();
    }
    return runs;
}

void expect_like_plain(const Bytes& bytes, const Sizes& sizes, const std::string& what)
{
    EXPECT_EQ(lines_of(bytes, sizes), plain_lines(bytes, sizes)) << what;
    EXPECT_EQ(runs_of(bytes, sizes, L'\3'), plain_runs(bytes, sizes, L'\3')) << what;
}

const std::wstring small_file =
    L"一行目\r\n\3\r\n\r\n\nlone\nLF\rCR\r\r\n\3\3x\r\nab\3c\r\n\3\r\n\n\3\r\nlast";

TEST(LineReader, EndsALineOnlyAtLfAfterCr)
{
    EXPECT_EQ(lines_of(bytes_of(L"a\nb\rc\n\rd\r\r\ne\r\n\r\n")),
        (Lines{ L"a\nb\rc\n\rd\r\r\n", L"e\r\n", L"\r\n" }));
}

TEST(LineReader, ReturnsALastLineWithoutALineEnd)
{
    EXPECT_EQ(lines_of(bytes_of(L"first\r\nlast")), (Lines{ L"first\r\n", L"last" }));
    EXPECT_EQ(lines_of(bytes_of(L"first\r")), (Lines{ L"first\r" }));
    EXPECT_EQ(lines_of({}), Lines{});
}

TEST(LineReader, ReadsASmallFileAlikeWhereverItIsCut)
{
    const Bytes whole = bytes_of(small_file);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const Bytes start(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        expect_like_plain(start, {}, "cut at " + std::to_string(length));
    }
}

TEST(LineReader, ReadsASmallFileAlikeWhereverABlockEnds)
{
    const Bytes whole = bytes_of(small_file);
    for (std::size_t first = 1; first < whole.size(); ++first)
        expect_like_plain(whole, { first, block_size }, "first block of " + std::to_string(first));
}

TEST(LineReader, ReadsASmallFileAlikeInBlocksOfEverySize)
{
    const Bytes whole = bytes_of(small_file);
    for (std::size_t size = 1; size < whole.size(); ++size)
        expect_like_plain(whole, { size }, "blocks of " + std::to_string(size));
}

TEST(LineReader, EndsTheCurrentLineAtABlockOfAnOddNumberOfBytes)
{
    const Bytes bytes = bytes_of(L"abcd\r\nefgh\r\n");
    // Two units, then five bytes, which are two and a half.
    MemorySource source(bytes, { 4, 5, block_size });
    LineReader reader(source);
    EXPECT_EQ(to_wide(reader.read_line()), L"ab");
    EXPECT_EQ(to_wide(reader.read_line()), L"cd\r");
}

TEST(LineReader, TakesTheHighByteOfAnOddBlockFromTheBlockBefore)
{
    const Bytes bytes{ std::byte{ 0x41 }, std::byte{ 0x30 }, std::byte{ 0x42 }, std::byte{ 0x31 },
        std::byte{ 0x43 }, std::byte{ 0x32 }, std::byte{ 0x44 } };
    EXPECT_EQ(lines_of(bytes, { 4, 3 }), (Lines{ L"\u3041\u3142", L"\u3243\u3144" }));
}

TEST(LineReader, TakesZeroForTheHighByteOfAnOddFirstBlock)
{
    const Bytes bytes{ std::byte{ 0x41 }, std::byte{ 0x30 }, std::byte{ 0x42 } };
    MemorySource source(bytes);
    LineReader reader(source);
    EXPECT_EQ(to_wide(reader.read_line()), L"");
    EXPECT_EQ(to_wide(reader.read_line()), L"\u3041\u0042");
    EXPECT_EQ(to_wide(reader.read_line()), L"");
}

TEST(LineReader, ClearsItsBlockWhenItRestarts)
{
    const Bytes bytes{ std::byte{ 0x41 }, std::byte{ 0x30 }, std::byte{ 0x42 }, std::byte{ 0x31 } };
    MemorySource source(bytes, { 4, 4, 3 });
    LineReader reader(source);
    EXPECT_EQ(to_wide(reader.read_line()), L"\u3041\u3142");
    reader.restart();
    EXPECT_EQ(reader.delivered_bytes(), 0u);
    EXPECT_EQ(to_wide(reader.read_line()), L"");
    EXPECT_EQ(reader.delivered_bytes(), 3u);
    EXPECT_EQ(to_wide(reader.read_line()), L"\u3041\u0042");
}

TEST(LineReader, ReadsAnOddFileOfMoreThanOneBlock)
{
    for (const std::size_t units : { block_size / 2 - 1, block_size / 2, block_size / 2 + 5 }) {
        for (const std::wstring_view end : { L"", L"\r\n" }) {
            std::wstring text(units - end.size(), L'あ');
            Bytes bytes = bytes_of(text + std::wstring(end) + L"tail\r\n\3\r\n");
            bytes.push_back(std::byte{ 7 });
            expect_like_plain(bytes, {}, std::to_string(units));
        }
    }
}

// Shifts a text with line ends and separators so that each of its units comes to lie at a block border.
TEST(LineReader, ReadsLinesAcrossBlockBorders)
{
    const std::wstring text = L"x\r\n\3\r\n\r\n\n\3y\r\n\3z\r\n";
    const std::size_t edge = block_size / 2;
    for (std::size_t before = edge - text.size() - 2; before <= edge + 2; ++before) {
        const std::wstring filled =
            L"\r\n" + std::wstring(before, L'い') + text + std::wstring(2 * edge, L'う');
        expect_like_plain(bytes_of(filled + text), {}, std::to_string(before));
    }
}

TEST(LineReader, RequestsWholeBlocks)
{
    struct Meter final : book::ByteSource {
        std::size_t read(std::span<std::byte> target) override
        {
            asked = target.size();
            return 0;
        }
        void restart() override { }
        std::uint64_t size() override { return 0; }
        std::size_t asked = 0;
    };
    Meter source;
    LineReader reader(source);
    EXPECT_TRUE(reader.read_line().empty());
    EXPECT_EQ(source.asked, block_size);
}

TEST(LineReader, ReadsRandomTextInRandomBlocksLikeThePlainReader)
{
    std::mt19937 random(2027);
    const std::wstring alphabet = L"\r\n\3a\r\n\r\n\3\u3042\uFEFF";
    for (int round = 0; round < 3000; ++round) {
        std::wstring text;
        for (std::size_t length = random() % 60; text.size() < length;)
            text += alphabet[random() % alphabet.size()];
        Bytes bytes = bytes_of(text);
        if (random() % 3 == 0)
            bytes.push_back(std::byte{ 3 });
        Sizes sizes;
        for (int i = 0; i < 8; ++i)
            sizes.push_back(1 + random() % 20);
        expect_like_plain(bytes, sizes, "round " + std::to_string(round));
    }
}

TEST(LineWriter, WritesLittleEndianUnitsInOneCall)
{
    MemorySink sink;
    book::LineWriter writer(sink);
    writer.append(L"あ");
    writer.append_ascii("1");
    writer.append_line(L"");
    EXPECT_TRUE(sink.bytes.empty());
    writer.flush();
    writer.flush();
    EXPECT_EQ(sink.bytes, bytes_of(L"あ1\r\n"));
    EXPECT_EQ(sink.writes, 1);
}

TEST(LineWriter, WritesTextsLargerThanItsBuffer)
{
    MemorySink sink;
    std::wstring expected;
    book::LineWriter writer(sink);
    for (const std::size_t length : { 3u, 600000u, 500000u, 24288u, 1u, 2000000u, 7u }) {
        const std::wstring text(length, static_cast<wchar_t>(L'あ' + length % 80));
        writer.append_line(text);
        expected += text + L"\r\n";
    }
    writer.flush();
    EXPECT_EQ(sink.bytes, bytes_of(expected));
}

} // namespace
