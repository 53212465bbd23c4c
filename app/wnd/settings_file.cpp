#include "app/wnd/settings_file.hpp"
#include "app/folders.hpp"
#include "app/settings.hpp"
#include "ovlib/ini_data.hpp"

namespace app {

namespace {

constexpr const wchar_t* section = L"COMMON";

class IniFile : public SettingsStore {
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
    ovlib::IniData ini_{ settings_file(folders()) };
};

} // namespace

void load_settings()
{
    IniFile file;
    settings() = read_settings(file);
}

void store_settings()
{
    IniFile file;
    write_settings(settings(), file);
}

} // namespace app
