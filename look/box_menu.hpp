// The context menu of a text box.
#pragma once
#include "controls/menu_rows.hpp"

namespace look {

struct BoxMenuState {
    bool has_selection = false;
    bool has_text = false;
    bool can_undo = false;
    bool can_paste = false;
    bool is_palette_visible = false; // the window for choosing a box's colours and font
};

// The rows with every item enabled.
ovlib::MenuRows box_menu();
// False if the item must be greyed.
bool is_box_item_enabled(int id, const BoxMenuState& state);

} // namespace look
