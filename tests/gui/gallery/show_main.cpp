// The controls that show facts about a Book: tabs, page slider and status bar of the main window, and the
// page editor's bar.
#include "exhibits.hpp"
#include "look/page_bar_runs.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/myslider.hpp"
#include "look/wnd/mystatusbar.hpp"
#include "look/wnd/page_bar.hpp"
#include "look/wnd/tabwnd.hpp"

namespace gallery {

namespace {

constexpr std::size_t page_count = 48;
constexpr std::uint64_t shown_position = 8;

book::Page made_page(std::size_t index)
{
    book::Page page;
    page.stamp = L"2026010203040520260506070809";
    page.text[0] = L"見出し " + std::to_wstring(index) + L"\r\n本文";
    page.mark = index % 5 == 0;
    if (index % 4 == 0) {
        page.tab_number = 1; // renumbered when the counts are refreshed
        page.tab_color = look::tab_color(index / 4).value;
    }
    if (index >= 12 && index < 18)
        page.selected = book::PageSelection::selected;
    if (index >= 30 && index < 33)
        page.selected = book::PageSelection::pasted;
    return page;
}

book::Book& shown_book()
{
    static book::Book book = [] {
        book::Book made;
        for (std::size_t i = 0; i < page_count; ++i)
            made.pages.push_back(made_page(i));
        made.header.position = shown_position;
        made.needs_update = true;
        made.refresh_counts();
        return made;
    }();
    return book;
}

void add_page_buttons(GalleryWnd& wnd, const RECT& slider)
{
    struct End {
        const wchar_t* picture;
        LONG left;
    };
    for (const End& end : { End{ L"front.png", slider.left + 1 }, End{ L"prev.png", slider.left + 19 },
             End{ L"next.png", slider.right - 38 }, End{ L"back.png", slider.right - 20 } }) {
        const RECT place{ end.left, slider.top + 1, end.left + 18, slider.bottom - 1 };
        wnd.add<look::ImageButton>(place, L"").load_res_image(end.picture);
    }
}

// The buttons come first, because a window created earlier is above a later one.
void show_page_slider(Shelf& shelf)
{
    const RECT place = shelf.place(355, 28, L"MySlider, with the page buttons");
    add_page_buttons(shelf.wnd(), place);
    auto& slider = shelf.wnd().add<look::MySlider>(place, L"");
    slider.set_font(shared_font(SharedFont::arial_9));
    slider.apply_theme();
    slider.show_page(page_count, shown_position);
}

void show_page_bar(Shelf& shelf)
{
    const auto bar = std::make_shared<look::PageBar>(&shown_book());
    const RECT place = shelf.place(look::page_bar_size.width, look::page_bar_size.height, L"PageBar");
    shelf.wnd().draw([bar, place](HDC dc) {
        bar->redraw_strip();
        bar->draw(6, 14, shown_position);
        BitBlt(dc, place.left, place.top, bar->view().width, bar->view().height, bar->view().dc().handle(), 0,
            0, SRCCOPY);
    });
}

} // namespace

void show_main_parts(Shelf& shelf)
{
    shelf.group(L"TabWnd, MySlider, PageBar, MyStatusBar");
    auto& tabs = shelf.wnd().keep(std::make_unique<look::TabWnd>(&shelf.wnd(), &shown_book()));
    tabs.create(L"");
    tabs.set_rect(shelf.place(1262, 22, L""), false);
    tabs.rebuild();
    shelf.end_row();
    show_page_slider(shelf);
    show_page_bar(shelf);
    auto& status = shelf.wnd().add<look::MyStatusBar>({}, L"", &shown_book());
    status.send(WM_SIZE, 0, 0);
    status.rewrite_parts();
}

} // namespace gallery
