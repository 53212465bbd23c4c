// Sends all commands in a meaningless order: whatever the state, the program must keep running and responding
// and leave a readable Book.
#include "driver_test.hpp"
#include <future>
#include <random>

namespace fs = std::filesystem;
using namespace e2e;

namespace {

class Walk : public EndToEnd {
protected:
    // Declines every question, so that nothing is chosen or deleted. A dialog may close while it is examined.
    void dismiss_dialogs()
    {
        for (const Window window : top_windows(program().process_id())) {
            if (FileDialog::is_one(window))
                PostMessageW(window.handle(), WM_COMMAND, IDCANCEL, 0);
            else if (MessageDialog::is_one(window))
                PostMessageW(window.handle(), WM_COMMAND, GetDlgItem(window.handle(), IDNO) ? IDNO : IDOK, 0);
        }
    }
    // Sends a command and dismisses its dialogs until it is done.
    void walk(int id, LPARAM lparam)
    {
        const Window window = main_window();
        auto command = std::async(std::launch::async, [=] { window.send_command(id, lparam); });
        require("command " + std::to_string(id) + " ends", [&] {
            if (command.wait_for(milliseconds{ 2 }) == std::future_status::ready)
                return true;
            dismiss_dialogs();
            return false;
        });
        command.get();
    }
};

} // namespace

TEST_F(Walk, CommandsWithoutAnObjectAreHarmless)
{
    const fs::path file = open_numbered_book(9);
    const int commands[] = { core::command::save_always, core::command::save_book_as,
        core::command::save_if_changed, core::command::save_after_question, core::command::restore_book,
        core::command::backup_book, core::command::next_page, core::command::previous_page,
        core::command::first_page, core::command::last_page, core::command::toggle_mark,
        core::command::toggle_mark_tracking, core::command::toggle_tab_tracking,
        core::command::toggle_random_order, core::command::reverse_order, core::command::toggle_sorted_order,
        core::command::search_selection, core::command::toggle_all_terms, core::command::toggle_ignore_case,
        core::command::toggle_file_list_search, core::command::clear_search, core::command::about,
        core::command::request_refresh, core::command::go_to_tab, core::command::renew_edited_mark,
        core::command::choose_result, core::command::delete_page, core::command::set_accepting_input,
        core::command::repaint_box, core::command::set_box_font, core::command::toggle_tab,
        core::command::remove_tab, core::command::add_page_at_end, core::command::add_page_here,
        core::command::first_file, core::command::next_file, core::command::move_file_down,
        core::command::sort_files_ascending, core::command::accelerator_save,
        core::command::first_interpolation_command, core::command::first_theme + 3,
        core::command::apply_theme_to_pages };
    std::mt19937 random(20240229);
    for (int step = 0; step < 200; ++step) {
        if (step % 7 == 0) {
            const Window edited = box(core::command::box_1 + static_cast<int>(random() % 3));
            edited.send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"字"));
        }
        const bool is_accepting = random() % 4 != 0;
        main_window().send_command(core::command::set_accepting_input, is_accepting);
        walk(commands[random() % std::size(commands)], 0);
    }
    close();
    EXPECT_GE(load_book(file).pages.size(), 9u);
    start().wait_for_window();
}
