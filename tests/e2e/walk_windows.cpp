// The windows beside the main one that show or change one page, used within one step of a walk.
#include "core/command_ids.hpp"
#include "tests/support/naive_search.hpp"
#include "walk_model.hpp"
#include "walk_report.hpp"
#include "walk_walker.hpp"
#include <commctrl.h>

namespace walk {

namespace {

namespace command = core::command;
using e2e::require;
using e2e::Window;

constexpr int palette_box_combo = 2520;
constexpr int palette_text_button = 2503;
constexpr int palette_back_button = 2504;
constexpr int result_list = 1;

} // namespace

void Model::apply_list(const std::vector<std::wstring>& entries)
{
    book::Page& page = current();
    page.files = entries;
    page.current_file = std::min<std::uint64_t>(page.current_file, entries.empty() ? 0 : entries.size() - 1);
}

void Model::choose_color(std::size_t box, bool is_text, std::uint32_t color)
{
    (is_text ? current().text_color : current().back_color)[box] = color;
}

std::size_t Model::hit_count()
{
    std::vector<book::SearchHit> hits;
    naive::match_page(current(), query(), hits);
    return hits.size();
}

void Model::choose_hits(std::size_t count)
{
    std::vector<book::SearchHit> hits;
    book::Page& page = current();
    naive::match_page(page, query(), hits);
    hits.resize(count);
    for (const book::SearchHit& hit : hits)
        if (hit.place >= book::file_place)
            page.current_file = hit.place - book::file_place;
}

Window Walker::show_side_window(int id, const std::wstring& class_name)
{
    main().post_command(id);
    require("the window shows", [&] { return side_window(class_name).exists(); });
    return side_window(class_name);
}

void Walker::hide_side_window(Window window)
{
    window.send(WM_CLOSE);
    require("the window is hidden", [&] { return !window.is_visible(); });
    fence();
}

void Walker::edit_list()
{
    std::vector<std::wstring> entries;
    std::wstring text;
    for (std::size_t count = below(5); count > 0; --count) {
        entries.push_back(L"C:\\無い\\" + std::to_wstring(below(30)) + L".txt");
        text += (chance(30) ? L"  " : L"") + entries.back() + (chance(30) ? L" \r\n\r\n" : L"\r\n");
    }
    note(std::to_string(entries.size()) + " entries");
    model.apply_list(entries);
    const Window editor = show_side_window(command::show_file_list_editor, L"ovlib_filelist_editor[192]");
    const Window list = editor.child(command::file_list_box);
    list.select(0, list.text().size());
    list.send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    editor.send_command(command::apply_file_list);
    hide_side_window(editor);
}

void Walker::choose_results()
{
    model.choose_first_hit(); // opening the window chooses the first row
    const Window results = show_side_window(command::toggle_results, L"ovlib_book_search_result_wnd[35]");
    const Window list = results.child(result_list);
    const std::size_t hits = model.hit_count();
    expect_same("the number of results", static_cast<std::size_t>(list.send(LVM_GETITEMCOUNT)), hits);
    const std::size_t rows = std::min<std::size_t>(hits, 1 + below(4));
    for (std::size_t row = 1; row < rows; ++row)
        list.send(WM_KEYDOWN, VK_DOWN, 1);
    model.choose_hits(rows);
    note(std::to_string(rows) + " of " + std::to_string(hits) + " rows");
    hide_side_window(results);
}

void Walker::choose_color()
{
    const std::size_t box = below(3);
    const bool is_text = chance(50);
    const COLORREF color = RGB(below(256), below(256), below(256));
    note((is_text ? "text " : "ground ") + std::to_string(box + 1));
    model.choose_color(box, is_text, color);
    const Window palette = show_side_window(command::show_palette, L"ovlib_palettewnd[75]");
    palette.child(palette_box_combo).send(CB_SETCURSEL, box);
    palette.post_command(is_text ? palette_text_button : palette_back_button);
    program_->answer_color_dialog(color);
    hide_side_window(palette);
}

} // namespace walk
