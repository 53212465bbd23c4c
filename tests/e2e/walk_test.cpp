// A walk through the commands without sense or order: whatever comes in whatever state, the program stays,
// answers and leaves a Book that can be read.
#include "driver_test.hpp"
#include <future>
#include <random>

namespace fs = std::filesystem;
using namespace e2e;

namespace {

class Walk : public EndToEnd {
protected:
    // Refuses what is asked, so that nothing new is chosen or deleted. A dialog may go away while it is
    // looked at.
    void dismiss_dialogs()
    {
        for (const Window window : top_windows(program().process_id())) {
            if (FileDialog::is_one(window))
                PostMessageW(window.handle(), WM_COMMAND, IDCANCEL, 0);
            else if (MessageDialog::is_one(window))
                PostMessageW(window.handle(), WM_COMMAND, GetDlgItem(window.handle(), IDNO) ? IDNO : IDOK, 0);
        }
    }
    // Sends a command and dismisses what it opens, until it is done.
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
    const int commands[] = { app::command::save_always, app::command::save_book_as,
        app::command::save_if_changed, app::command::save_after_question, app::command::restore_book,
        app::command::backup_book, app::command::next_page, app::command::previous_page,
        app::command::first_page, app::command::last_page, app::command::toggle_mark,
        app::command::toggle_mark_tracking, app::command::toggle_tab_tracking,
        app::command::toggle_random_order, app::command::reverse_order, app::command::toggle_sorted_order,
        app::command::search_selection, app::command::toggle_all_terms, app::command::toggle_ignore_case,
        app::command::toggle_file_list_search, app::command::clear_search, app::command::about,
        app::command::request_refresh, app::command::go_to_tab, app::command::renew_edited_mark,
        app::command::choose_result, app::command::delete_page, app::command::set_accepting_input,
        app::command::repaint_box, app::command::set_box_font, app::command::toggle_tab,
        app::command::remove_tab, app::command::add_page_at_end, app::command::add_page_here,
        app::command::first_file, app::command::next_file, app::command::move_file_down,
        app::command::sort_files_ascending, app::command::accelerator_save,
        app::command::first_interpolation_command, app::command::first_theme + 3,
        app::command::apply_theme_to_pages };
    std::mt19937 random(20240229);
    for (int step = 0; step < 200; ++step) {
        if (step % 7 == 0) {
            const Window edited = box(app::command::box_1 + static_cast<int>(random() % 3));
            edited.send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"字"));
        }
        const bool is_accepting = random() % 4 != 0;
        main_window().send_command(app::command::set_accepting_input, is_accepting);
        walk(commands[random() % std::size(commands)], 0);
    }
    close();
    EXPECT_GE(load_book(file).pages.size(), 9u);
    start().wait_for_window();
}
