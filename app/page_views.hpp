// The contents of the main window's small views of the current page: buttons, counter and file combo.
#pragma once
#include "book/book.hpp"
#include "media/path_answers.hpp"
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace app {

struct ButtonState {
    int command = 0; // the button's identifier
    bool checked = false;
    bool enabled = false;

    friend bool operator==(const ButtonState&, const ButtonState&) = default;
};

// The states of the buttons that depend on the page, the order and the tracking flags. Without a current page
// its buttons are left out, so they keep their state. `is_busy`: the page editor or the replace window is
// open.
std::vector<ButtonState> page_buttons(const book::Book& book, bool is_busy);

// Whether the button "資料" is lit; nullopt without a current page, so that it keeps its state.
std::optional<bool> folder_button_lit(const book::Book& book);

// The number of the selected entry and the number of entries; empty if the list is empty.
std::wstring file_counter_text(const book::Book& book);

// The number of rows that the drop-down list shows without scrolling.
std::size_t visible_combo_rows(std::size_t count);

// One row for each entry of the current page; nullopt without a page.
struct FileCombo {
    std::vector<std::wstring> rows;
    std::size_t selected = 0;
    std::size_t visible_rows = 1;
};
std::optional<FileCombo> file_combo(const book::Book& book, media::PathAnswers& paths);

} // namespace app
