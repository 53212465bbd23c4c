// The context menu of a text box.
#pragma once
#include "controls/menu_rows.hpp"

namespace look {

struct BoxMenuState {
    bool has_selection = false;
    bool has_text = false;
    bool can_undo = false;
    bool can_paste = false;
    bool is_palette_visible = false; // the window that chooses a box's colours and font
};

// Every item enabled.
ovlib::MenuRows box_menu();
// False for an item that is greyed.
bool is_box_item_enabled(int id, const BoxMenuState& state);

} // namespace look
