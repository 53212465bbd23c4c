#include "app/file_actions.hpp"
#include "app/page_actions.hpp"
#include "app/settings_actions.hpp"
#include "book/page_order.hpp"
#include "core/command_ids.hpp"
#include "session_walker.hpp"
#include <utility>

namespace session_walk {

namespace {

using app::SaveCode;
namespace command = core::command;

} // namespace

Walker::Action Walker::save()
{
    static constexpr std::array codes{ SaveCode::always, SaveCode::if_changed, SaveCode::ask };
    const std::uint32_t code = below(3);
    return { "save " + std::to_string(code), [this, code] { session().save(codes[code]); },
        [this, code] { model_.save(static_cast<Code>(code)); } };
}

Walker::Action Walker::edit()
{
    const std::uint32_t box = below(3);
    const std::wstring text = any_text();
    const auto scroll = static_cast<std::int32_t>(below(50));
    return { "type into box " + std::to_string(box + 1) + ": " + visible(text),
        [this, box, text, scroll] {
            room_->desk.type(box, text);
            room_->desk.scroll = { scroll, scroll + 1 };
            session().box_changed();
            session().renew_edited_mark();
        },
        [this, box, text, scroll] {
            model_.type(box, text);
            model_.scroll = { scroll, scroll + 1 };
            model_.renew_mark();
        } };
}

Walker::Action Walker::page_action()
{
    const std::uint32_t kind = below(6);
    const std::uint64_t number = below(page_limit + 2);
    const int direction = one_in(2) ? 1 : -1;
    switch (kind) {
    case 0:
        return { "first page", [this] { app::go_to_first_page(session()); }, [this] { model_.go_to(0); } };
    case 1:
        return { "last page", [this] { app::go_to_last_page(session()); }, [this] { model_.go_to_last(); } };
    case 2:
        return { "tab " + std::to_string(number), [this, number] { app::go_to_tab(session(), number); },
            [this, number] { model_.go_to_tab(number); } };
    case 3:
        return { "position " + std::to_string(number),
            [this, number] { app::go_to_position(session(), number); },
            [this, number] { model_.slide_to(number); } };
    default:
        return { "turn " + std::to_string(direction),
            [this, direction] { app::turn_page(session(), direction); },
            [this, direction] { model_.turn(direction); } };
    }
}

Walker::Action Walker::order_action()
{
    static constexpr std::array ids{ command::toggle_sorted_order, command::toggle_random_order,
        command::reverse_order };
    const std::uint32_t kind = below(5);
    const int direction = one_in(2) ? 1 : -1;
    if (kind >= 3)
        return { "swap " + std::to_string(direction),
            [this, direction] { app::swap_page(session(), direction); },
            [this, direction] { model_.swap(direction); } };
    return { "order " + std::to_string(kind), [this, kind] { app::change_order(session(), ids[kind]); },
        [this, kind] {
            // The session chooses the seed.
            model_.change_order(static_cast<Order>(kind), book().header.seed);
        } };
}

Walker::Action Walker::settings_action()
{
    const BookSettings chosen{ one_in(2), one_in(2), one_in(2), static_cast<std::int32_t>(3000 + below(6)),
        static_cast<std::int32_t>(4000 + below(3)) };
    const look::SettingsChoice choice{ .gif_autoplay = chosen.plays_gifs,
        .file_search = chosen.searches_files,
        .wrap_text = chosen.wraps,
        .sort_key = chosen.sort_key,
        .tab_label_box = chosen.tab_label_box };
    return { "settings with key " + std::to_string(chosen.sort_key),
        [this, choice] {
            core::Settings of_installation;
            app::apply_settings(session(), of_installation, app::note_book(book()), choice);
        },
        [this, chosen] { model_.apply_settings(chosen); } };
}

Walker::Action Walker::add_or_remove()
{
    const bool at_end = one_in(2);
    if (one_in(2) || book().pages.size() >= page_limit)
        return { "delete the page", [this] { app::delete_page(session()); }, [this] { model_.remove(); } };
    return { at_end ? "add at the end" : "add here",
        [this, at_end] {
            app::add_page(session(), at_end ? command::add_page_at_end : command::add_page_here);
        },
        [this, at_end] { model_.add(at_end); } };
}

Walker::Action Walker::mark_or_tab()
{
    const std::uint32_t kind = below(5);
    const std::uint32_t color = below(1000);
    const std::size_t index = below(page_limit);
    switch (kind) {
    case 0:
        return { "mark", [this] { app::toggle_mark(session()); }, [this] { model_.toggle_mark(); } };
    case 1:
        return { "tab", [this, color] { app::toggle_tab(session(), color); },
            [this, color] { model_.toggle_tab(color); } };
    case 2:
        return { "remove the tab of stored page " + std::to_string(index),
            [this, index, color] {
                app::remove_tab(
                    session(), reinterpret_cast<std::uintptr_t>(book().pages.data() + index), color);
            },
            [this, index, color] { model_.remove_tab(index, color); } };
    case 3:
        return { "track marks", [this] { app::toggle_tracking(session(), command::toggle_mark_tracking); },
            [this] { model_.book.header.track_marks ^= 1; } };
    default:
        return { "track tabs", [this] { app::toggle_tracking(session(), command::toggle_tab_tracking); },
            [this] { model_.book.header.track_tabs ^= 1; } };
    }
}

Walker::Action Walker::file_action()
{
    static constexpr std::array<int, 4> selections{ command::first_file, command::previous_file,
        command::next_file, command::last_file };
    static constexpr std::array<int, 4> moves{ command::move_file_to_top, command::move_file_up,
        command::move_file_down, command::move_file_to_end };
    static constexpr std::array<int, 4> steps{ -1000, -1, 1, 1000 };
    const std::uint32_t which = below(4);
    const bool descending = one_in(2);
    const std::vector<std::wstring> chosen(below(3), any_line());
    switch (below(9)) {
    case 0:
        return { "select row " + std::to_string(which),
            [this, which] { app::select_file(session(), std::int64_t{ which } - 1); },
            [this, which] { model_.select(std::int64_t{ which } - 1); } };
    case 1:
        return { "select by", [this, which] { app::select_file_by(session(), selections[which]); },
            [this, which] { model_.step(steps[which]); } };
    case 2:
        return { "move", [this, which] { app::move_file(session(), moves[which]); },
            [this, which] { model_.move(steps[which]); } };
    case 3:
        return { "sort",
            [this, descending] {
                app::sort_files(
                    session(), descending ? command::sort_files_descending : command::sort_files_ascending);
            },
            [this, descending] { model_.sort(descending); } };
    case 4:
        return { "remove the entry", [this] { app::remove_file(session()); },
            [this] { model_.remove_file(); } };
    case 5:
        return { "remove all", [this] { app::remove_all_files(session()); },
            [this] { model_.remove_all_files(); } };
    case 6:
        return { "drop files", [this, chosen] { app::add_dropped_files(session(), chosen); },
            [this, chosen] { model_.add_dropped_files(chosen); } };
    case 7:
        if (book().pages.size() + chosen.size() > page_limit)
            return { "no room for a drop", [] {}, [] {} };
        return { "drop files as pages", [this, chosen] { app::add_pages_of_files(session(), chosen); },
            [this, chosen] { model_.add_pages_of_files(chosen); } };
    default:
        return { "add files",
            [this, chosen] {
                app::add_files(session(), [this, &chosen] {
                    room_->talk.choose(L"files");
                    return chosen;
                });
            },
            [this, chosen] { model_.add_files(chosen); } };
    }
}

// Types into the editor of the list, or applies what was typed.
Walker::Action Walker::list_edit()
{
    if (one_in(4))
        return { "apply the list", [this] { session().run([this] { app::apply_typed_list(session()); }); },
            [this] { model_.run([this] { model_.apply_list(); }, 0); } };
    std::wstring text;
    for (std::uint32_t lines = below(4); lines > 0; --lines)
        text += any_text() + L"\r\n";
    return { "type into the list " + visible(text),
        [this, text] {
            room_->desk.list_edit = text;
            session().renew_edited_mark();
        },
        [this, text] {
            model_.list_edit = text;
            model_.renew_mark();
        } };
}

Walker::Action Walker::folder_action()
{
    const std::wstring folder = one_in(4) ? L"" : any_line();
    if (one_in(2))
        return { "clear the folder", [this] { app::clear_folder(session()); },
            [this] { model_.clear_folder(); } };
    return { "choose a folder",
        [this, folder] {
            app::choose_folder(session(), [this, &folder] {
                room_->talk.choose(L"folder");
                return folder.empty() ? std::vector<std::wstring>{} : std::vector<std::wstring>{ folder };
            });
        },
        [this, folder] { model_.set_folder(folder); } };
}

Walker::Action Walker::book_action()
{
    const std::wstring path = any_path();
    switch (below(7)) {
    case 0:
        return { "new", [this] { session().create_book(); }, [this] { model_.create(); } };
    case 1:
        return { "open by the dialog", [this] { session().open_book(L""); }, [this] { model_.open(L""); } };
    case 2:
        return { "save as", [this] { session().save_book_as(); }, [this] { model_.save_as(); } };
    case 3:
        return { "restore", [this] { session().load_book(book().path); },
            [this] { model_.load(std::wstring(model_.path)); } };
    case 4:
        return { "back up",
            [this] {
                std::wstring result;
                session().back_up_book(&result);
                room_->talk.said.push_back(L"result: " + result);
            },
            [this] { model_.back_up(true); } };
    case 5:
        return { "open " + visible(path), [this, path] { session().open_book(path); },
            [this, path] { model_.open(path); } };
    default:
        return { "close", [this] { room_->talk.close_program(); },
            [this] {
                model_.said.push_back(L"close");
                model_.close();
            } };
    }
}

Walker::Action Walker::under_the_desk()
{
    const std::uint32_t first = below(page_limit);
    const std::uint32_t second = below(page_limit);
    const std::size_t count = book().pages.size();
    const auto valid = [this](std::uint32_t index) { return index < book().pages.size(); };
    switch (below(5)) {
    case 0:
        if (count < page_limit)
            return { "insert under the desk at " + std::to_string(first),
                [this, first] { book().insert_page(first, model_.fresh_page()); },
                [this, first] { model_.insert_under(first, model_.fresh_page()); } };
        [[fallthrough]];
    case 1:
        return { "remove under the desk at " + std::to_string(first),
            [this, first] { book().remove_page_at(first, look::page_colors(look::palette())); },
            [this, first] { model_.remove_under(first); } };
    case 2:
        if (valid(first) && valid(second))
            return { "swap under the desk", [this, first, second] { book().swap_pages(first, second); },
                [this, first, second] { model_.swap_under(first, second); } };
        [[fallthrough]];
    case 3:
        return { "move the position", [this, first] { book::go_to(book(), first); },
            [this, first] {
                if (first < model_.book.pages.size())
                    model_.book.header.position = first;
            } };
    default:
        const auto key = static_cast<std::int32_t>(3000 + second % 6);
        return { "sort by key " + std::to_string(key),
            [this, key] {
                book().header.sort_key = key;
                book().needs_update = true;
            },
            [this, key] {
                model_.book.header.sort_key = key;
                model_.needs_update = true;
            } };
    }
}

Walker::Action Walker::any_action()
{
    static constexpr std::array<Maker, 21> makers{ &Walker::save, &Walker::edit, &Walker::edit, &Walker::edit,
        &Walker::edit, &Walker::page_action, &Walker::page_action, &Walker::page_action,
        &Walker::order_action, &Walker::settings_action, &Walker::list_edit, &Walker::add_or_remove,
        &Walker::mark_or_tab, &Walker::file_action, &Walker::file_action, &Walker::folder_action,
        &Walker::book_action, &Walker::book_action, &Walker::under_the_desk, &Walker::page_editing,
        &Walker::page_editing };
    return (this->*makers[below(makers.size())])();
}

// Changes something while a message box is open.
void Walker::disturb()
{
    auto in_session = std::make_shared<std::function<void()>>();
    auto in_model = std::make_shared<std::function<void()>>();
    const std::uint32_t kind = below(9);
    if (kind == 0) {
        const std::wstring path = paths_[below(book_count - 1)];
        *in_session = [this, path] { session().run([&] { session().load_book(path); }); };
        *in_model = [this, path] { model_.run([&] { model_.load(path); }, 0); };
    } else if (kind == 1) {
        *in_session = [this] { session().run([&] { app::add_page(session(), command::add_page_here); }); };
        *in_model = [this] { model_.run([&] { model_.add(false); }, 0); };
    } else if (kind == 2) {
        *in_session = [this] { session().run([&] { app::swap_page(session(), 1); }); };
        *in_model = [this] { model_.run([&] { model_.swap(1); }, 0); };
    } else if (kind == 3) {
        *in_session = [this] { session().run([&] { app::move_file(session(), command::move_file_down); }); };
        *in_model = [this] { model_.run([&] { model_.move(1); }, 0); };
    } else if (kind == 4) {
        *in_session = [this] { session().run([&] { app::go_to_last_page(session()); }); };
        *in_model = [this] { model_.run([&] { model_.go_to_last(); }, 0); };
    } else if (kind == 5) {
        *in_session = [this] {
            if (!session().is_loading())
                book().remove_page_at(0, look::page_colors(look::palette()));
        };
        *in_model = [this] {
            if (!model_.is_loading)
                model_.remove_under(0);
        };
    } else if (kind == 6) {
        *in_session = [this] { session().run([&] { session().save(SaveCode::always); }); };
        *in_model = [this] { model_.run([&] { model_.save(Code::always); }, 0); };
    } else if (kind == 7) {
        *in_session = [this] {
            room_->desk.type(1, L"meanwhile");
            session().renew_edited_mark();
        };
        *in_model = [this] {
            model_.type(1, L"meanwhile");
            model_.renew_mark();
        };
    } else {
        *in_session = [this] {
            session().run(
                [this] { app::add_files(session(), [] { return std::vector<std::wstring>{ L"new" }; }); });
        };
        *in_model = [this] {
            model_.run(
                [this] {
                    if (model_.may_change_list())
                        model_.append({ L"new" });
                },
                0);
        };
    }
    last_steps.push_back("  with a disturbance of kind " + std::to_string(kind));
    room_->talk.while_open = [in_session] { (*in_session)(); };
    model_.while_open = [in_model] { (*in_model)(); };
}

} // namespace session_walk
