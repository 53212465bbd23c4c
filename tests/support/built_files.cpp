#include "tests/support/built_files.hpp"
#include "platform/text.hpp"
#include <algorithm>

namespace test_support {

std::wstring system_path(std::string_view path)
{
    std::wstring text = platform::from_utf8(path);
#if defined(_WIN32)
    if (text.starts_with(L'/'))
        text.insert(0, L"Z:");
    std::ranges::replace(text, L'/', L'\\');
#endif
    return text;
}

namespace {

std::wstring path_below(std::string_view folder, std::wstring_view below)
{
    return system_path(std::string(folder) + platform::to_utf8(below));
}

} // namespace

std::wstring dist_path(std::wstring_view below)
{
    return path_below(PAGEWICK_BINARY_DIR "/dist", below);
}

std::wstring resource_path(std::wstring_view below)
{
    return path_below(PAGEWICK_SOURCE_DIR "/res", below);
}

std::wstring artifacts_path(std::wstring_view below)
{
    return path_below(PAGEWICK_BINARY_DIR "/artifacts", below);
}

std::wstring recorder_path()
{
    return system_path(PAGEWICK_BINARY_DIR "/recorder.exe");
}

std::wstring sample_path()
{
    return system_path(PAGEWICK_SOURCE_DIR "/sample/pagewick.json");
}

} // namespace test_support
