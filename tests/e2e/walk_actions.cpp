// The actions of a walk, their frequencies and conditions.
#include "app/main_layout.hpp"
#include "book/query.hpp"
#include "core/command_ids.hpp"
#include "core/titles.hpp"
#include "look/page_slider.hpp"
#include "look/tab_strip.hpp"
#include "walk_walker.hpp"
#include <array>
#include <numeric>

namespace walk {

namespace {

namespace command = core::command;
using app::MainLayout;
using platform::Rect;

bool always(const Walker&)
{
    return true;
}
book::Page& page_of(const Walker& walker)
{
    return const_cast<Walker&>(walker).model.current();
}
std::wstring entry_of(const Walker& walker)
{
    return const_cast<Walker&>(walker).model.entry();
}
bool has_room(const Walker& walker)
{
    return walker.model.page_count() < 14; // few enough for equal pages to keep their stored order
}
bool has_files(const Walker& walker)
{
    return !page_of(walker).files.empty();
}
// Books are the only existing files in a list. For them there may be a link already, so the result of a
// search would depend on the progress of the worker that makes links.
bool has_no_book_as_file(const Walker& walker)
{
    return !entry_of(walker).ends_with(L".bok");
}
bool has_missing_file(const Walker& walker)
{
    const std::wstring entry = entry_of(walker);
    return !entry.empty() && !entry.starts_with(L"http") && has_no_book_as_file(walker);
}
bool has_entry_to_show(const Walker& walker)
{
    return !entry_of(walker).empty() && has_no_book_as_file(walker);
}
bool has_short_list(const Walker& walker)
{
    return page_of(walker).files.size() < 8;
}
bool has_missing_folder(const Walker& walker)
{
    return page_of(walker).reference_folder == missing_folder;
}
// Sorted by time, the position of an edited page is unknown until its new time is read from the file.
bool may_swap(const Walker& walker)
{
    return !walker.model.is_sorted_by_time() || !walker.model.is_edited();
}
bool accepts_input(const Walker& walker)
{
    return walker.model.accepts_input;
}
bool has_unopened_file(const Walker& walker)
{
    return walker.model.files.size() > 1;
}

MainLayout layout_of(const Walker& walker)
{
    RECT client{};
    GetClientRect(walker.main().handle(), &client);
    return app::main_layout({ client.right, client.bottom });
}

// Does the same to the model and, by its command, to the program.
template <auto in_model, int id, auto... arguments> void give(Walker& walker)
{
    (walker.model.*in_model)(arguments...);
    walker.give(id);
}

// The same for a command that no control sends.
template <auto in_model, int id, auto... arguments> void send(Walker& walker)
{
    (walker.model.*in_model)(arguments...);
    walker.send(id);
}

void turn_wheel(Walker& walker)
{
    const int direction = walker.chance(50) ? 1 : -1;
    walker.model.turn(direction);
    walker.send_wheel(direction, false);
}

void swap(Walker& walker)
{
    const int direction = walker.chance(50) ? 1 : -1;
    walker.model.swap(direction);
    walker.send_wheel(direction, true);
}

void slide(Walker& walker)
{
    const Rect place = layout_of(walker).slider;
    ovlib::SliderModel slider;
    slider.track = look::page_slider_track(ovlib::slider_track({ place.width(), place.height() }));
    look::set_page_range(slider, walker.model.page_count(), walker.below(walker.model.page_count()));
    const int x = ovlib::value_to_x(slider);
    const std::int32_t value = ovlib::x_to_value(slider, x);
    walker.note("to " + std::to_string(value));
    walker.model.slide_to(static_cast<std::uint64_t>(value));
    walker.hold_at({ place.left + x, (place.top + place.bottom) / 2 });
}

void click_tab(Walker& walker)
{
    const Rect strip = layout_of(walker).tabs;
    const auto count = static_cast<std::size_t>(walker.model.tab_count());
    const std::size_t tab = walker.below(count);
    const auto rects = look::tab_rects(count, { strip.width(), strip.height() });
    walker.note("tab " + std::to_string(tab + 1));
    if (tab + 1 != walker.model.current_tab())
        walker.model.go_to_tab(tab + 1);
    walker.click_at({ strip.left + rects[tab].left + 3, (strip.top + strip.bottom) / 2 });
}

bool has_tabs(const Walker& walker)
{
    return walker.model.tab_count() > 0;
}

void go_to_tab(Walker& walker)
{
    const std::size_t number = walker.below(static_cast<std::size_t>(walker.model.tab_count()) + 3);
    walker.note("tab " + std::to_string(number));
    walker.model.go_to_tab(number);
    walker.send(command::go_to_tab, static_cast<LPARAM>(number));
}

void write_text(Walker& walker, bool with_keys)
{
    const std::size_t box = walker.below(3);
    const std::wstring text =
        with_keys ? L"字" + std::to_wstring(walker.below(100)) : walker.some_text(box != 1);
    const std::wstring before = walker.model.boxes[box].text;
    const std::size_t start = walker.place_in(before, 0);
    const std::size_t end = walker.chance(70) ? start : walker.place_in(before, start);
    walker.model.type(box, start, end, text);
    walker.type(box, start, end, text, with_keys);
}

void paste_text(Walker& walker)
{
    write_text(walker, false);
}

void type_text(Walker& walker)
{
    write_text(walker, true);
}

void save_by_key(Walker& walker)
{
    walker.model.save_if_changed();
    walker.press_save_key(walker.below(3));
}

void shuffle(Walker& walker)
{
    walker.turn_random();
}

void add_page(Walker& walker)
{
    const bool at_end = walker.chance(50);
    walker.model.add_page(at_end);
    walker.send(at_end ? command::add_page_at_end : command::add_page_here);
}

void choose_folder(Walker& walker)
{
    walker.model.choose_folder(walker.chance(30) ? std::wstring{} : walker.model.data_root);
    walker.send(command::choose_reference_folder);
}

void add_file(Walker& walker)
{
    walker.model.add_file(walker.chance(30) ? std::wstring{} : walker.some_path(false));
    walker.send(command::add_files);
}

struct FileStep {
    int command;
    int by;
};

void select_file(Walker& walker)
{
    constexpr std::array steps{ FileStep{ command::first_file, -99 }, FileStep{ command::last_file, 99 },
        FileStep{ command::previous_file, -1 }, FileStep{ command::next_file, 1 } };
    const FileStep step = steps[walker.below(steps.size())];
    walker.model.step_file(step.by);
    const bool has_button = step.command == command::first_file || step.command == command::last_file;
    if (has_button)
        walker.give(step.command);
    else
        walker.send(step.command);
}

void choose_file(Walker& walker)
{
    const std::size_t row = walker.below(walker.model.current().files.size());
    walker.model.select_file(row);
    walker.choose_file(row);
}

void move_file(Walker& walker)
{
    constexpr std::array steps{ FileStep{ command::move_file_to_top, -99 },
        FileStep{ command::move_file_to_end, 99 }, FileStep{ command::move_file_up, -1 },
        FileStep{ command::move_file_down, 1 } };
    const FileStep step = steps[walker.below(steps.size())];
    walker.model.move_file(step.by);
    walker.send(step.command);
}

void sort_files(Walker& walker)
{
    const bool descending = walker.chance(50);
    walker.model.sort_files(descending);
    walker.send(descending ? command::sort_files_descending : command::sort_files_ascending);
}

void search(Walker& walker)
{
    walker.set_search(walker.chance(20) ? L"" : walker.some_text(false));
}

// Searches the selection of the focused box, up to its first line end: the search box has one line.
void search_selection(Walker& walker)
{
    const std::size_t box = walker.below(3);
    const std::wstring& text = walker.model.boxes[box].text;
    const std::size_t start = walker.place_in(text, 0);
    const std::size_t end = walker.place_in(text, start);
    const std::wstring selected = text.substr(start, end - start);
    if (selected.find(L'\n') != selected.npos)
        return;
    if (!selected.empty())
        walker.model.search_for(selected);
    walker.select(box, start, end);
    walker.send(command::search_selection);
}

void clear_search(Walker& walker)
{
    walker.model.search_for(L"");
    walker.give(command::clear_search);
}

void toggle_check(Walker& walker)
{
    switch (walker.below(3)) {
    case 0:
        walker.model.all_terms = !walker.model.all_terms;
        walker.model.choose_first_hit();
        return walker.give(command::toggle_all_terms);
    case 1:
        walker.model.ignore_case = !walker.model.ignore_case;
        walker.model.choose_first_hit();
        return walker.give(command::toggle_ignore_case);
    default:
        walker.model.in_file_list = !walker.model.in_file_list;
        walker.model.choose_first_hit();
        return walker.give(command::toggle_file_list_search);
    }
}

void refresh(Walker& walker)
{
    const auto mask = static_cast<std::uint32_t>(walker.below(0x10000));
    walker.model.refresh(mask);
    walker.send(command::request_refresh, static_cast<LPARAM>(mask));
}

void apply_theme(Walker& walker)
{
    const auto theme = static_cast<std::int32_t>(command::first_theme + static_cast<int>(walker.below(7)));
    walker.model.apply_theme(theme);
    walker.send(theme);
}

// The time of an edited page is unknown until it is read from the file, so such a page is not sorted by it.
void choose_settings(Walker& walker)
{
    const int keys = walker.model.is_edited() ? 4 : 6;
    const int row = static_cast<int>(walker.below(static_cast<std::size_t>(keys)));
    const bool toggles_gifs = walker.chance(50);
    walker.note("key " + std::to_string(3000 + row));
    walker.model.choose_settings(3000 + row, (walker.model.book.header.gif_autoplay != 0) != toggles_gifs);
    walker.choose_settings(row, toggles_gifs);
}

std::wstring chosen_path(Walker& walker, bool may_be_new)
{
    return walker.chance(25) ? std::wstring{} : walker.some_path(may_be_new);
}

void new_book(Walker& walker)
{
    walker.model.new_book(chosen_path(walker, true));
    walker.send(command::new_book);
}

void open_book(Walker& walker)
{
    walker.model.open_book(chosen_path(walker, false));
    walker.send(command::open_book);
}

void save_as(Walker& walker)
{
    walker.model.save_as(chosen_path(walker, true));
    walker.send(command::save_book_as);
}

void open_history(Walker& walker)
{
    const std::size_t place = walker.below(walker.model.history.size() + 1);
    walker.model.open_history(place);
    walker.send(command::first_history_entry + static_cast<int>(place));
}

void about(Walker& walker)
{
    walker.model.about(core::about_text());
    walker.send(command::about);
}

void hold_input(Walker& walker)
{
    walker.model.accepts_input = !walker.model.accepts_input;
    walker.send(command::set_accepting_input, walker.model.accepts_input);
}

void replace_everywhere(Walker& walker)
{
    walker.replace_everywhere();
}

void edit_pages(Walker& walker)
{
    walker.edit_pages();
}

void edit_list(Walker& walker)
{
    walker.edit_list();
}

void choose_results(Walker& walker)
{
    walker.choose_results();
}

void choose_color(Walker& walker)
{
    walker.choose_color();
}

void restart(Walker& walker)
{
    walker.restart();
}

void remove_unopened_file(Walker& walker)
{
    walker.remove_unopened_file();
}

void scroll(Walker& walker)
{
    walker.scroll(walker.chance(50) ? 0 : 2, static_cast<int>(walker.below(40)) - 20);
}

void choose_in_book_menu(Walker& walker)
{
    switch (walker.below(3)) {
    case 0:
        walker.model.new_book(chosen_path(walker, true));
        return walker.choose_in_book_menu(command::new_book);
    case 1:
        walker.model.save_as(chosen_path(walker, true));
        return walker.choose_in_book_menu(command::save_book_as);
    default:
        walker.model.backup();
        return walker.choose_in_book_menu(command::backup_book);
    }
}

void look_at_menu(Walker& walker)
{
    constexpr std::array menus{ command::show_book_menu, command::show_folder_menu, command::show_file_menu,
        command::show_web_menu };
    walker.look_at_menu(menus[walker.below(menus.size())]);
}

void show_history(Walker& walker)
{
    walker.show_history();
}

void use_viewer(Walker& walker)
{
    walker.use_viewer();
}

void drag_boundary(Walker& walker)
{
    const MainLayout layout = layout_of(walker);
    const app::PageBoxes boxes = app::with_divider(layout.boxes, walker.model.book.header.divider);
    const Rect gap = app::gap_rect(boxes, app::BoxGap::upper);
    const int x = gap.left + 20;
    const int y = 110 + static_cast<int>(walker.below(450)); // keeps every box high enough for a click
    walker.note("to " + std::to_string(y));
    walker.model.book.header.divider = app::clamp_divider(boxes, y);
    walker.drag({ x, (gap.top + gap.bottom) / 2 }, { x, y });
}

// The messages of the drop target, without a drop.
void send_drop_notification(Walker& walker)
{
    const auto pointer = static_cast<LPARAM>(walker.below(0x10000) * walker.below(0x10000));
    const auto code = static_cast<WORD>(walker.below(10));
    walker.note(std::to_string(code));
    walker.main().send(0x8001, MAKEWPARAM(walker.below(0x10000), code), pointer);
    walker.main().post(0x8002, code, pointer);
}

// Unknown numbers, and commands without an implementation yet.
void send_idle(Walker& walker)
{
    constexpr std::array commands{ 1, 999, 1017, 1032, 1037, 1043, 1045, 1046, 1047, 1048, 1051, 1052, 1053,
        1058, 1065, 2503, 2505, 2506, 2508, 2511, 2524, 2529, 2544, 2545, 3000, 5000, 5003, 5005, 5006, 5500,
        6007, 6500, 9999, 15000, 33000, 33999, 34000, 34049, 34050, 65535 };
    walker.send(commands[walker.below(commands.size())]);
}

void send_code(Walker& walker)
{
    constexpr std::array commands{ 1002, 1004, 1010, 1014, 1018, 1064, 2502, 2507, 2526, 2528, 2536, 6002,
        10000 };
    walker.send(commands[walker.below(commands.size())], 0, 1 + static_cast<int>(walker.below(5)));
}

constexpr std::array actions{
    Action{ "paste text", 120, always, paste_text },
    Action{ "type text", 6, always, type_text },
    Action{ "scroll", 20, always, scroll },
    Action{ "next page", 60, always, give<&Model::turn, command::next_page, 1> },
    Action{ "previous page", 60, always, give<&Model::turn, command::previous_page, -1> },
    Action{ "first page", 15, always, give<&Model::go_to_end, command::first_page, false> },
    Action{ "last page", 15, always, give<&Model::go_to_end, command::last_page, true> },
    Action{ "wheel", 30, always, turn_wheel },
    Action{ "swap", 25, may_swap, swap },
    Action{ "slider", 8, always, slide },
    Action{ "tab click", 6, has_tabs, click_tab },
    Action{ "go to tab", 15, always, go_to_tab },
    Action{ "save", 20, always, send<&Model::save_always, command::save_always> },
    Action{ "save if changed", 25, always, give<&Model::save_if_changed, command::save_if_changed> },
    Action{ "save by key", 5, always, save_by_key },
    Action{
        "save after question", 15, always, send<&Model::save_after_question, command::save_after_question> },
    Action{ "sort", 15, always, give<&Model::change_order, command::toggle_sorted_order, Order::sorted> },
    Action{ "shuffle", 15, always, shuffle },
    Action{ "reverse", 15, always, give<&Model::change_order, command::reverse_order, Order::reversed> },
    Action{ "mark", 30, always, give<&Model::toggle_mark, command::toggle_mark> },
    Action{ "tab", 30, always, give<&Model::toggle_tab, command::toggle_tab> },
    Action{
        "track marks", 10, always, give<&Model::toggle_track, command::toggle_mark_tracking, Track::marks> },
    Action{ "track tabs", 10, always, give<&Model::toggle_track, command::toggle_tab_tracking, Track::tabs> },
    Action{ "delete page", 25, always, send<&Model::delete_page, command::delete_page> },
    Action{ "add page", 30, has_room, add_page },
    Action{ "clear folder", 10, always, send<&Model::clear_folder, command::clear_reference_folder> },
    Action{ "choose folder", 4, always, choose_folder },
    Action{ "open folder", 5, has_missing_folder,
        send<&Model::open_missing_folder, command::open_reference_folder> },
    Action{ "add a file", 6, has_short_list, add_file },
    Action{ "leave a duplicate", 3, has_files, send<&Model::leave_duplicate, command::duplicate_file> },
    Action{ "search a file", 10, has_no_book_as_file,
        send<&Model::search_missing_file, command::search_moved_file> },
    Action{ "open a file", 5, has_missing_file, send<&Model::open_missing_file, command::open_file> },
    Action{
        "show a file", 5, has_entry_to_show, send<&Model::show_missing_file, command::show_file_in_folder> },
    Action{ "select file", 25, always, select_file },
    Action{ "choose file", 15, has_files, choose_file },
    Action{ "move file", 25, always, move_file },
    Action{ "remove file", 8, has_files, send<&Model::remove_file, command::remove_file> },
    Action{ "remove all files", 3, always, send<&Model::remove_all_files, command::remove_all_files> },
    Action{ "sort files", 10, always, sort_files },
    Action{ "search", 25, always, search },
    Action{ "search selection", 4, always, search_selection },
    Action{ "clear search", 20, always, clear_search },
    Action{ "search check", 20, always, toggle_check },
    Action{ "refresh", 20, always, refresh },
    Action{ "theme", 10, always, apply_theme },
    Action{ "settings", 8, accepts_input, choose_settings },
    Action{ "colour all pages", 5, always, send<&Model::color_all_pages, command::apply_theme_to_pages> },
    Action{ "new Book", 3, always, new_book },
    Action{ "open Book", 5, always, open_book },
    Action{ "save as", 3, always, save_as },
    Action{ "history entry", 15, always, open_history },
    Action{ "restore", 10, always, send<&Model::restore, command::restore_book> },
    Action{ "back up", 6, always, send<&Model::backup, command::backup_book> },
    Action{ "about", 2, always, about },
    Action{ "hold input", 8, accepts_input, hold_input },
    Action{
        "release input", 60, [](const Walker& walker) { return !walker.model.accepts_input; }, hold_input },
    Action{ "restart", 2, always, restart },
    Action{ "remove a file", 2, has_unopened_file, remove_unopened_file },
    Action{ "Book menu", 3, always, choose_in_book_menu },
    Action{ "menu left", 3, always, look_at_menu },
    Action{ "show history", 3, always, show_history },
    Action{ "viewer", 10, always, use_viewer },
    Action{ "replace", 8, accepts_input, replace_everywhere },
    Action{ "page editor", 12, accepts_input, edit_pages },
    Action{ "list as text", 8, accepts_input, edit_list },
    Action{ "results", 8, accepts_input, choose_results },
    Action{ "palette", 4, accepts_input, choose_color },
    Action{ "boundary", 4, always, drag_boundary },
    Action{ "drop notification", 10, always, send_drop_notification },
    Action{ "idle command", 30, always, send_idle },
    Action{ "code that is not taken", 10, always, send_code },
};

} // namespace

const Action& choose_action(Walker& walker)
{
    constexpr std::size_t total = std::accumulate(actions.begin(), actions.end(), std::size_t{ 0 },
        [](std::size_t sum, const Action& action) { return sum + action.weight; });
    while (true) {
        std::size_t drawn = walker.below(total);
        const Action* action = actions.data();
        while (drawn >= action->weight)
            drawn -= (action++)->weight;
        if (action->can(walker))
            return *action;
    }
}

} // namespace walk
