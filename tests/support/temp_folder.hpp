// A temporary folder for a test, and its files as bytes.
#pragma once
#include "platform/file.hpp"
#include "platform/text.hpp"
#include <array>
#include <chrono>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace test_support {

// Created in the system's temporary folder and removed with its contents. Its name contains Japanese, as real
// paths do.
class TempFolder {
public:
    TempFolder()
    {
        const std::filesystem::path base = std::filesystem::temp_directory_path();
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        for (int attempt = 0; attempt < attempts; ++attempt) {
            const std::wstring name =
                L"pagewick-試験-" + std::to_wstring(now) + L"-" + std::to_wstring(attempt);
            folder_ = base / native(name);
            if (std::filesystem::create_directory(folder_))
                return;
        }
        throw std::runtime_error("no temporary folder");
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::wstring path() const { return text(folder_); }
    std::wstring file(const std::wstring& name) const { return text(folder_ / native(name)); }

private:
    static constexpr int attempts = 1000;

#if defined(_WIN32)
    static std::filesystem::path native(const std::wstring& name)
    {
        return name;
    }
    static std::wstring text(const std::filesystem::path& path)
    {
        return path.native();
    }
#else
    static std::filesystem::path native(const std::wstring& name)
    {
        return platform::to_utf8(name);
    }
    static std::wstring text(const std::filesystem::path& path)
    {
        return platform::from_utf8(path.native());
    }
#endif

    std::filesystem::path folder_;
};

using Bytes = std::vector<std::byte>;

// The code units of `text` as a file stores them.
inline Bytes bytes_of(std::wstring_view text)
{
    Bytes bytes;
    for (const wchar_t unit : text) {
        bytes.push_back(static_cast<std::byte>(unit & 0xFF));
        bytes.push_back(static_cast<std::byte>(unit >> 8 & 0xFF));
    }
    return bytes;
}

inline void write_bytes(const std::wstring& path, std::span<const std::byte> bytes)
{
    platform::File file = platform::File::create(path);
    if (!file.is_open() || !file.write(bytes))
        throw std::runtime_error("cannot write " + platform::to_utf8(path));
}

inline void write_text(const std::wstring& path, std::wstring_view text)
{
    write_bytes(path, bytes_of(text));
}

inline Bytes read_bytes(const std::wstring& path)
{
    platform::File file = platform::File::open_read(path);
    if (!file.is_open())
        throw std::runtime_error("cannot read " + platform::to_utf8(path));
    Bytes bytes;
    std::array<std::byte, 4096> block{};
    while (const std::size_t count = file.read(block))
        bytes.insert(bytes.end(), block.begin(), block.begin() + static_cast<std::ptrdiff_t>(count));
    return bytes;
}

// A file's code units; drops an odd last byte.
inline std::wstring read_text(const std::wstring& path)
{
    const Bytes bytes = read_bytes(path);
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto low = std::to_integer<unsigned>(bytes[i]);
        text += static_cast<wchar_t>(low | std::to_integer<unsigned>(bytes[i + 1]) << 8);
    }
    return text;
}

} // namespace test_support
