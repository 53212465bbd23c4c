#include "app/wnd/main_drops.hpp"
#include "app/drop_rules.hpp"
#include "app/wnd/main_parts.hpp"
#include "core/command_ids.hpp"
#include "look/wnd/drop_option_wnd.hpp"
#include "media/attachment_name.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "platform/scoped_flag.hpp"
#include <array>
#include <utility>

namespace app {

namespace command = core::command;
using platform::Point;

namespace {

platform::Rect screen_rect(HWND window)
{
    RECT rect{};
    GetWindowRect(window, &rect);
    return ovlib::from_rect(rect);
}

Point center_of(const platform::Rect& rect)
{
    return { rect.left + rect.width() / 2, rect.top + rect.height() / 2 };
}

} // namespace

MainDrops::MainDrops(MainParts& parts)
    : parts_(parts)
{
}

MainDrops::~MainDrops()
{
    stop();
}

void MainDrops::start()
{
    target_ = ovlib::make_com<ovlib::DropFiles>(&parts_.window,
        ovlib::DropFiles::Hooks{
            [this] { return is_accepting(); }, [this](const std::wstring& text) { show_failure(text); } });
    target_->message = drop_notification;
    target_->allowed_kinds = ovlib::all_drop_kinds;
    if (FAILED(RegisterDragDrop(parts_.window.hwnd(), target_.Get())))
        stop();
}

void MainDrops::stop()
{
    if (!target_)
        return;
    target_->detach();
    target_.Reset();
    RevokeDragDrop(parts_.window.hwnd());
}

// While a drop is handled the next one would replace what the user is asked about.
bool MainDrops::is_accepting() const
{
    return !question_ && can_ask();
}

bool MainDrops::can_ask() const
{
    return target_ && !is_asking_ && parts_.talk.is_accepting_input() && !parts_.talk.is_busy()
        && !parts_.session.is_loading();
}

std::int64_t MainDrops::on_notification(std::uint16_t code, std::int64_t lparam)
{
    std::int64_t result = 0;
    const auto known = static_cast<ovlib::DropCode>(code);
    if (target_ && target_->take_notification(known, lparam) && is_accepting())
        parts_.session.run([&] { result = serve(known, lparam); });
    return result;
}

// The list of the target is emptied: a message that no drop has sent finds nothing.
std::int64_t MainDrops::serve(ovlib::DropCode code, std::int64_t lparam)
{
    const Microsoft::WRL::ComPtr<ovlib::DropFiles> target = target_;
    switch (code) {
    case ovlib::DropCode::files:
        take_question(ovlib::to_point(ovlib::mouse_on_screen()));
        return 0;
    case ovlib::DropCode::virtual_files:
        take_question(center_of(screen_rect(parts_.window.hwnd())));
        return 0;
    case ovlib::DropCode::text:
        for (const std::wstring& text : std::exchange(target->paths, {}))
            put_text(text, { target->point.x, target->point.y });
        return 0;
    case ovlib::DropCode::save_path:
        return choose_path(target->proposed_name(lparam)) ? 1 : 0;
    default:
        return 0;
    }
}

void MainDrops::take_question(Point center)
{
    Question question{ std::exchange(target_->paths, {}), center, note_page(parts_.session.book()),
        note_book(parts_.session.book()) };
    if (question.paths.empty())
        return;
    question_ = std::move(question);
    if (!parts_.window.post(drop_question, 0, 0))
        ask_later();
}

void MainDrops::ask_later()
{
    constexpr UINT soon = 100; // milliseconds
    SetTimer(parts_.window.hwnd(), question_timer, soon, nullptr);
}

void MainDrops::ask_about_files()
{
    KillTimer(parts_.window.hwnd(), question_timer);
    if (!question_ || !target_)
        return;
    // The source was told that its files were taken, so they are not dropped for a box that came between.
    if (!can_ask()) {
        ask_later();
        return;
    }
    const std::optional<Question> question = std::exchange(question_, std::nullopt);
    parts_.session.run([&] {
        const int chosen = ask(*question);
        const bool is_known = chosen == command::add_dropped_files || chosen == command::add_dropped_pages;
        if (!is_known || parts_.talk.is_gone() || !is_same(*question))
            return;
        paths_ = question->paths;
        parts_.window.send_command(chosen, 0, 0);
        paths_.clear();
    });
}

// The other windows of the program can still send commands.
bool MainDrops::is_same(const Question& question) const
{
    const book::Book& book = parts_.session.book();
    return note_page(book) == question.page && note_book(book) == question.book;
}

int MainDrops::ask(const Question& question)
{
    const platform::ScopedFlag asking{ is_asking_ };
    const InputGate::Hold hold{ parts_.talk.input() };
    SetForegroundWindow(parts_.window.hwnd());
    look::DropOptionWnd options{ &parts_.window };
    const BoxOwner owner{ parts_.talk, options };
    return options.ask(question.center);
}

std::vector<std::wstring> MainDrops::take_paths()
{
    return std::exchange(paths_, {});
}

// The text goes to the start of the selection, which stays, so that a drop replaces nothing.
void MainDrops::put_text(const std::wstring& text, Point at)
{
    std::array<platform::Rect, book::box_count> places;
    for (std::size_t i = 0; i < book::box_count; ++i)
        places[i] = screen_rect(parts_.desk.boxes()[i]->hwnd());
    const std::optional<std::size_t> found = box_at(places, at);
    if (text.empty() || !found || parts_.desk.boxes()[*found]->is_read_only())
        return;
    look::MyBox& box = *parts_.desk.boxes()[*found];
    int start = 0;
    int end = 0;
    box.selection(start, end);
    box.set_caret(start);
    box.replace_selection(text_for_box(*found, text));
    SetForegroundWindow(parts_.window.hwnd());
    box.set_focus();
}

bool MainDrops::choose_path(std::wstring* name)
{
    if (!name)
        return false;
    SetForegroundWindow(parts_.window.hwnd());
    *name = parts_.talk.choose_attachment_path(media::attachment_name(*name));
    return !name->empty();
}

void MainDrops::show_failure(const std::wstring& text)
{
    const InputGate::Hold hold{ parts_.talk.input() };
    SetForegroundWindow(parts_.window.hwnd());
    parts_.window.message_box(text, ovlib::save_failure_caption, MB_ICONWARNING);
}

} // namespace app
