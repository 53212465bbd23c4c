#include "walk_walker.hpp"
#include "app/command_ids.hpp"
#include "app/main_layout.hpp"
#include "book/text.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <future>

namespace fs = std::filesystem;
namespace command = app::command;
using e2e::DriverError;
using e2e::FileDialog;
using e2e::MessageDialog;
using e2e::require;
using e2e::Window;

namespace walk {

namespace {

constexpr auto menu_class = L"#32768";
constexpr auto banner_style = WS_EX_NOACTIVATE;
constexpr std::size_t kept_actions = 20;

constexpr const wchar_t* pieces[] = { L"a", L"B", L"Ab", L"あ", L"い", L"漢字", L" ", L"\x3000", L"ＡＢ",
    L"\t", L"\"", L"\x3", L"\xD842\xDFB7", L"\xD83D\xDE00", L"ß", L"Ω", L"12", L"-", L"." };
constexpr const wchar_t* line_end = L"\r\n";
constexpr const wchar_t* entries[] = { L"C:\\絵\\一.png", L"C:\\絵\\二.jpg", L"D:\\音\\三.mp3",
    L"https://example.org/a?b=Ab", L"relative\\Ab.txt", L"C:\\無い\\あ い.gif" };
constexpr const wchar_t* book_names[] = { L"甲.bok", L"乙.bok", L"丙.bok", L"新しい.bok", L"写し.bok" };

// Control characters would hide in a report.
std::string quoted(const std::wstring& text)
{
    std::wstring visible = L"\"";
    for (const wchar_t unit : text) {
        if (unit < L' ')
            visible += L"\\" + std::to_wstring(static_cast<unsigned>(unit));
        else
            visible += unit;
    }
    return platform::to_utf8(visible + L"\"");
}

template <class Value> void expect_same(const char* what, const Value& is, const Value& expected)
{
    if (is == expected)
        return;
    if constexpr (std::is_same_v<Value, std::wstring>)
        throw DriverError(std::string(what) + " is " + quoted(is) + " instead of " + quoted(expected));
    else
        throw DriverError(
            std::string(what) + " is " + std::to_string(is) + " instead of " + std::to_string(expected));
}

// Which part of two pages differs.
std::string difference(const book::Page& is, const book::Page& expected)
{
    for (std::size_t box = 0; box < book::box_count; ++box) {
        if (is.text[box] != expected.text[box])
            return "box " + std::to_string(box + 1) + ": " + quoted(is.text[box]) + " instead of "
                + quoted(expected.text[box]);
    }
    if (is.stamp != expected.stamp)
        return "its stamp: " + quoted(is.stamp) + " instead of " + quoted(expected.stamp);
    if (is.mark != expected.mark || is.tab_number != expected.tab_number
        || is.tab_color != expected.tab_color)
        return "its mark or tab";
    if (is.scroll_first != expected.scroll_first || is.scroll_third != expected.scroll_third)
        return "its scroll places: " + std::to_string(is.scroll_first) + ", "
            + std::to_string(is.scroll_third) + " instead of " + std::to_string(expected.scroll_first) + ", "
            + std::to_string(expected.scroll_third);
    if (is.files != expected.files || is.current_file != expected.current_file)
        return "its files";
    return "its colours or its folder";
}

// What can be seen of a program that does not answer a click.
std::string to_string(const e2e::Program& program)
{
    if (!program.is_running())
        return "the program has ended";
    std::string text =
        "its windows, of which " + platform::to_utf8(program.focus().class_name()) + " has the focus:";
    for (const Window window : e2e::top_windows(program.process_id())) {
        const RECT at = window.rect();
        text += " " + platform::to_utf8(window.class_name()) + (window.is_enabled() ? "" : " (disabled)")
            + " at " + std::to_string(at.left) + "," + std::to_string(at.top);
    }
    return text;
}

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
    // File dialogs, fonts and pictures come to stay.
    constexpr std::size_t warm_up = 300;
    constexpr std::size_t interval = 50;
    if (++steps_of_process_ < warm_up || steps_of_process_ % interval != 0)
        return;
    last_holdings_ = holdings_of(program_->process(), program_->process_id());
    if (steps_of_process_ == warm_up)
        first_holdings_ = last_holdings_;
    const auto has_grown = [this](std::size_t Holdings::*what, std::size_t room) {
        return last_holdings_.*what > first_holdings_.*what + room;
    };
    if (has_grown(&Holdings::gdi_objects, 80) || has_grown(&Holdings::windows, 6)
        || has_grown(&Holdings::kernel_handles, 40) || has_grown(&Holdings::private_bytes, 24u << 20))
        throw DriverError(
            "the program holds " + to_string(last_holdings_) + " after " + to_string(first_holdings_));
}

std::string Walker::holdings_text() const
{
    return to_string(first_holdings_) + " to " + to_string(last_holdings_);
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

std::size_t Walker::place_in(const std::wstring& text, std::size_t from)
{
    std::size_t place = from + below(text.size() - from + 1);
    const auto splits = [&] {
        if (place == 0 || place >= text.size())
            return false;
        return (text[place - 1] == L'\r' && text[place] == L'\n') || platform::is_low_surrogate(text[place]);
    };
    while (splits())
        ++place;
    return place;
}

std::wstring Walker::some_text(bool many_lines)
{
    std::wstring text;
    const std::size_t count = 1 + below(chance(5) ? 200 : 6);
    for (std::size_t i = 0; i < count; ++i)
        text += many_lines && chance(20) ? line_end : pieces[below(std::size(pieces))];
    return text;
}

std::wstring Walker::some_path(bool may_be_new)
{
    if (may_be_new)
        return (root_.folder() / book_names[below(std::size(book_names))]).wstring();
    auto chosen = model.files.begin();
    std::advance(chosen, static_cast<std::ptrdiff_t>(below(model.files.size())));
    return chosen->first;
}

book::Page Walker::some_page()
{
    const auto clean = [this](bool many_lines) {
        std::wstring text = some_text(many_lines);
        book::remove_separator(text);
        book::trim_text(text, book::TrimMode::both);
        return text;
    };
    book::Page page = e2e::make_page(clean(true), clean(false), clean(true));
    page.stamp.replace(10, 4, std::to_wstring(1000 + below(9000)));
    page.stamp.replace(24, 4, std::to_wstring(1000 + below(9000)));
    page.mark = chance(30);
    page.tab_number = chance(40);
    page.tab_color = chance(50) ? 0x535864 : 0x403CBE;
    if (chance(40))
        page.reference_folder = missing_folder;
    for (std::size_t i = below(5); i > 0; --i)
        page.files.emplace_back(entries[below(std::size(entries))]);
    page.current_file = page.files.empty() ? 0 : below(page.files.size());
    return page;
}

void Walker::make_books()
{
    for (const wchar_t* name : { book_names[0], book_names[1], book_names[2] }) {
        Record record;
        record.header.divider = static_cast<std::int32_t>(110 + below(300));
        record.header.theme = static_cast<std::int32_t>(6000 + below(6));
        record.header.sort_key = static_cast<std::int32_t>(3000 + below(6));
        record.header.tab_label_box = static_cast<std::int32_t>(4000 + below(3));
        record.header.wrap_text = chance(30);
        record.header.seed = random_();
        const std::size_t count = 1 + below(9);
        record.header.position = below(count);
        std::vector<book::Page> pages;
        for (std::size_t i = 0; i < count; ++i) {
            pages.push_back(some_page());
            record.pages.push_back({ pages.back() });
        }
        const std::wstring file = root_.add_book(name, pages, record.header).wstring();
        model.files[file] = record;
        model.history.push_back(file);
    }
    root_.write_history(model.history);
}

void Walker::start()
{
    program_.reset();
    program_ = std::make_unique<e2e::Program>(root_.program(), L"");
    steps_of_process_ = 0;
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

// A command that asks returns only when it was answered.
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
        note(talk.path.empty() ? "[cancel]"
                               : "[" + platform::to_utf8(fs::path(talk.path).filename().wstring()) + "]");
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

// What is dragged may look at the pointer itself, so each part waits for the one before it.
void Walker::drag(POINT from, POINT to)
{
    constexpr e2e::milliseconds brief{ 500 };
    const auto is_held = [this] { return program_->holds_mouse(); };
    come_to_front();
    e2e::press_mouse(to_screen(main(), from));
    e2e::wait_until([&] { return is_held() || !model.talks.empty(); }, brief);
    e2e::move_mouse(to_screen(main(), to));
    e2e::release_mouse();
    serve_talks();
    require("the mouse is let go", [&] { return !is_held(); });
    fence();
}

// Input is served in its order: when another box has the focus by a click, what came before has been done.
void Walker::fence()
{
    check_no_dialog();
    come_to_front();
    const HWND focus = program_->focus().handle();
    try {
        program_->click_on(focus == box(0).handle() ? box(2) : box(0));
    } catch (const DriverError& failure) {
        throw DriverError(failure.what() + std::string("; ") + to_string(*program_));
    }
}

// A window manager may give nobody the keyboard when a dialog has closed. A banner would take the clicks for
// what lies under it.
void Walker::come_to_front()
{
    program_->wait_for_window();
    const DWORD process_id = program_->process_id();
    for (const Window window : e2e::top_windows(process_id)) {
        if (window.handle() != main().handle()
            && (GetWindowLongW(window.handle(), GWL_EXSTYLE) & static_cast<LONG>(banner_style)) != 0)
            window.send(WM_CLOSE);
    }
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
    program_->click_on(edited);
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

Window Walker::wait_for_menu()
{
    Window menu;
    require("a menu shows", [&] {
        for (const Window window : e2e::top_windows(program_->process_id())) {
            if (window.class_name() == menu_class)
                menu = window;
        }
        return menu.exists();
    });
    return menu;
}

// Keys find a row from either end whatever row the pointer lies over; grey ones may be passed over.
void Walker::choose_in_book_menu(WORD end_key, int rows_up)
{
    come_to_front();
    e2e::click(main().child(command::show_book_menu).center());
    const Window menu = wait_for_menu();
    e2e::press(end_key);
    for (int i = 0; i < rows_up; ++i)
        e2e::press(VK_UP);
    e2e::press(VK_RETURN);
    require("the menu goes", [&] { return !menu.exists() || !menu.is_visible(); });
    serve_talks();
    fence();
}

void Walker::look_at_menu(int id)
{
    main().post_command(id);
    const Window menu = wait_for_menu();
    e2e::press(VK_ESCAPE);
    require("the menu goes", [&] { return !menu.exists() || !menu.is_visible(); });
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

// The seed is the program's own: a save tells it.
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
    program_->click_on(box(index));
    box(index).select(start, end);
}

void Walker::set_search(const std::wstring& text)
{
    note(quoted(text));
    main().child(command::search_box).set_text(text);
    model.search = text;
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
        note(platform::to_utf8(fs::path(file).filename().wstring()));
        fs::remove(file);
        bytes_.erase(file);
        model.files.erase(file);
        return;
    }
}

void Walker::check()
{
    if (!program_->is_running())
        throw DriverError("the program ended with code " + std::to_string(program_->exit_code()));
    check_no_dialog();
    check_files();
    check_boxes();
}

// A dialog that was answered may take a moment to go.
void Walker::check_no_dialog()
{
    constexpr e2e::milliseconds moment{ 2000 };
    if (e2e::wait_until([this] { return !program_->has_dialog(); }, moment))
        return;
    for (const Window window : e2e::top_windows(program_->process_id())) {
        if (MessageDialog::is_one(window))
            throw DriverError("an unexpected box: " + quoted(MessageDialog(window).text()));
        if (FileDialog::is_one(window))
            throw DriverError("an unexpected dialog: " + quoted(window.text()));
    }
}

void Walker::check_boxes()
{
    constexpr const char* names[] = { "box 1", "box 2", "box 3" };
    for (std::size_t i = 0; i < model.boxes.size(); ++i) {
        expect_same(names[i], box(i).text(), model.boxes[i].text);
        expect_same("an edit mark", box(i).is_modified(), model.boxes[i].edited);
    }
    expect_same("the title", main().text(), model.title());
    expect_same("the search box", main().child(command::search_box).text(), model.search);
    expect_same("the save button", main().child(command::save_if_changed).is_enabled(), model.is_edited());
    const Window combo = main().child(command::file_combo);
    const book::Page& page = model.current();
    expect_same("the file count", static_cast<std::size_t>(combo.send(CB_GETCOUNT)), page.files.size());
    if (!page.files.empty())
        expect_same(
            "the chosen file", static_cast<std::uint64_t>(combo.send(CB_GETCURSEL)), page.current_file);
}

// Every file, written in this step or not.
void Walker::check_files()
{
    const std::wstring now = book::current_time_text();
    for (auto& [file, expected] : model.files) {
        const std::string bytes = e2e::file_bytes(file);
        if (const auto known = bytes_.find(file);
            known != bytes_.end() && known->second == bytes && bytes_of(expected) == bytes)
            continue;
        const book::Book on_disk = e2e::load_book(file);
        const std::string where = platform::to_utf8(fs::path(file).filename().wstring());
        if (const std::string wrong = model.learn(file, on_disk, step_began_, now); !wrong.empty())
            throw DriverError(where + ": " + wrong);
        const Record read = as_read(expected);
        for (std::size_t i = 0; i < read.pages.size(); ++i) {
            if (!(on_disk.pages[i] == read.pages[i].data))
                throw DriverError(where + " (order " + std::to_string(read.header.order_mode) + ", key "
                    + std::to_string(read.header.sort_key) + "), page " + std::to_string(i) + " differs in "
                    + difference(on_disk.pages[i], read.pages[i].data));
        }
        if (!(on_disk.header == read.header))
            throw DriverError(where + " differs in its header");
        if (bytes != bytes_of(expected))
            throw DriverError(where + " differs in its bytes");
        bytes_[file] = bytes;
        ++saves_;
    }
    for (const auto& [name, expected] : model.backups) {
        if (e2e::file_bytes(fs::path(model.backup_folder) / name) != bytes_of(expected))
            throw DriverError("the backup " + platform::to_utf8(name) + " differs");
    }
    if (root_.history() != model.history)
        throw DriverError("the history differs");
}

} // namespace walk
