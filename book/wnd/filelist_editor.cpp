#include "book/wnd/filelist_editor.hpp"
#include "book/file_list_text.hpp"
#include "core/command_ids.hpp"
#include "core/refresh.hpp"
#include "platform/scoped_flag.hpp"
#include <utility>

namespace book {

namespace command = core::command;

namespace {

constexpr look::ToolFrame frame{ file_list_client_size, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN,
    0, false };
constexpr LONG many_lines = WS_VSCROLL | WS_HSCROLL | ES_WANTRETURN | ES_AUTOVSCROLL | ES_MULTILINE;

} // namespace

bool FileListEditor::MyEditBox::create(const std::wstring& title)
{
    if (!EditBox::create(title))
        return false;
    set_subclassed(true);
    return true;
}

void FileListEditor::MyEditBox::create_params(CREATESTRUCTW& params)
{
    EditBox::create_params(params);
    params.style |= many_lines;
}

bool FileListEditor::MyEditBox::on_message(ovlib::WndMessage& message)
{
    constexpr std::uint64_t control_a = 1; // the character that Ctrl+A types
    switch (message.message) {
    case WM_COMMAND:
        return LOWORD(message.wparam) == command::accelerator_save && apply();
    case WM_CHAR:
        if (message.wparam != control_a)
            return false;
        select_all();
        return true;
    default:
        return false;
    }
}

// Applying may show a box, and the control may be destroyed meanwhile.
bool FileListEditor::MyEditBox::apply()
{
    const ovlib::WndWatch alive(this);
    parent()->send_command(
        command::apply_file_list, 0, static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(hwnd())));
    if (alive)
        set_focus();
    return true;
}

FileListEditor::FileListEditor(ovlib::Wnd* parent, int control_id, Program program)
    : ToolWindow(parent, control_id, frame)
    , program_(std::move(program))
    , box_(this, command::file_list_box)
    , apply_button_(this, command::apply_file_list)
    , close_button_(this, command::close_window)
{
}

std::wstring FileListEditor::class_info(WNDCLASSEXW& info)
{
    ToolWindow::class_info(info);
    return ovlib::window_class_name(L"filelist_editor", 192);
}

bool FileListEditor::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_COMMAND:
        return on_command(LOWORD(message.wparam), HIWORD(message.wparam));
    case WM_CLOSE:
        return on_close(message);
    case WM_NCHITTEST:
        return move_by_background(message);
    default:
        return ToolWindow::on_message(message);
    }
}

bool FileListEditor::make_controls()
{
    set_text(file_list_title);
    if (!add_controls({
            { &box_, L"", { 8, 8, 672, 360 } },
            { &apply_button_, L"変更の適用", { 464, 368, 564, 392 } },
            { &close_button_, L"閉じる", { 572, 368, 672, 392 } },
        }))
        return false;
    apply_button_.enable(false);
    box_.set_read_only(is_read_only_ || is_held_);
    return true;
}

void FileListEditor::on_opening()
{
    load_page();
    center(parent(), false);
}

// A closed window keeps no text.
void FileListEditor::show(bool visible)
{
    ToolWindow::show(visible);
    if (!visible && hwnd())
        show_text({});
}

bool FileListEditor::on_command(int id, int code)
{
    switch (id) {
    case command::file_list_box:
        if (code == command::edit_changed)
            note_typing();
        return true;
    case command::apply_file_list:
        if (is_modified() && !is_held_)
            program_.apply();
        return true;
    case command::close_window:
        on_cancel();
        return true;
    default:
        return false;
    }
}

// The system also reports a change when the user only selects all, or undoes nothing.
void FileListEditor::note_typing()
{
    if (!is_modified())
        return;
    loaded_.reset();
    apply_button_.enable(true);
    if (!apply_button_.is_highlighted())
        apply_button_.set_highlighted(true);
    parent()->send_command(command::file_list_box, command::edit_changed,
        static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(box_.hwnd())));
}

void FileListEditor::on_cancel()
{
    if (is_asking_ || is_held_)
        return;
    const ovlib::WndWatch alive(this);
    if (is_modified() && !program_.may_close())
        return;
    if (alive && is_window())
        send(WM_CLOSE, 0, 0);
}

bool FileListEditor::on_close(ovlib::WndMessage& message)
{
    const ovlib::WndWatch alive(this);
    clear_modified();
    parent()->send_command(command::renew_edited_mark, 0, 0);
    parent()->send_command(command::request_refresh, 0, core::refresh::applied_file_list);
    return !alive || ToolWindow::on_message(message);
}

void FileListEditor::load_page()
{
    const Page* const page = program_.page();
    const FileListText wanted = page ? file_list_text(*page) : FileListText{};
    const std::uint64_t file = page ? page->current_file : 0;
    const bool is_there = shows(wanted.text);
    if (!is_there || loaded_file_ != file) {
        box_.set_redraw(false);
        if (!is_there)
            show_text(wanted.text);
        box_.set_selection(static_cast<int>(wanted.start), static_cast<int>(wanted.end));
        box_.line_scroll(
            0, static_cast<int>(wanted.line) - static_cast<int>(box_.send(EM_GETFIRSTVISIBLELINE, 0, 0)));
        box_.scroll_caret();
        box_.set_redraw(true);
        RedrawWindow(box_.hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW);
    }
    loaded_file_ = file;
    loaded_ = wanted.text;
    clear_modified();
    parent()->send_command(command::renew_edited_mark, 0, 0);
}

bool FileListEditor::shows(const std::wstring& text) const
{
    return loaded_ ? *loaded_ == text : box_.text() == text;
}

// The limit comes first: a control refuses every key if its text is as long as its limit.
void FileListEditor::show_text(const std::wstring& text)
{
    box_.set_limit(static_cast<int>(file_list_text_limit(text.size())));
    box_.renew_text(text);
    loaded_ = text;
}

// A disabled button would keep the focus.
void FileListEditor::clear_modified()
{
    if (!hwnd())
        return;
    box_.set_modified(false);
    if (!apply_button_.is_enabled())
        return;
    if (GetFocus() == apply_button_.hwnd())
        box_.set_focus();
    apply_button_.enable(false);
    apply_button_.set_highlighted(false);
}

void FileListEditor::set_read_only(bool read_only)
{
    is_read_only_ = read_only;
    show_read_only();
}

void FileListEditor::set_held(bool held)
{
    is_held_ = held;
    show_read_only();
}

void FileListEditor::show_read_only()
{
    const bool read_only = is_read_only_ || is_held_;
    if (hwnd() && box_.is_read_only() != read_only)
        box_.set_read_only(read_only);
}

int FileListEditor::ask(const std::wstring& question)
{
    if (!is_window())
        return IDCANCEL;
    const platform::ScopedFlag asking{ is_asking_ };
    return show_message(question, MB_YESNOCANCEL | MB_ICONQUESTION);
}
} // namespace book
