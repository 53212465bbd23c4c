#include "exhibits.hpp"
#include "look/wnd/my_list_view.hpp"

namespace gallery {

namespace {

void fill(ovlib::ReportListView& list)
{
    list.add_column(L"Page", 50);
    list.add_column(L"文字列", 150);
    list.add_column(L"長い見出しは切れる", 90);
    for (int row = 0; row < 6; ++row) {
        list.add_row(L"p." + std::to_wstring(row + 1));
        list.set_cell(row, 1, row % 2 == 0 ? L"吾輩は猫である" : L"長い文字列は欄の終わりで切れて、点が続く");
        list.set_cell(row, 2, std::to_wstring(row * 12) + L"-" + std::to_wstring(row * 12 + 5));
    }
}

} // namespace

void show_lists(Shelf& shelf)
{
    shelf.group(L"MyListView and ReportListView");
    auto& list = shelf.add<look::MyListView>(
        { 350, 108 }, L"with a row selected", L"", static_cast<DWORD>(LVS_SHOWSELALWAYS));
    fill(list);
    list.set_extended_style(LVS_EX_FULLROWSELECT);
    list.select(1);
    auto& narrow = shelf.add<look::MyListView>({ 170, 76 }, L"scrolled", L"");
    fill(narrow);
    narrow.select(5);
    auto& disabled = shelf.add<look::MyListView>({ 170, 76 }, L"disabled", L"");
    fill(disabled);
    disabled.enable(false);
    fill(shelf.add<ovlib::ReportListView>({ 350, 76 }, L"the library's own", L""));
}

} // namespace gallery
