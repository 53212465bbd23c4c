// What the viewer decides without a window: its modes, zoom steps, title, menu and keys, and where it opens.
#pragma once
#include "controls/menu_rows.hpp"
#include "media/image_layout.hpp"
#include "platform/geometry.hpp"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace media {

// The viewer's own commands. The two modes are commands too, with their own numbers.
namespace viewer_command {

enum Id : int { zoom_in = 1029, zoom_out = 1030, zoom_to_actual = 1031, close_viewer = 2106 };

} // namespace viewer_command

// The settings file may hold any number as the mode. Only actual size itself counts as that.
std::int32_t effective_view_mode(std::int32_t stored);

inline constexpr std::int32_t smallest_zoom = 10; // percent
inline constexpr std::int32_t actual_zoom = 100;
inline constexpr std::int32_t largest_zoom = 2000;

enum class ZoomStep { in, out, actual };
// nullopt if the control is no zoom button.
std::optional<ZoomStep> zoom_step_of(int control_id);
// The zoom after a step. A step in and a step out are not always inverse.
std::int32_t next_zoom(std::int32_t zoom, ZoomStep step);
// The zoom that shows a picture as large as this scale does. Without a picture the scale is 0, and the zoom
// is 100.
std::int32_t zoom_of_scale(double scale);

// Which of the zoom buttons are enabled.
struct ZoomChoices {
    bool in = true;
    bool out = true;
    bool actual = true;

    friend bool operator==(const ZoomChoices&, const ZoomChoices&) = default;
};
ZoomChoices zoom_choices(std::int32_t zoom);

// The zoom buttons are shown while the mouse is at the top of the client area.
bool shows_zoom_buttons(platform::Point mouse, platform::Size client);

// `name` is empty if no file is loaded. `image` is the size of the picture itself.
std::wstring viewer_title(const std::wstring& name, platform::Size image, double scale);

struct ViewerMenuState {
    std::int32_t view_mode = mode_fit;
    std::size_t entry_count = 0;
    std::uint64_t selected = 0; // may be past the end
    bool is_entry_file = false; // the selected entry is an existing regular file
};
ovlib::MenuRows viewer_menu(const ViewerMenuState& state);

enum class ViewerKey {
    none,
    close,
    zoom_in,
    zoom_out,
    zoom_to_actual,
    previous_file,
    next_file,
    left,
    up,
    right,
    down,
};
// `key` is a virtual-key code.
ViewerKey viewer_key(std::uint64_t key);

inline constexpr std::int64_t hit_client = 1; // HTCLIENT
inline constexpr std::int64_t hit_caption = 2; // HTCAPTION
// The answer to a hit test: in fit mode the picture moves a window that can be moved.
std::int64_t viewer_hit(std::int64_t system_answer, std::int32_t view_mode, bool can_be_moved);

// Whether a part of the window is on one of the screens.
bool is_on_screen(const platform::Rect& window, std::span<const platform::Rect> screens);
// Where the window opens first: at its stored rectangle, no larger than all screens together. nullopt if that
// is no rectangle, or is on no screen; the system then chooses the place.
std::optional<platform::Rect> first_viewer_place(
    const platform::Rect& stored, std::span<const platform::Rect> screens);

} // namespace media
