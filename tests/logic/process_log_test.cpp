// The process's log: silent without a path, written over the old file with one.
#include "platform/process_log.hpp"
#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <thread>
#include <vector>

namespace {

using Log = ovlib::WinApp::ProcessLog<wchar_t>;

class ProcessLog : public testing::Test {
protected:
    void SetUp() override
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder_ = std::filesystem::temp_directory_path() / (std::string("pagewick-log-") + test->name());
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::wstring path() const { return (folder_ / "log.txt").wstring(); }
    std::string bytes() const
    {
        std::ifstream file(folder_ / "log.txt", std::ios::binary);
        return { std::istreambuf_iterator<char>(file), {} };
    }
    void write_bytes(const std::string& bytes) const
    {
        std::ofstream(folder_ / "log.txt", std::ios::binary) << bytes;
    }
    bool folder_is_empty() const { return std::filesystem::is_empty(folder_); }

private:
    std::filesystem::path folder_;
};

TEST_F(ProcessLog, KeepsNothingWithoutAPath)
{
    Log log;
    for (int i = 0; i < 1000; ++i)
        log.append(L"on_CREATE(): DropFiles の構築に失敗\r\n");
    EXPECT_EQ(log.buffered(), L"");
    log.flush();
    EXPECT_TRUE(folder_is_empty());
}

TEST_F(ProcessLog, KeepsAppendsInOrderWithNothingBetween)
{
    Log log;
    log.set_path(path());
    log << L"FileDialog::show: " << L"5" << L"\r\n";
    EXPECT_EQ(log.buffered(), L"FileDialog::show: 5\r\n");
    EXPECT_TRUE(folder_is_empty());
}

TEST_F(ProcessLog, UsesTheSystemsMessageForAnError)
{
    Log log;
    log.append_error(5);
    log.set_path(path());
    log.append_error(5);
    EXPECT_EQ(log.buffered(), L"");
    log.set_error_text([](std::uint32_t code) { return L"<" + std::to_wstring(code) + L">"; });
    log.append(L"a").append_error(5).append(L"b");
    EXPECT_EQ(log.buffered(), L"a<5>b");
}

TEST_F(ProcessLog, IsWrittenAsPlainUnitsAndEmptied)
{
    Log log;
    log.set_path(path());
    log << L"aあ";
    log.flush();
    EXPECT_EQ(bytes(), std::string("a\0\x42\x30", 4));
    EXPECT_EQ(log.buffered(), L"");
}

TEST_F(ProcessLog, LeavesTheTailOfALongerOldFile)
{
    write_bytes("0123456789");
    Log log;
    log.set_path(path());
    log << L"ab";
    log.flush();
    EXPECT_EQ(bytes(), std::string("a\0b\0", 4) + "456789");
}

TEST_F(ProcessLog, IsKeptWhenTheFileCannotBeOpened)
{
    Log log;
    log.set_path(path() + L"/missing/log.txt");
    log << L"kept";
    log.flush();
    EXPECT_EQ(log.buffered(), L"kept");
    log.set_path(path());
    log.flush();
    EXPECT_EQ(log.buffered(), L"");
    EXPECT_EQ(bytes().size(), 8u);
}

TEST_F(ProcessLog, LosesNothingWithManyThreads)
{
    constexpr int rounds = 500;
    Log log;
    log.set_path(path());
    std::vector<std::thread> threads;
    for (const wchar_t* text : { L"a", L"b", L"c", L"d" }) {
        threads.emplace_back([&log, text] {
            for (int i = 0; i < rounds; ++i)
                log.append(text);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(log.buffered().size(), 4u * rounds);
}

TEST(TheProcessLog, IsUniqueAndSilent)
{
    auto& log = ovlib::WinApp::process_log();
    EXPECT_EQ(&log, &ovlib::WinApp::process_log());
    log.append(L"nothing");
    EXPECT_EQ(log.buffered(), L"");
}

} // namespace
