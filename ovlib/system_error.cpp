#include "ovlib/system_error.hpp"

#include <windows.h>

namespace ovlib {

namespace {

constexpr DWORD flags =
    FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM;
constexpr DWORD default_language = MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT);

// The buffer that the system allocated for a message.
template <class Char> class LocalText {
public:
    LocalText() = default;
    LocalText(const LocalText&) = delete;
    LocalText& operator=(const LocalText&) = delete;
    ~LocalText() { LocalFree(text_); }

    // FORMAT_MESSAGE_ALLOCATE_BUFFER takes the address of a pointer where it declares a text.
    Char* target() { return reinterpret_cast<Char*>(&text_); }
    std::basic_string<Char> str() const
    {
        return text_ != nullptr ? std::basic_string<Char>(text_) : std::basic_string<Char>();
    }

private:
    Char* text_ = nullptr;
};

} // namespace

std::wstring system_error_text(std::uint32_t code)
{
    LocalText<wchar_t> text;
    FormatMessageW(flags, nullptr, code, default_language, text.target(), 0, nullptr);
    return text.str();
}

std::string narrow_system_error_text(std::uint32_t code)
{
    LocalText<char> text;
    FormatMessageA(flags, nullptr, code, default_language, text.target(), 0, nullptr);
    return text.str();
}

} // namespace ovlib
