// Reads any text as the values of the settings file, a value a line. What is read comes back after it was
// written.
#include "core/settings.hpp"
#include "platform/text.hpp"
#include "tests/fuzz/stable.hpp"
#include <cstdint>
#include <map>
#include <sstream>

namespace {

class Values : public core::SettingsStore {
public:
    std::int32_t read_number(const wchar_t* key, std::int32_t absent) override
    {
        const auto found = values.find(key);
        if (found == values.end())
            return absent;
        // As the system reads one: digits up to the first other character, with the overflow cut off.
        const std::wstring& text = found->second;
        const bool is_negative = text.starts_with(L"-");
        std::uint32_t number = 0;
        for (std::size_t i = is_negative; i < text.size() && text[i] >= L'0' && text[i] <= L'9'; ++i)
            number = number * 10 + static_cast<std::uint32_t>(text[i] - L'0');
        return static_cast<std::int32_t>(is_negative ? 0 - number : number);
    }
    std::wstring read_text(const wchar_t* key) override { return values[key]; }
    void write_text(const wchar_t* key, const std::wstring& text) override { values[key] = text; }

    std::map<std::wstring, std::wstring> values;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::wstring text =
        platform::from_utf8({ reinterpret_cast<const char*>(data), size }); // NOLINT: bytes are text here
    Values values;
    std::wistringstream lines{ text };
    for (std::wstring line; std::getline(lines, line);) {
        const std::size_t sign = line.find(L'=');
        if (sign != std::wstring::npos)
            values.values[line.substr(0, sign)] = line.substr(sign + 1);
    }
    const core::Settings read = core::read_settings(values);
    fuzz::require(read.view_mode != 0);
    core::interpolation_mode(read.interpolation_command);
    core::write_settings(read, values);
    fuzz::require(core::read_settings(values) == read);
    return 0;
}
