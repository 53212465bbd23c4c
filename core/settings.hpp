// The settings of the installation. A Book's own settings are in its header.
#pragma once
#include "core/command_ids.hpp"
#include "platform/geometry.hpp"
#include <cstdint>
#include <string>

namespace core {

inline constexpr std::int32_t first_interpolation = command::first_interpolation_command;
inline constexpr std::int32_t default_interpolation = command::last_interpolation_command;
inline constexpr std::int32_t view_whole = 2100;
inline constexpr std::int32_t default_view_mode = 2101;

struct Settings {
    std::int32_t interpolation_command = default_interpolation; // not checked: any number a file holds
    std::int32_t browser_zoom_percent = 100;
    std::int32_t chat_index = 0;
    bool clear_cache_at_exit = false;
    bool auto_backup = false;
    bool auto_imm = false;
    platform::Rect view_rect; // of the viewer, on the screen; meaningful only when not empty
    std::int32_t view_mode = default_view_mode;

    friend bool operator==(const Settings&, const Settings&) = default;
};

// The only section of the ini file.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    virtual std::int32_t read_number(const wchar_t* key, std::int32_t absent) = 0;
    virtual std::wstring read_text(const wchar_t* key) = 0; // empty if absent
    virtual void write_text(const wchar_t* key, const std::wstring& text) = 0; // does not report failure
};

Settings read_settings(SettingsStore& store);
void write_settings(const Settings& settings, SettingsStore& store);

// Parses the value of "VIEWDATA": left, top, right, bottom and mode in decimal, separated by spaces. A value
// that cannot be read gets its default; the rectangle counts as one value.
void parse_view_data(const std::wstring& text, Settings& settings);
std::wstring view_data_text(const Settings& settings);

// The GDI+ interpolation mode that the command selects; 0, the default mode, for any other number.
std::int32_t interpolation_mode(std::int32_t command);

// The settings of this process, read once at creation and written once at close. User-interface thread only.
Settings& settings();

} // namespace core
