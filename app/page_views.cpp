#include "app/page_views.hpp"
#include "book/page_order.hpp"
#include "core/command_ids.hpp"
#include "media/display_name.hpp"
#include <algorithm>

namespace app {

namespace command = core::command;

std::vector<ButtonState> page_buttons(const book::Book& book, bool is_busy)
{
    const bool free = !is_busy;
    const book::BookHeader& header = book.header;
    std::vector<ButtonState> buttons{
        { command::toggle_mark_tracking, header.track_marks != 0, free },
        { command::toggle_tab_tracking, header.track_tabs != 0, free },
        { command::toggle_sorted_order, book::is_sorted(header), free },
        { command::toggle_random_order, book::is_random(header), free },
        { command::reverse_order, book::is_reversed(header), free },
        { command::show_book_menu, false, free },
    };
    if (const book::Page* page = book.current_page()) {
        const bool has_tab = page->tab_number != 0;
        const bool may_toggle_tab = has_tab || book.tab_count < book::tab_limit;
        buttons.push_back({ command::toggle_mark, page->mark != 0, free });
        buttons.push_back({ command::toggle_tab, has_tab, free && may_toggle_tab });
    }
    return buttons;
}

std::optional<bool> folder_button_lit(const book::Book& book)
{
    const book::Page* page = book.current_page();
    return page ? std::optional{ !page->reference_folder.empty() } : std::nullopt;
}

std::wstring file_counter_text(const book::Book& book)
{
    const book::Page* page = book.current_page();
    if (!page || page->files.empty())
        return {};
    return std::to_wstring(page->current_file + 1) + L'/' + std::to_wstring(page->files.size());
}

std::size_t visible_combo_rows(std::size_t count)
{
    constexpr std::size_t most = 10;
    return std::clamp<std::size_t>(count, 1, most);
}

std::optional<FileCombo> file_combo(const book::Book& book, media::PathAnswers& paths)
{
    const book::Page* page = book.current_page();
    if (!page)
        return std::nullopt;
    FileCombo combo;
    combo.selected = page->current_file;
    combo.visible_rows = visible_combo_rows(page->files.size());
    for (const std::wstring& entry : page->files)
        combo.rows.push_back(media::display_name(entry, paths));
    return combo;
}

} // namespace app
