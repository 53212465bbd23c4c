#include "ovlib/ini_data.hpp"
#include <windows.h>
#include <utility>

namespace ovlib {

namespace {

constexpr DWORD value_capacity = 8192;

} // namespace

IniData::IniData(std::wstring path)
    : path_(std::move(path))
{
}

IniData::~IniData() = default;

int IniData::read_int(const std::wstring& section, const std::wstring& key, int default_value) const
{
    return static_cast<int>(
        GetPrivateProfileIntW(section.c_str(), key.c_str(), default_value, path_.c_str()));
}

std::wstring IniData::read_string(const std::wstring& section, const std::wstring& key) const
{
    std::wstring buffer(value_capacity, L'\0');
    GetPrivateProfileStringW(
        section.c_str(), key.c_str(), nullptr, buffer.data(), value_capacity, path_.c_str());
    buffer.resize(buffer.find(L'\0')); // the system terminates the text within the buffer
    return buffer;
}

bool IniData::write_string(
    const std::wstring& section, const std::wstring& key, const std::wstring& value) const
{
    return WritePrivateProfileStringW(section.c_str(), key.c_str(), value.c_str(), path_.c_str()) != FALSE;
}

} // namespace ovlib
