// Reads and writes the values of one ini file. Failures are silent: a missing value reads as its default.
#pragma once
#include <string>

namespace ovlib {

class IniData {
public:
    explicit IniData(std::wstring path);
    virtual ~IniData();

    int read_int(const std::wstring& section, const std::wstring& key, int default_value) const;
    // At most 8191 units; empty if the value does not exist.
    std::wstring read_string(const std::wstring& section, const std::wstring& key) const;
    bool write_string(const std::wstring& section, const std::wstring& key, const std::wstring& value) const;

private:
    std::wstring path_;
};

} // namespace ovlib
