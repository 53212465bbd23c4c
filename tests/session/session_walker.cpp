#include "session_walker.hpp"
#include "app/file_actions.hpp"
#include "app/page_actions.hpp"
#include "book/page_order.hpp"
#include "core/command_ids.hpp"
#include "core/settings.hpp"
#include "platform/text.hpp"
#include "walk_clock.hpp"
#include <random>
#include <utility>

namespace session_walk {

namespace {

using app::SaveCode;
using test_support::FakeDesk;
namespace command = core::command;

constexpr std::size_t book_count = 4;
constexpr std::size_t page_limit = 9;
constexpr std::size_t kept_steps = 30;

std::string text_of(const std::wstring& text)
{
    std::string visible;
    for (const wchar_t unit : text.substr(0, 60)) {
        if (unit >= L' ' && unit < 0x7F)
            visible += static_cast<char>(unit);
        else
            visible += "\\" + std::to_string(static_cast<unsigned>(unit));
    }
    return visible + (text.size() > 60 ? "..." : "");
}

std::wstring written_pages(std::size_t count, const std::wstring& name)
{
    Record record;
    for (std::size_t i = 0; i < count; ++i) {
        book::Page& page = record.pages.emplace_back();
        page.stamp = L"202301010000" + std::to_wstring(10 + i) + L"20230101000000";
        page.text[0] = name + std::to_wstring(i);
        page.text[1] = L"title" + std::to_wstring(count - i);
        page.files = { L"c" + name, L"a" };
        page.tab_number = i % 2;
    }
    return written(record);
}

} // namespace

Walker::Walker(Choose choose)
    : choose_(std::move(choose))
{
    reset_clock();
    for (std::size_t i = 0; i < book_count; ++i)
        paths_.push_back(root_.file(std::wstring(1, static_cast<wchar_t>(L'a' + i)) + L".bok"));
    model_.history_file = root_.file(L"history.txt");
    model_.backup_folder = core::folders().book_backup;
    look::load_theme(look::theme_standard);
    model_.theme = look::theme_standard;
    make_files();
}

void Walker::make_files()
{
    const std::wstring good = written_pages(4, L"a");
    std::wstring damaged = good;
    damaged[9] = L'x';
    const std::size_t header_end = good.find(L"\x3\x3\r\n", 4) + 4;
    const std::wstring older = static_cast<wchar_t>(0xFEFF) + good.substr(header_end);
    const std::wstring broken = good + L"x\r\n\x3\r\n\x3\r\n\x3\r\n\x3\r\n\x3\r\nno numbers\r\n\x3\r\n";
    const std::array<std::wstring, 6> odd{ damaged, older, broken, good.substr(0, header_end), L"\r\n",
        good + L"tail" };
    const std::wstring path = root_.file(L"odd.bok");
    if (paths_.size() == book_count)
        paths_.push_back(path);
    for (std::size_t i = 0; i + 1 < book_count; ++i)
        if (model_.files.count(paths_[i]) == 0 && model_.blocked.count(paths_[i]) == 0)
            test_support::write_text(paths_[i], model_.files[paths_[i]] = written_pages(2 + i, L"book"));
    if (model_.blocked.count(path) == 0)
        test_support::write_text(path, model_.files[path] = odd[below(odd.size())]);
}

std::wstring Walker::any_text()
{
    static const std::array<std::wstring, 12> pieces{ L"a", L"B", L" ", L"\r\n", L"\x3", L"\x3000",
        std::wstring{ wchar_t{ 0xD842 }, wchar_t{ 0xDFB7 } }, std::wstring{ wchar_t{ 0xD842 } }, L"\r", L"\n",
        L"水", L"\"x" };
    std::wstring text;
    for (std::uint32_t count = below(8); count > 0; --count)
        text += pieces[below(pieces.size())];
    if (one_in(300))
        text += std::wstring(70000, L'v');
    return text;
}

std::wstring Walker::any_line()
{
    std::wstring line(1 + below(3), L'a');
    for (wchar_t& unit : line)
        unit = static_cast<wchar_t>(L'a' + below(4));
    return line;
}

std::wstring Walker::any_path()
{
    return one_in(8) ? L""
        : one_in(10) ? root_.file(L"missing.bok")
                     : paths_[below(static_cast<std::uint32_t>(paths_.size()))];
}

void Walker::start()
{
    room_ = std::make_unique<test_support::SessionRoom>(model_.history_file);
    model_.asked = {};
    room_->session.history().load();
    for (const bool answer : { one_in(2), one_in(2) }) {
        room_->talk.answers.push_back(answer);
        model_.answers.push_back(answer);
    }
    room_->talk.paths = { paths_[below(book_count)] };
    model_.paths = room_->talk.paths;
    session().run([this] { session().open_last_book(); });
    model_.start();
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
        *in_model = [this] {
            model_.run([&] { model_.go_to(std::uint64_t{ model_.book.pages.size() } - 1); }, 0);
        };
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
            session().run([&] {
                app::append_files(*book().current_page(), { L"new" });
                session().note_content_change();
            });
        };
        *in_model = [this] {
            model_.run(
                [&] {
                    model_.book.pages[model_.current()].files.push_back(L"new");
                    model_.book.pages[model_.current()].current_file =
                        model_.book.pages[model_.current()].files.size() - 1;
                },
                0);
        };
        if (!book().current_page())
            return;
    }
    last_steps.push_back("  with a disturbance of kind " + std::to_string(kind));
    room_->talk.while_open = [in_session] { (*in_session)(); };
    model_.while_open = [in_model] { (*in_model)(); };
}

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
    return { "type into box " + std::to_string(box + 1) + ": " + text_of(text),
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
        return { "last page", [this] { app::go_to_last_page(session()); },
            [this] { model_.go_to(std::uint64_t{ model_.book.pages.size() } - 1); } };
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
    switch (below(7)) {
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
        return { "open " + text_of(path), [this, path] { session().open_book(path); },
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
    static constexpr std::array<Maker, 16> makers{ &Walker::save, &Walker::edit, &Walker::edit, &Walker::edit,
        &Walker::edit, &Walker::page_action, &Walker::page_action, &Walker::page_action,
        &Walker::order_action, &Walker::add_or_remove, &Walker::mark_or_tab, &Walker::file_action,
        &Walker::file_action, &Walker::folder_action, &Walker::book_action, &Walker::under_the_desk };
    return (this->*makers[below(makers.size())])();
}

void Walker::block(const std::wstring& path)
{
    if (path == model_.path && one_in(2))
        return;
    platform::remove_file(path);
    platform::create_folder(path);
    if (path == model_.history_file)
        model_.stored_history.clear();
    model_.files.erase(path);
    model_.blocked.insert(path);
}

void Walker::unblock(const std::wstring& path)
{
    std::filesystem::remove(platform::to_utf8(path));
    model_.blocked.erase(path);
}

// Restores, deletes and blocks files, and changes settings.
void Walker::change_world()
{
    switch (below(6)) {
    case 0:
        last_steps.push_back("block a file");
        return block(
            one_in(6) ? model_.history_file : paths_[below(static_cast<std::uint32_t>(paths_.size()))]);
    case 1:
    case 2:
        last_steps.push_back("free the files");
        while (!model_.blocked.empty())
            unblock(std::wstring(*model_.blocked.begin()));
        return make_files();
    case 3:
        room_->talk.busy = model_.is_busy = one_in(3);
        last_steps.push_back(model_.is_busy ? "busy" : "not busy");
        return;
    case 4:
        core::settings().auto_backup = model_.backs_up = one_in(4);
        return;
    default:
        return set_query();
    }
}

void Walker::set_query()
{
    book::SearchQuery query;
    for (std::uint32_t count = below(3); count > 0; --count)
        query.terms.push_back(one_in(2) ? any_line() : std::wstring{ L"a" });
    query.all_terms = one_in(2);
    query.ignore_case = one_in(2);
    query.in_file_list = one_in(2);
    room_->desk.asked = model_.asked = query;
    last_steps.push_back("search");
}

void Walker::perform(const Action& action, std::uint32_t mask)
{
    last_steps.push_back(action.name);
    session().run([&] {
        action.session();
        session().merge(mask);
    });
    model_.run(action.model, mask);
}

bool Walker::step()
{
    static constexpr std::array<std::uint32_t, 4> masks{ 0, core::refresh::full, core::refresh::full_but_page,
        core::refresh::controls };
    ++steps_;
    while (last_steps.size() > kept_steps)
        last_steps.pop_front();
    if (!room_ || room_->talk.gone) {
        last_steps.push_back("start");
        start();
        return compare();
    }
    if (one_in(3))
        advance_clock();
    if (one_in(12))
        change_world();
    room_->talk.answers.clear();
    room_->talk.paths.clear();
    for (int i = 0; i < 3; ++i) {
        room_->talk.answers.push_back(!one_in(3));
        room_->talk.paths.push_back(any_path());
    }
    model_.answers = room_->talk.answers;
    model_.paths = room_->talk.paths;
    if (one_in(8))
        disturb();
    perform(any_action(), masks[below(masks.size())]);
    room_->talk.while_open = {};
    model_.while_open = {};
    return compare() && (steps_ % 64 != 0 || check_all());
}

bool Walker::check_all()
{
    for (const auto& [path, text] : model_.files)
        model_.touched.insert(path);
    return compare();
}

bool Walker::compare()
{
    for (std::wstring& said : room_->talk.said) // error numbers differ between systems
        if (said.starts_with(L"system error"))
            said = L"system error";
    complaint = difference();
    room_->talk.said.clear();
    model_.said.clear();
    for (const std::wstring& path : std::exchange(model_.touched, {}))
        if (complaint.empty())
            complaint = file_difference(path);
    return complaint.empty();
}

std::string Walker::file_difference(const std::wstring& path) const
{
    if (!platform::is_regular_file(path))
        return "no file " + text_of(path);
    if (test_support::read_text(path) == model_.files.at(path))
        return {};
    return "the file " + text_of(path);
}

std::string Walker::page_difference() const
{
    const book::Book& is = room_->session.book();
    if (is.pages.size() != model_.book.pages.size())
        return "pages: " + std::to_string(is.pages.size()) + " instead of "
            + std::to_string(model_.book.pages.size());
    for (std::size_t i = 0; i < is.pages.size(); ++i) {
        const book::Page& page = is.pages[i];
        const book::Page& expected = model_.book.pages[i];
        const std::string name = "stored page " + std::to_string(i) + ", ";
        for (std::size_t box = 0; box < 3; ++box)
            if (page.text[box] != expected.text[box])
                return name + "box " + std::to_string(box + 1) + ": " + text_of(page.text[box])
                    + " instead of " + text_of(expected.text[box]);
        if (page.stamp != expected.stamp)
            return name + "stamp " + text_of(page.stamp) + " instead of " + text_of(expected.stamp);
        if (page.scroll_first != expected.scroll_first || page.scroll_third != expected.scroll_third)
            return name + "scroll " + std::to_string(page.scroll_first) + " instead of "
                + std::to_string(expected.scroll_first);
        if (page.files != expected.files || page.current_file != expected.current_file)
            return name + "files";
        if (!(page == expected))
            return name + "mark, tab, colours or folder";
    }
    return {};
}

std::string Walker::difference() const
{
    const FakeDesk& desk = room_->desk;
    const book::Book& is = room_->session.book();
    const auto& said = room_->talk.said;
    for (std::size_t i = 0; i < std::max(said.size(), model_.said.size()); ++i) {
        const std::wstring a = i < said.size() ? said[i] : L"nothing";
        const std::wstring b = i < model_.said.size() ? model_.said[i] : L"nothing";
        if (a != b)
            return "said: " + text_of(a) + " instead of " + text_of(b);
    }
    if (room_->talk.gone != model_.is_gone)
        return "the program's end";
    if (is.path != model_.path)
        return "path: " + text_of(is.path) + " instead of " + text_of(model_.path);
    if (std::string pages = page_difference(); !pages.empty())
        return pages;
    if (!(is.header == model_.book.header))
        return "the header: position " + std::to_string(is.header.position) + ", expected "
            + std::to_string(model_.book.header.position);
    if (room_->session.history().entries() != model_.history)
        return "the history";
    if (model_.is_gone)
        return {};
    for (std::size_t box = 0; box < 3; ++box)
        if (desk.boxes[box].text != model_.boxes[box].text
            || desk.boxes[box].is_edited != model_.boxes[box].is_edited)
            return "box " + std::to_string(box + 1) + " shows " + text_of(desk.boxes[box].text)
                + " instead of " + text_of(model_.boxes[box].text);
    if (desk.scroll != model_.scroll)
        return "the scroll of the boxes";
    const book::Page* shown = room_->session.shown_page();
    const std::size_t shown_index = shown ? static_cast<std::size_t>(shown - is.pages.data()) : book::npos;
    if (shown_index != model_.shown_index())
        return "the shown page";
    if (is.current_index() != model_.current())
        return "the current page";
    if (desk.title != model_.title || desk.has_edited_mark != model_.has_edits())
        return "the title " + text_of(desk.title) + " instead of " + text_of(model_.title);
    if (is.hits != model_.hits)
        return "hits: " + std::to_string(is.hits.size()) + " instead of "
            + std::to_string(model_.hits.size());
    return {};
}

std::string walk(std::uint32_t seed, std::size_t steps)
{
    std::mt19937 generator(seed);
    Walker walker(
        [&generator](std::uint32_t count) { return static_cast<std::uint32_t>(generator() % count); });
    for (std::size_t i = 0; i < steps; ++i) {
        if (walker.step())
            continue;
        std::string report =
            "seed " + std::to_string(seed) + ", step " + std::to_string(i + 1) + ": " + walker.complaint;
        for (const std::string& step : walker.last_steps)
            report += "\n  " + step;
        return report;
    }
    return walker.check_all() ? std::string{} : "at the end: " + walker.complaint;
}

} // namespace session_walk
