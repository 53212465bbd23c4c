// What the main window's small views show of the current page: buttons, counter and file combo.
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

// The buttons that follow the page, the order and the tracks. Those of the page are left out without a
// current page: they keep what they show. `is_busy`: the page editor or the replace window is open.
std::vector<ButtonState> page_buttons(const book::Book& book, bool is_busy);

// Whether the button "資料" is lit; none without a current page, when it keeps what it shows.
std::optional<bool> folder_button_lit(const book::Book& book);

// The place of the selected entry and the number of entries; empty when there is nothing to count.
std::wstring file_counter_text(const book::Book& book);

// Rows that the file combo shows without scrolling.
std::size_t visible_combo_rows(std::size_t count);

// The file combo's rows, one an entry of the current page; none without one.
struct FileCombo {
    std::vector<std::wstring> rows;
    std::size_t selected = 0;
    std::size_t visible_rows = 1;
};
std::optional<FileCombo> file_combo(const book::Book& book, media::PathAnswers& paths);

} // namespace app
