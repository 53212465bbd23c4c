#include "book/wnd/replacewnd.hpp"
#include "book/replace_view.hpp"
#include "core/command_ids.hpp"
#include "look/wnd/fonts.hpp"
#include "look/wnd/group_frame.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/menu.hpp"

namespace book {

namespace command = core::command;

ReplaceWnd::ReplaceWnd(ovlib::Wnd* parent, int control_id, const Book& book, EditHost& host)
    : EditingWindow(parent, control_id, replace_client_size, host)
    , book_(book)
    , search_(this, replace_fields[0].id)
    , replacement_(this, replace_fields[1].id)
    , in_boxes_(this, replace_checks[0].id)
    , in_file_list_(this, replace_checks[1].id)
    , in_folder_(this, replace_checks[2].id)
    , ignore_case_(this, replace_checks[3].id)
{
}

std::wstring ReplaceWnd::class_info(WNDCLASSEXW& info)
{
    EditingWindow::class_info(info);
    return ovlib::window_class_name(L"replacewnd", 112);
}

bool ReplaceWnd::on_message(ovlib::WndMessage& message)
{
    return message.message == WM_PAINT ? on_paint() : EditingWindow::on_message(message);
}

bool ReplaceWnd::make_controls()
{
    const auto row = [](look::MyCheckBox& check, const ReplaceCheck& data) {
        check.apply_theme();
        return look::ToolControl{ &check, data.text, data.place };
    };
    const bool are_made = add_controls({
        { &search_, L"", replace_fields[0].place },
        { &replacement_, L"", replace_fields[1].place },
        row(in_boxes_, replace_checks[0]),
        row(in_file_list_, replace_checks[1]),
        row(in_folder_, replace_checks[2]),
        row(ignore_case_, replace_checks[3]),
    });
    if (are_made)
        set_text(replace_title);
    return are_made;
}

bool ReplaceWnd::on_paint() const
{
    const ovlib::PaintDC dc{ *this };
    HFONT const font = look::shared_font(look::SharedFont::ui_9);
    for (const ReplaceField& field : replace_fields)
        look::draw_label(dc, font, field.title_at, field.title);
    look::draw_group(dc, replace_targets_frame, replace_targets_title);
    return true;
}

void ReplaceWnd::open(const std::wstring& selection)
{
    changed_ = false;
    show(true);
    if (is_still_open() && takes_selection(search_.text(), selection))
        search_.set_text(selection);
}

look::MyCheckBox* ReplaceWnd::check_of(int id)
{
    for (look::MyCheckBox* check : { &in_boxes_, &in_file_list_, &in_folder_, &ignore_case_ })
        if (check->control_id() == id)
            return check;
    return nullptr;
}

bool ReplaceWnd::on_command(int id, int code)
{
    if (code == command::input_form_enter) {
        show_menu_below(id == search_.control_id() ? search_.hwnd() : replacement_.hwnd());
        return true;
    }
    if (code != 0)
        return false;
    if (look::MyCheckBox* check = check_of(id)) {
        check->toggle();
        return true;
    }
    switch (id) {
    case command::replace_all_pages:
    case command::replace_current_page:
        run(id);
        return true;
    default:
        return false;
    }
}

void ReplaceWnd::show_menu(POINT at)
{
    ovlib::Menu menu;
    menu.add_rows(replace_menu(changed_));
    menu.show_at(*this, 0, at);
}

void ReplaceWnd::show_menu_below(HWND control)
{
    RECT place{};
    GetWindowRect(control, &place);
    show_menu({ place.left, place.bottom });
}

// A field without a text sends no command for Enter, and the check boxes never do.
bool ReplaceWnd::on_enter()
{
    if (accepts_input())
        show_menu_below(GetFocus());
    return true;
}

void ReplaceWnd::load_again()
{
    if (host().restore_pages())
        changed_ = false;
}

ReplaceRequest ReplaceWnd::request() const
{
    ReplaceRequest request{ .search = search_.text(), .replacement = replacement_.text() };
    const std::array targets{ &in_boxes_, &in_file_list_, &in_folder_ };
    for (std::size_t i = 0; i < targets.size(); ++i)
        if (targets[i]->is_checked())
            request.targets |= replace_checks[i].target;
    request.letter_case = ignore_case_.is_checked() ? LetterCase::folded : LetterCase::exact;
    return request;
}

// A field is written only if its text changes, so that it keeps caret and selection otherwise.
void ReplaceWnd::clean_fields(ReplaceRequest& request)
{
    const ReplaceRequest typed = request;
    remove_separators(request);
    if (request.search != typed.search)
        search_.set_text(request.search);
    if (request.replacement != typed.replacement)
        replacement_.set_text(request.replacement);
}

const wchar_t* ReplaceWnd::close_question() const
{
    return close_replace_question;
}

void ReplaceWnd::run(int command)
{
    ReplaceRequest wanted = request();
    switch (replace_step(wanted)) {
    case ReplaceStep::nothing:
        return;
    case ReplaceStep::no_target:
        show_message(no_target_text, MB_OK);
        return;
    case ReplaceStep::replace:
        break;
    }
    clean_fields(wanted);
    const bool in_all = command == command::replace_all_pages;
    const std::uint64_t position = book_.header.position;
    const std::optional<std::size_t> count = run_in_host([&](EditHost& session) {
        return in_all ? session.replace_in_all_pages(wanted) : session.replace_in_current_page(wanted);
    });
    if (!count)
        return;
    changed_ = changed_ || *count != 0;
    if (is_still_open())
        show_message(in_all ? replaced_in_all_text(*count) : replaced_in_page_text(*count, position), MB_OK);
}

} // namespace book
