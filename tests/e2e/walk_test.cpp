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
    // Refuses what is asked, so that nothing new is chosen or deleted.
    void dismiss_dialogs()
    {
        for (const Window window : top_windows(program().process_id())) {
            if (FileDialog::is_one(window))
                window.post_command(IDCANCEL);
            else if (MessageDialog::is_one(window))
                window.post_command(GetDlgItem(window.handle(), IDNO) ? IDNO : IDOK);
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
    const int commands[] = { app::save_always, app::save_book_as, app::save_if_changed,
        app::save_after_question, app::restore_book, app::backup_book, app::next_page, app::previous_page,
        app::first_page, app::last_page, app::toggle_mark, app::toggle_mark_tracking,
        app::toggle_tab_tracking, app::toggle_random_order, app::reverse_order, app::toggle_sorted_order,
        app::search_selection, app::toggle_all_terms, app::toggle_ignore_case, app::toggle_file_list_search,
        app::clear_search, app::about, app::request_refresh, app::go_to_tab, app::renew_edited_mark,
        app::choose_result, app::delete_page, app::set_accepting_input, app::repaint_box, app::set_box_font,
        app::toggle_tab, app::remove_tab, app::add_page_at_end, app::add_page_here, app::first_file,
        app::next_file, app::move_file_down, app::sort_files_ascending, app::accelerator_save,
        app::first_interpolation_command, app::first_theme + 3, app::apply_theme_to_pages };
    std::mt19937 random(20240229);
    for (int step = 0; step < 300; ++step) {
        if (step % 7 == 0) {
            const Window edited = box(app::box_1 + static_cast<int>(random() % 3));
            edited.send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"字"));
        }
        const bool is_accepting = random() % 4 != 0;
        main_window().send_command(app::set_accepting_input, is_accepting);
        walk(commands[random() % std::size(commands)], 0);
    }
    close();
    EXPECT_GE(load_book(file).pages.size(), 9u);
    start().wait_for_window();
}
