#include "app/wnd/main_controls.hpp"
#include "book/query.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace app {

namespace command = core::command;

namespace {

using look::SharedFont;
using ovlib::to_rect;

constexpr SharedFont button_font = SharedFont::ui_9_bold;
constexpr SharedFont check_font = SharedFont::jp_7_bold;
constexpr SharedFont slider_font = SharedFont::jp_7_bold;
constexpr SharedFont search_font = SharedFont::ui_9;
constexpr SharedFont combo_font = SharedFont::ui_8;

// The control of the row with this command.
template <class Rows, class Controls> auto* find(const Rows& rows, const Controls& controls, int command)
{
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (rows[i].command == command)
            return controls[i].get();
    }
    return static_cast<typename Controls::value_type::pointer>(nullptr);
}

bool create_with_font(ovlib::Wnd& control, const wchar_t* text, SharedFont font)
{
    if (!control.create(text))
        return false;
    control.set_font(look::shared_font(font));
    return true;
}

} // namespace

MainControls::MainControls(ovlib::Wnd* parent, book::Book* book)
    : tabs_(parent, book)
    , slider_(parent, 0)
    , search_box_(parent, command::search_box)
    , file_combo_(parent, command::file_combo, CBS_DROPDOWNLIST)
    , status_bar_(parent, 0, book)
{
    for (const ButtonRow& row : button_rows)
        buttons_.push_back(std::make_unique<look::ImageButton>(parent, row.command));
    for (const CheckRow& row : check_rows)
        checks_.push_back(std::make_unique<look::MyCheckBox>(parent, row.command));
}

bool MainControls::create()
{
    return tabs_.create(L"") && create_buttons() && create_checks()
        && create_with_font(slider_, L"", slider_font) && create_with_font(search_box_, L"", search_font)
        && create_with_font(file_combo_, L"", combo_font) && status_bar_.create(L"");
}

// A picture that cannot be loaded is no failure: the button works without it.
bool MainControls::create_buttons()
{
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const ButtonRow& row = button_rows[i];
        if (!create_with_font(*buttons_[i], row.text, button_font))
            return false;
        if (*row.picture)
            buttons_[i]->load_res_image(row.picture);
    }
    return true;
}

bool MainControls::create_checks()
{
    for (std::size_t i = 0; i < checks_.size(); ++i) {
        if (!create_with_font(*checks_[i], check_rows[i].text, check_font))
            return false;
    }
    return true;
}

void MainControls::place(const MainLayout& layout)
{
    tabs_.set_rect(to_rect(layout.tabs), false);
    for (std::size_t i = 0; i < buttons_.size(); ++i)
        buttons_[i]->set_rect(to_rect(layout.*button_rows[i].place), false);
    for (std::size_t i = 0; i < checks_.size(); ++i) {
        checks_[i]->set_rect(to_rect(layout.*check_rows[i].place), false);
        if (check_rows[i].width == CheckWidth::as_text)
            checks_[i]->fit_to_text();
    }
    slider_.set_rect(to_rect(layout.slider), false);
    search_box_.set_rect(to_rect(layout.search_box), false);
    file_combo_.set_rect(to_rect(layout.file_combo), false);
    // On WM_SIZE a status bar takes its place from the size of its parent.
    status_bar_.send(WM_SIZE, 0, 0);
}

look::ImageButton* MainControls::button(int command) const
{
    return find(button_rows, buttons_, command);
}

look::MyCheckBox* MainControls::check(int command) const
{
    return find(check_rows, checks_, command);
}

void MainControls::enable(ovlib::Wnd& control, bool enabled)
{
    if (!enabled && control.focus() == control.hwnd())
        control.parent()->set_focus();
    control.enable(enabled);
}

void MainControls::show_buttons(std::span<const ButtonState> states)
{
    for (const ButtonState& state : states) {
        if (look::MyCheckBox* box = check(state.command)) {
            box->set_checked(state.checked);
            enable(*box, state.enabled);
        } else if (look::ImageButton* plain = button(state.command)) {
            enable(*plain, state.enabled);
        }
    }
}

void MainControls::show_edited(bool edited)
{
    look::ImageButton& save = *button(command::save_if_changed);
    enable(save, edited);
    save.set_highlighted(edited);
}

void MainControls::show_folder(bool has_folder)
{
    button(command::show_folder_menu)->set_highlighted(has_folder);
}

void MainControls::show_files(const FileCombo& files)
{
    if (shows(files))
        return;
    file_combo_.set_redraw(false);
    file_combo_.clear();
    for (const std::wstring& row : files.rows)
        file_combo_.add(row);
    file_combo_.select(static_cast<int>(files.selected));
    file_combo_.set_min_visible(static_cast<int>(files.visible_rows));
    file_combo_.set_redraw(true);
    RedrawWindow(file_combo_.hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

bool MainControls::shows(const FileCombo& files) const
{
    const std::size_t count = files.rows.size();
    const int selected = files.selected < count ? static_cast<int>(files.selected) : CB_ERR;
    if (file_combo_.count() != static_cast<int>(count) || file_combo_.selected() != selected
        || file_combo_.min_visible() != static_cast<int>(files.visible_rows))
        return false;
    for (std::size_t row = 0; row < count; ++row) {
        if (file_combo_.item_text(static_cast<int>(row)) != files.rows[row])
            return false;
    }
    return true;
}

bool MainControls::is_on(int command) const
{
    return check(command)->is_checked();
}

book::SearchQuery MainControls::query() const
{
    book::SearchQuery query;
    query.terms = book::query_terms(search_box_.text());
    query.all_terms = is_on(command::toggle_all_terms);
    query.ignore_case = is_on(command::toggle_ignore_case);
    query.in_file_list = is_on(command::toggle_file_list_search);
    return query;
}

} // namespace app
