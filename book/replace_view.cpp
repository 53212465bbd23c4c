#include "book/replace_view.hpp"
#include "core/command_ids.hpp"

namespace book {

namespace command = core::command;

namespace {

std::wstring replaced_text(std::size_t count, const std::wstring& pages)
{
    return std::to_wstring(count) + L"件 置換しました\r\n[対象ページ: " + pages + L"]";
}

} // namespace

ReplaceStep replace_step(const ReplaceRequest& request)
{
    if (request.search.empty())
        return ReplaceStep::nothing;
    return request.targets == 0 ? ReplaceStep::no_target : ReplaceStep::replace;
}

std::wstring replaced_in_all_text(std::size_t count)
{
    return replaced_text(count, L"全て");
}

std::wstring replaced_in_page_text(std::size_t count, std::uint64_t position)
{
    return replaced_text(count, std::to_wstring(position + 1));
}

ovlib::MenuRows replace_menu(bool changed)
{
    using ovlib::menu_item;
    using ovlib::menu_separator;
    return { menu_item(command::replace_current_page, L"現在のページを置換"),
        menu_item(command::replace_all_pages, L"すべてのページを置換"), menu_separator(),
        menu_item(command::restore_book, L"置換の取消し(復元)", changed), menu_separator(),
        menu_item(command::close_window, L"終了") };
}

bool takes_selection(std::wstring_view search_text, std::wstring_view selection)
{
    return search_text.empty() && !selection.empty()
        && selection.find_first_of(L"\r\n") == std::wstring_view::npos;
}

} // namespace book
