#include "ovlib/system_error.hpp"
#include "ovlib/handles.hpp"
#include <windows.h>

namespace ovlib {

namespace {

constexpr DWORD flags =
    FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM;
constexpr DWORD default_language = MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT);

// With FORMAT_MESSAGE_ALLOCATE_BUFFER the parameter is the address of a pointer, although it is declared as a
// text.
template <class Char> Char* target_of(UniqueLocalMemory<Char*>& message)
{
    return reinterpret_cast<Char*>(message.put());
}

template <class Char> std::basic_string<Char> text_of(const UniqueLocalMemory<Char*>& message)
{
    return message ? std::basic_string<Char>(message.get()) : std::basic_string<Char>();
}

} // namespace

std::wstring system_error_text(std::uint32_t code)
{
    UniqueLocalMemory<wchar_t*> message;
    FormatMessageW(flags, nullptr, code, default_language, target_of<wchar_t>(message), 0, nullptr);
    return text_of<wchar_t>(message);
}

std::string narrow_system_error_text(std::uint32_t code)
{
    UniqueLocalMemory<char*> message;
    FormatMessageA(flags, nullptr, code, default_language, target_of<char>(message), 0, nullptr);
    return text_of<char>(message);
}

} // namespace ovlib
