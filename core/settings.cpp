#include "core/settings.hpp"
#include <algorithm>
#include <array>
#include <locale>
#include <sstream>

namespace core {

namespace {

struct NumberKey {
    const wchar_t* key;
    std::int32_t Settings::*value;
};
struct FlagKey {
    const wchar_t* key;
    bool Settings::*value;
};

// In the order in which the keys are read and written.
constexpr std::array number_keys{
    NumberKey{ L"INTERPOLATION", &Settings::interpolation_command },
    NumberKey{ L"BROWSERZOOMFAC", &Settings::browser_zoom_percent },
    NumberKey{ L"ICHAT", &Settings::chat_index },
};
constexpr std::array flag_keys{
    FlagKey{ L"CLEARCACHE", &Settings::clear_cache_at_exit },
    FlagKey{ L"AUTOBACKUP", &Settings::auto_backup },
    FlagKey{ L"AUTOIMM", &Settings::auto_imm },
};
constexpr const wchar_t* view_data_key = L"VIEWDATA";

} // namespace

Settings read_settings(SettingsStore& store)
{
    Settings settings;
    for (const auto& [key, value] : number_keys)
        settings.*value = store.read_number(key, settings.*value);
    for (const auto& [key, value] : flag_keys)
        settings.*value = store.read_number(key, 0) != 0;
    std::wstring view_data = store.read_text(view_data_key);
    view_data.resize(std::min(view_data.size(), view_data.find(L'\0')));
    parse_view_data(view_data, settings);
    return settings;
}

void write_settings(const Settings& settings, SettingsStore& store)
{
    store.write_text(view_data_key, view_data_text(settings));
    for (const auto& [key, value] : number_keys)
        store.write_text(key, std::to_wstring(settings.*value));
    for (const auto& [key, value] : flag_keys)
        store.write_text(key, settings.*value ? L"1" : L"0");
}

void parse_view_data(const std::wstring& text, Settings& settings)
{
    std::wistringstream stream{ text };
    stream.imbue(std::locale::classic());
    platform::Rect rect;
    if (stream >> rect.left >> rect.top >> rect.right >> rect.bottom)
        settings.view_rect = rect;
    else
        settings.view_rect = {};
    std::int32_t mode = 0;
    settings.view_mode = stream >> mode && mode != 0 ? mode : default_view_mode;
}

std::wstring view_data_text(const Settings& settings)
{
    const auto& rect = settings.view_rect;
    std::wstring text;
    for (const int edge : { rect.left, rect.top, rect.right, rect.bottom })
        text += std::to_wstring(edge) + L' ';
    return text + std::to_wstring(settings.view_mode);
}

std::int32_t interpolation_mode(std::int32_t command)
{
    // GDI+ InterpolationMode: default, nearest neighbour, bilinear, high quality bilinear, bicubic, high
    // quality bicubic.
    constexpr std::array<std::int32_t, 6> modes{ 0, 5, 3, 6, 4, 7 };
    const auto place = static_cast<std::int64_t>(command) - first_interpolation;
    return place >= 0 && place < static_cast<std::int64_t>(modes.size())
        ? modes[static_cast<std::size_t>(place)]
        : 0;
}

Settings& settings()
{
    static Settings of_process;
    return of_process;
}

} // namespace core
