#include "book/page_editor_view.hpp"

namespace book {

namespace {

RangeButton range_button(const Book& book, std::uint64_t position)
{
    RangeButton button{ .text = std::to_wstring(position + 1) };
    if (position < book.pages.size())
        button.selected = book.pages[position].selected;
    return button;
}

} // namespace

std::wstring paste_question(const PasteRequest& request)
{
    return (request.mode == ClipMode::copy ? L"コピーした " : L"カットした ") + std::to_wstring(request.count)
        + L" 枚のページを位置 [" + std::to_wstring(request.index + 1) + L"] に貼付けますか？";
}

std::wstring delete_question(const DeleteRequest& request)
{
    return L"選択した " + std::to_wstring(request.count) + L" 枚のページを削除しますか？";
}

PageEditorView page_editor_view(const PageEditor& editor, const Book& book)
{
    PageEditorView view;
    view.title = page_editor_title;
    if (editor.selected_count() != 0)
        view.title += L"  [ " + std::to_wstring(editor.selected_count()) + L"ページ選択中 ]";
    view.page_label = std::to_wstring(book.header.position + 1) + L" を選択";
    const Page* page = book.current_page();
    view.is_page_selected = page && page->selected == PageSelection::selected;
    view.is_range_selected = editor.is_range_selected();
    const PageRange range = editor.range();
    view.first = range_button(book, range.first);
    view.last = range_button(book, range.last);
    view.last.is_visible = range.first != range.last;
    return view;
}

ovlib::MenuRows page_editor_menu(const PageMenuState& state)
{
    ovlib::MenuRows rows;
    for (const PageMenuRow& row : page_menu_rows) {
        rows.push_back(ovlib::menu_item(row.command, row.text, row.is_enabled(state)));
        if (row.ends_group)
            rows.push_back(ovlib::menu_separator());
    }
    return rows;
}

namespace {

struct PageKeyRow {
    PageKey key;
    bool needs_ctrl;
    int command;
};
constexpr std::array page_keys{
    PageKeyRow{ PageKey::left, false, core::command::previous_page },
    PageKeyRow{ PageKey::right, false, core::command::next_page },
    PageKeyRow{ PageKey::home, false, core::command::first_page },
    PageKeyRow{ PageKey::end, false, core::command::last_page },
    PageKeyRow{ PageKey::space, false, core::command::select_page },
    PageKeyRow{ PageKey::del, false, core::command::delete_pages },
    PageKeyRow{ PageKey::c, true, core::command::copy_pages },
    PageKeyRow{ PageKey::v, true, core::command::paste_pages },
    PageKeyRow{ PageKey::x, true, core::command::cut_pages },
};

} // namespace

int page_key_command(PageKey key, bool is_ctrl_down)
{
    for (const PageKeyRow& row : page_keys)
        if (row.key == key)
            return row.needs_ctrl == is_ctrl_down ? row.command : 0;
    return 0;
}

} // namespace book
