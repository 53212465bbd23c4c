#include "app/wnd/settings_file.hpp"
#include "core/folders.hpp"
#include "core/settings.hpp"
#include "ovlib/ini_data.hpp"

namespace app {

namespace {

constexpr const wchar_t* section = L"COMMON";

class IniFile : public core::SettingsStore {
public:
    std::int32_t read_number(const wchar_t* key, std::int32_t absent) override
    {
        return ini_.read_int(section, key, absent);
    }
    std::wstring read_text(const wchar_t* key) override { return ini_.read_string(section, key); }
    void write_text(const wchar_t* key, const std::wstring& text) override
    {
        ini_.write_string(section, key, text);
    }

private:
    ovlib::IniData ini_{ core::settings_file(core::folders()) };
};

} // namespace

void load_settings()
{
    IniFile file;
    core::settings() = core::read_settings(file);
}

void store_settings()
{
    IniFile file;
    core::write_settings(core::settings(), file);
}

} // namespace app
