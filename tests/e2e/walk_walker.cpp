#include "walk_walker.hpp"
#include "app/main_layout.hpp"
#include "app/menus.hpp"
#include "book/page_text.hpp"
#include "core/command_ids.hpp"
#include "driver_menu.hpp"
#include "look/settings_view.hpp"
#include "platform/text.hpp"
#include "walk_report.hpp"
#include <array>
#include <future>

namespace fs = std::filesystem;
namespace command = core::command;
using e2e::DriverError;
using e2e::FileDialog;
using e2e::MessageDialog;
using e2e::require;
using e2e::Window;

namespace walk {

namespace {

constexpr auto banner_style = WS_EX_NOACTIVATE;
constexpr std::size_t kept_actions = 20;

POINT to_screen(Window window, POINT client)
{
    ClientToScreen(window.handle(), &client);
    return client;
}

} // namespace

Walker::Walker(const e2e::DataRoot& root, std::uint32_t seed)
    : root_(root)
    , random_(seed)
{
    model.says_yes = [this] { return chance(60); };
    model.backup_folder = (root.folder() / L"book_backup").wstring();
    model.data_root = root.folder().wstring();
    make_books();
    start();
}

void Walker::step()
{
    ++steps_;
    noted_.clear();
    model.begin_step();
    step_began_ = book::current_time_text();
    const Action& action = choose_action(*this);
    last_actions_.push_back(std::to_string(steps_) + " " + action.name);
    if (last_actions_.size() > kept_actions)
        last_actions_.pop_front();
    read_scroll();
    try {
        action.act(*this);
        check();
    } catch (...) {
        last_actions_.back() += noted_;
        throw;
    }
    last_actions_.back() += noted_;
}

std::string Walker::last_actions() const
{
    std::string text;
    for (const std::string& action : last_actions_)
        text += action + "\n";
    return text;
}

void Walker::watch_holdings()
{
    // File dialogs, fonts and pictures are loaded once and kept.
    constexpr std::size_t warm_up = 300;
    constexpr std::size_t interval = 50;
    if (++steps_of_process_ < warm_up || steps_of_process_ % interval != 0)
        return;
    last_holdings_ = e2e::holdings_of(*program_);
    if (steps_of_process_ == warm_up)
        first_holdings_ = last_holdings_;
    e2e::require_no_growth(first_holdings_, last_holdings_);
}

std::string Walker::holdings_text() const
{
    return e2e::to_string(first_holdings_) + " to " + e2e::to_string(last_holdings_);
}

void Walker::end()
{
    model.begin_step();
    step_began_ = book::current_time_text();
    read_scroll();
    model.close();
    main().post(WM_CLOSE);
    expect_same("the exit code", static_cast<int>(program_->exit_code()), 0);
    check_files();
}

void Walker::start()
{
    program_.reset();
    program_ = std::make_unique<e2e::Program>(root_.program(), L"");
    steps_of_process_ = 0;
    replaces_boxes_ = false;
    program_->wait_for_window();
    model.start();
    check();
}

void Walker::read_scroll()
{
    model.scroll = { static_cast<int>(box(0).first_visible_line()),
        static_cast<int>(box(2).first_visible_line()) };
}

Window Walker::box(std::size_t index) const
{
    return main().child(command::box_1 + static_cast<int>(index));
}

// A command that asks a question returns only after the answer.
template <class Act> void Walker::perform(Act act)
{
    if (model.talks.empty())
        return act();
    auto done = std::async(std::launch::async, act);
    serve_talks();
    if (done.wait_for(e2e::patience) != std::future_status::ready)
        check_no_dialog();
    done.get();
}

void Walker::perform_served(const std::function<void()>& act)
{
    perform(act);
}

void Walker::serve_talks()
{
    for (const Talk& talk : model.talks)
        serve(talk);
}

void Walker::serve(const Talk& talk)
{
    if (talk.kind == Talk::Kind::file_dialog) {
        const FileDialog dialog = program_->wait_for_file_dialog();
        expect_same("the dialog", dialog.caption(), talk.text);
        note(talk.path.empty() ? "[cancel]" : "[to] " + file_name(talk.path));
        if (talk.path.empty())
            dialog.cancel();
        else
            dialog.choose(talk.path);
        return;
    }
    const MessageDialog box = program_->wait_for_box();
    if (talk.kind == Talk::Kind::message)
        expect_same("the box", box.text(), talk.text);
    note(talk.answer == IDYES ? "[yes]" : talk.answer == IDNO ? "[no]" : "[ok]");
    box.answer(talk.answer);
}

void Walker::send(int id, LPARAM lparam, int code)
{
    note(std::to_string(id));
    const Window window = main();
    perform([=] { window.send(WM_COMMAND, MAKEWPARAM(id, code), lparam); });
}

void Walker::give(int id)
{
    if (chance(85))
        return send(id);
    click(id);
}

void Walker::click(int id)
{
    const Window control = main().child(id);
    if (!control.is_enabled())
        return send(id);
    note("click");
    come_to_front();
    e2e::click(control.center());
    serve_talks();
    fence();
}

void Walker::click_at(POINT client)
{
    come_to_front();
    e2e::click(to_screen(main(), client));
    serve_talks();
    fence();
}

void Walker::hold_at(POINT client)
{
    drag(client, client);
}

// The drag may query the pointer's position itself, so each part waits for the one before.
void Walker::drag(POINT from, POINT to)
{
    constexpr e2e::milliseconds brief{ 500 };
    const auto is_held = [this] { return program_->holds_mouse(); };
    come_to_front();
    e2e::press_mouse(to_screen(main(), from));
    e2e::wait_until([&] { return is_held() || !model.talks.empty(); }, brief);
    e2e::move_mouse(to_screen(main(), to));
    e2e::release_mouse(to_screen(main(), to));
    serve_talks();
    require("the mouse is let go", [&] { return !is_held(); });
    fence();
}

// Input is served in order: when a click has given another box the focus, all input before it is done.
void Walker::fence()
{
    check_no_dialog();
    come_to_front();
    const HWND focus = program_->focus().handle();
    program_->click_on(focus == box(0).handle() ? box(2) : box(0));
}

// A window manager may leave no window with the keyboard after a dialog has closed. A banner would receive
// clicks meant for the controls below it.
void Walker::come_to_front()
{
    program_->wait_for_window();
    const DWORD process_id = program_->process_id();
    for (const Window window : e2e::top_windows(process_id)) {
        if (window.handle() != main().handle()
            && (GetWindowLongW(window.handle(), GWL_EXSTYLE) & static_cast<LONG>(banner_style)) != 0)
            window.send(WM_CLOSE);
    }
    program_->await_input();
}

void Walker::send_wheel(int direction, bool with_ctrl)
{
    const auto delta = static_cast<WORD>(static_cast<short>(direction > 0 ? -WHEEL_DELTA : WHEEL_DELTA));
    const Window window = main();
    perform([=] { window.send(WM_MOUSEWHEEL, MAKEWPARAM(with_ctrl ? MK_CONTROL : 0, delta)); });
}

void Walker::type(
    std::size_t index, std::size_t start, std::size_t end, const std::wstring& text, bool with_keys)
{
    note("box " + std::to_string(index) + " " + std::to_string(start) + "-" + std::to_string(end) + " "
        + quoted(text));
    const Window edited = box(index);
    if (!with_keys) {
        edited.select(start, end);
        edited.send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
        return;
    }
    come_to_front();
    program_->click_into(edited);
    edited.select(start, end);
    e2e::type_text(text);
    require("the typed text comes", [&] { return edited.text() == model.boxes[index].text; });
}

void Walker::press_save_key(std::size_t index)
{
    come_to_front();
    program_->click_on(box(index));
    {
        const e2e::HeldKey ctrl(VK_CONTROL);
        e2e::press('S');
    }
    fence();
}

void Walker::choose_in_book_menu(int id)
{
    come_to_front();
    const auto open = [this] { e2e::click(main().child(command::show_book_menu).center()); };
    e2e::PopupMenu(*program_, app::book_menu(model.is_edited()), open).choose(id, e2e::Hand::keys);
    serve_talks();
    fence();
}

void Walker::look_at_menu(int id)
{
    come_to_front();
    e2e::PopupMenu(*program_, {}, [this, id] { main().post_command(id); }).leave();
    main().send(WM_NULL);
}

void Walker::show_history()
{
    send(command::show_history);
    const HWND ours = main().handle();
    for (const Window window : e2e::top_windows(program_->process_id())) {
        if (window.handle() != ours)
            window.send(WM_CLOSE);
    }
}

void Walker::use_viewer()
{
    constexpr std::array commands{ 2100, 2101, 2106, 1029, 1030, 1031 };
    send(command::show_viewer);
    const Window viewer = side_window(L"ovlib_viewer[1]");
    for (std::size_t left = viewer.exists() ? below(9) : 0; left > 0; --left) {
        const int id = commands[below(commands.size())];
        note(std::to_string(id));
        viewer.send(
            WM_COMMAND, MAKEWPARAM(id, chance(70) ? 0 : below(0x10000)), static_cast<LPARAM>(random_()));
    }
    if (viewer.exists())
        viewer.send(WM_CLOSE);
    fence();
}

// The program chooses the seed; it is read from the file after a save.
void Walker::choose_settings(int row, bool toggles_gifs)
{
    main().post_command(command::show_settings);
    Window window;
    require("the settings show", [&] {
        for (const Window shown : e2e::top_windows(program_->process_id())) {
            if (shown.class_name() == L"ovlib_settingwnd[158]")
                window = shown;
        }
        return window.exists();
    });
    window.child(look::setting_sort_key).send(CB_SETCURSEL, static_cast<WPARAM>(row));
    if (toggles_gifs)
        window.child(look::setting_gif_autoplay).send(BM_CLICK);
    window.post_command(command::close_window);
    require("the settings have closed", [&] { return !window.exists(); });
    serve_talks();
    fence();
}

void Walker::turn_random()
{
    model.change_order(Order::random);
    give(command::toggle_random_order);
    if (std::abs(model.book.header.order_mode) != 2702)
        return;
    model.talks.clear();
    send(command::save_always);
    model.take_seed(e2e::load_book(model.path).header.seed);
    read_scroll();
    model.save_always();
}

void Walker::scroll(std::size_t index, int lines)
{
    box(index).send(EM_LINESCROLL, 0, lines);
}

void Walker::select(std::size_t index, std::size_t start, std::size_t end)
{
    come_to_front();
    program_->click_into(box(index));
    box(index).select(start, end);
}

void Walker::set_search(const std::wstring& text)
{
    note(quoted(text));
    main().child(command::search_box).set_text(text);
    model.search_for(text);
}

void Walker::choose_file(std::size_t row)
{
    main().child(command::file_combo).send(CB_SETCURSEL, row);
    send(command::file_combo, 0, command::combo_chosen);
}

void Walker::restart()
{
    end();
    start();
}

void Walker::remove_unopened_file()
{
    for (const auto& [file, record] : model.files) {
        if (file == model.path)
            continue;
        note(file_name(file));
        fs::remove(file);
        bytes_.erase(file);
        model.files.erase(file);
        return;
    }
}

} // namespace walk
