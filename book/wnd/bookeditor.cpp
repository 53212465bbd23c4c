// The page editor's controls, painting and what it shows.
#include "book/wnd/bookeditor.hpp"
#include "core/command_ids.hpp"
#include "look/page_bar_runs.hpp"
#include "look/theme.hpp"
#include "look/wnd/keys.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/menu.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace book {

namespace command = core::command;
namespace place = page_editor_place;

void BookEditor::FlatButton::set_page(const RangeButton& page)
{
    if (selected_ == page.selected && text() == page.text)
        return;
    selected_ = page.selected;
    set_text(page.text);
    repaint();
}

void BookEditor::FlatButton::draw_background()
{
    const RECT face = item().rcItem;
    fill_rect(canvas(), look::palette().panel_line, face);
    fill_rect(canvas(), look::palette().panel_back,
        { face.left + 1, face.top + 1, face.right - 1, face.bottom - 1 });
}

void BookEditor::FlatButton::draw_text()
{
    draw_label(look::page_label_color(look::palette(), selected_), look::palette().panel_back);
}

BookEditor::BookEditor(
    ovlib::Wnd* parent, int control_id, Book& book, EditHost& host, const ovlib::MenuPictures& menu_pictures)
    : EditingWindow(parent, control_id, page_editor_client_size, host)
    , book_(book)
    , editor_(book)
    , menu_pictures_(menu_pictures)
    , page_check_(this, command::select_page)
    , first_(this, command::first_page)
    , previous_(this, command::previous_page)
    , next_(this, command::next_page)
    , last_(this, command::last_page)
    , range_check_(this, command::select_range)
    , reset_(this, command::reset_range)
    , range_start_(this, command::go_to_range_start)
    , range_end_(this, command::go_to_range_end)
    , trace_(this, command::trace_selection)
{
}

std::wstring BookEditor::class_info(WNDCLASSEXW& info)
{
    EditingWindow::class_info(info);
    return ovlib::window_class_name(L"bookeditor", 344);
}

bool BookEditor::make_controls()
{
    for (look::MyCheckBox* check : { &page_check_, &range_check_, &trace_ })
        check->apply_theme();
    const bool are_made = add_controls({
        { &page_check_, L"", place::select_page },
        { &first_, L"", place::first_page },
        { &previous_, L"", place::previous_page },
        { &next_, L"", place::next_page },
        { &last_, L"", place::last_page },
        { &range_check_, select_range_label, place::select_range },
        { &reset_, reset_range_label, place::reset_range },
        { &range_start_, L"", place::range_start },
        { &range_end_, L"", place::range_end },
        { &trace_, trace_selection_label, place::trace_selection },
    });
    if (!are_made)
        return false;
    first_.load_res_image(L"front.png");
    previous_.load_res_image(L"prev.png");
    next_.load_res_image(L"next.png");
    last_.load_res_image(L"back.png");
    strip_.emplace(&book_);
    drawn_revision_.reset();
    return true;
}

void BookEditor::apply_theme()
{
    drawn_revision_.reset();
    if (is_open())
        draw_strip();
}

void BookEditor::open()
{
    editor_.reset();
    drawn_revision_.reset(); // pages may have been selected or loaded since the last time
    show(true);
}

void BookEditor::on_opening()
{
    EditingWindow::on_opening();
    show_state();
}

void BookEditor::update(KeepRange keep)
{
    if (!is_open() || !book_.current_page())
        return;
    editor_.update(keep, look::is_shift_down());
    show_state();
}

void BookEditor::show_state()
{
    const PageEditorView view = page_editor_view(editor_, book_);
    if (text() != view.title)
        set_text(view.title);
    if (page_check_.text() != view.page_label)
        page_check_.set_text(view.page_label);
    page_check_.set_checked(view.is_page_selected);
    range_check_.set_checked(view.is_range_selected);
    range_start_.set_page(view.first);
    show_range_end(view.last);
    draw_strip();
}

// The focus leaves the button before it is hidden; otherwise no control would have it and keys would be lost.
void BookEditor::show_range_end(const RangeButton& button)
{
    range_end_.set_page(button);
    if (!button.is_visible && GetFocus() == range_end_.hwnd())
        range_start_.set_focus();
    range_end_.show(button.is_visible);
}

// The selected pages are drawn only if they changed: a Book has up to 100,000 pages, and a drag draws the
// strip at each step.
void BookEditor::draw_strip()
{
    if (drawn_revision_ != book_.revision)
        strip_->redraw_strip();
    drawn_revision_ = book_.revision;
    const PageRange range = editor_.range();
    strip_->draw(range.first, range.last, book_.header.position);
    const RECT area = ovlib::to_rect(place::strip);
    InvalidateRect(hwnd(), &area, FALSE);
}

bool BookEditor::on_paint()
{
    const ovlib::PaintDC dc{ *this };
    if (strip_)
        strip_->view().copy_to(dc, { place::strip.left, place::strip.top });
    return true;
}

bool BookEditor::on_draw_item(ovlib::WndMessage& message) const
{
    return ovlib::route_draw_item(message) || menu_pictures_.on_message(message);
}

void BookEditor::show_menu(POINT at)
{
    ovlib::Menu menu;
    menu.add_rows(page_editor_menu(page_menu_state(editor_)), &menu_pictures_);
    menu.show_at(*this, 0, at);
}

} // namespace book
