// Real shell links in a temporary folder.
#pragma once
#include "media/file_links.hpp"
#include "media/wnd/shell_link.hpp"
#include "tests/support/gui_log.hpp"
#include <filesystem>
#include <gtest/gtest.h>
#include <objbase.h>
#include <string>
#include <vector>

namespace gui {

// Initialises COM on the test's thread, as the program does at start.
class ComOnThread {
public:
    ComOnThread()
        : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))
    {
        EXPECT_TRUE(SUCCEEDED(result_));
    }
    ~ComOnThread()
    {
        if (SUCCEEDED(result_))
            CoUninitialize();
    }
    ComOnThread(const ComOnThread&) = delete;
    ComOnThread& operator=(const ComOnThread&) = delete;

private:
    HRESULT result_;
};

inline std::wstring link_of(const std::wstring& folder, const std::wstring& path)
{
    return media::HashedLinkNames{ folder + L"\\" }.link_of(path).value_or(L"");
}

inline std::size_t count_files(const std::wstring& folder)
{
    std::size_t count = 0;
    std::error_code missing;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder, missing))
        ++count;
    return count;
}

// The target of a link; empty if the file is no link. Needs COM.
inline std::wstring target_of(const std::wstring& link)
{
    return media::ShellLink{ nullptr }.resolve(link);
}

// The log from the first line about links on. Lines about missing pictures may precede it, because the test's
// folder has no pictures.
inline std::wstring link_lines(const LogEar& log)
{
    const std::wstring heard = log.heard();
    const std::size_t first = heard.find(L"start_shortcut_creation_async");
    return first == std::wstring::npos ? std::wstring{} : heard.substr(first);
}

} // namespace gui
