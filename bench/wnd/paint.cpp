// Painting each control alone, at its size in the program.
#include "bench/harness.hpp"
#include "book/book.hpp"
#include "core/folders.hpp"
#include "look/page_bar_runs.hpp"
#include "look/tab_strip.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/input_form.hpp"
#include "look/wnd/my_check_box.hpp"
#include "look/wnd/my_list_view.hpp"
#include "look/wnd/mybox.hpp"
#include "look/wnd/myslider.hpp"
#include "look/wnd/mystatusbar.hpp"
#include "look/wnd/page_bar.hpp"
#include "look/wnd/tabwnd.hpp"
#include "look/wnd/warningwnd.hpp"
#include "ovlib/gui/combobox.hpp"
#include "ovlib/gui/gdip.hpp"
#include "ovlib/gui/owner_drawn.hpp"
#include "ovlib/gui/tipwnd.hpp"
#include "ovlib/win_app.hpp"
#include "tests/support/built_files.hpp"
#include <commctrl.h>
#include <memory>

namespace bench {

namespace {

using look::SharedFont;

constexpr int paints = 200; // per round
constexpr double most_ms = 1; // for one paint

// Controls painted by the system have no target: they are measured for comparison.
enum class Target { ours, systems };

void pump()
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
}

// The parent of the measured controls; draws the owner-drawn ones.
class Host : public ovlib::BaseWnd {
public:
    bool on_message(ovlib::WndMessage& message) override
    {
        if (message.message != WM_DRAWITEM)
            return false;
        if (ovlib::route_draw_item(message))
            return true;
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(message.lparam);
        auto* status = dynamic_cast<look::MyStatusBar*>(from_handle(item.hwndItem));
        return status && status->draw_item(item);
    }
    void on_destroyed(ovlib::WndMessage&) override { }
    void create_params(CREATESTRUCTW& params) override
    {
        BaseWnd::create_params(params);
        params.style |= WS_CLIPCHILDREN;
        params.x = params.y = 10;
        params.cx = 1380;
        params.cy = 854;
    }
};

// The yardstick: the same area filled and copied to the screen once.
class PlainArea : public ovlib::ChildWnd {
public:
    PlainArea(ovlib::Wnd* parent, int control_id)
        : ChildWnd(parent, control_id)
    {
    }
    bool on_message(ovlib::WndMessage& message) override
    {
        if (message.message == WM_ERASEBKGND) {
            message.result = 1;
            return true;
        }
        return message.message == WM_PAINT && paint();
    }

private:
    bool paint()
    {
        const ovlib::PaintDC dc{ *this };
        const SIZE size = client_size();
        if (!buffer_.is_created())
            buffer_.create(size.cx, size.cy);
        const RECT area{ 0, 0, size.cx, size.cy };
        FillRect(buffer_.dc().handle(), &area, static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH)));
        buffer_.copy_to(dc);
        return true;
    }

    ovlib::BackBuffer buffer_;
};

Work painting_of(HWND hwnd)
{
    return [hwnd] {
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        GdiFlush();
    };
}

Work painting(const ovlib::Wnd& wnd)
{
    return painting_of(wnd.hwnd());
}

class PaintBench {
public:
    explicit PaintBench(Bench& bench)
        : bench_(bench)
    {
        host_.create(L"bench");
        pump();
    }
    ~PaintBench() { host_.destroy(); }

    Host& host() { return host_; }

    template <class Control, class... Arguments>
    Control& add(SIZE size, const std::wstring& text, Arguments... arguments)
    {
        auto made = std::make_unique<Control>(&host_, next_id_++, arguments...);
        Control& control = *made;
        control.create(text);
        control.set_font(look::shared_font(SharedFont::ui_9));
        control.set_rect({ 8, 8, 8 + size.cx, 8 + size.cy }, false);
        shown_ = std::move(made);
        return control;
    }
    // Measures the control that was added last, alone on the host.
    void run(const std::string& name, Target target = Target::ours)
    {
        run(name, *shown_, target);
        shown_->destroy();
        shown_.reset();
    }
    void run(const std::string& name, ovlib::Wnd& wnd, Target target = Target::ours)
    {
        wnd.show_cmd(SW_SHOWNA);
        pump();
        measure(name, painting(wnd), wnd.client_size(), target);
    }
    void measure(const std::string& name, const Work& work, SIZE area, Target target = Target::ours)
    {
        PlainArea plain{ &host_, 1 };
        plain.create(L"");
        plain.set_rect({ 8, 400, 8 + area.cx, 400 + area.cy }, false);
        pump();
        Case one{ "paint " + name, work, "the same area filled and copied", painting(plain), 0,
            target == Target::ours ? most_ms : 0 };
        one.repeats = paints;
        bench_.run(one);
        plain.destroy();
    }

private:
    Bench& bench_;
    Host host_;
    std::unique_ptr<ovlib::Wnd> shown_;
    int next_id_ = 100;
};

book::Book tabbed_book()
{
    book::Book made;
    for (std::size_t i = 0; i < 100; ++i) {
        book::Page page;
        page.stamp = L"2026010203040520260506070809";
        page.text[0] = L"見出し " + std::to_wstring(i);
        page.tab_number = i % 4 == 0;
        page.tab_color = look::tab_color(i / 4 % look::named_tab_color_count).value;
        page.selected = static_cast<book::PageSelection>(i % 3);
        made.pages.push_back(page);
    }
    made.needs_update = true;
    made.refresh_counts();
    return made;
}

void paint_buttons(PaintBench& paint)
{
    paint.add<ovlib::CustomPushButton>({ 84, 24 }, L"押しボタン");
    paint.run("CustomPushButton, 84 x 24");
    paint.add<ovlib::CustomCheckBox>({ 150, 18 }, L"大文字・小文字を区別しない").set_checked(true);
    paint.run("CustomCheckBox, 150 x 18");
    auto& check = paint.add<look::MyCheckBox>({ 150, 18 }, L"大文字・小文字を区別しない");
    check.apply_theme();
    check.set_checked(true);
    paint.run("MyCheckBox, 150 x 18");
    paint.add<look::ImageButton>({ 65, 46 }, L"Book");
    paint.run("ImageButton with text, 65 x 46");
    paint.add<look::ImageButton>({ 22, 22 }, L"").load_res_image(L"loupe.png");
    paint.run("ImageButton with picture, 22 x 22");
    paint.add<look::ImageButton>({ 266, 45 }, L"ファイルの追加").load_res_image(L"add_files.png");
    paint.run("ImageButton with both, 266 x 45");
}

// The system draws the bar's background; only the parts are ours.
void paint_status_bar(PaintBench& paint, const book::Book& book)
{
    auto& status = paint.add<look::MyStatusBar>({ 1374, 23 }, L"", &book);
    status.send(WM_SIZE, 0, 0);
    paint.measure(
        "parts of MyStatusBar",
        [&] {
            const ovlib::ClientDC dc{ status };
            for (int part = 0; part < status.part_count(); ++part)
                status.draw_part(part, dc.handle(), status.part_rect(part));
            GdiFlush();
        },
        status.client_size(), Target::ours);
    paint.run("MyStatusBar, ground and parts", Target::systems);
    paint.add<ovlib::StatusBar>({ 1374, 23 }, L"").send(WM_SIZE, 0, 0);
    paint.run("StatusBar without parts", Target::systems);
}

void paint_book_parts(PaintBench& paint)
{
    book::Book book = tabbed_book();
    auto& slider = paint.add<look::MySlider>({ 355, 28 }, L"");
    slider.apply_theme();
    slider.show_page(book.pages.size(), 40);
    paint.measure("MySlider, drawn anew",
        [&] {
            slider.redraw();
            slider.repaint();
            GdiFlush();
        },
        { 355, 28 });
    paint.run("MySlider, 355 x 28");
    paint_status_bar(paint, book);
    look::TabWnd tabs{ &paint.host(), &book };
    tabs.create(L"");
    tabs.set_rect({ 12, 2, 1362, 24 }, false);
    tabs.rebuild();
    paint.run("TabWnd with 25 tabs, 1350 x 22", tabs);
    tabs.destroy();
    look::PageBar bar{ &book };
    paint.measure("PageBar, 370 x 16",
        [&] {
            const ovlib::ClientDC dc{ paint.host() };
            bar.redraw_strip();
            bar.draw(20, 40, 30);
            bar.view().copy_to(dc);
            GdiFlush();
        },
        { look::page_bar_size.width, look::page_bar_size.height });
}

void paint_list(PaintBench& paint)
{
    auto& list = paint.add<look::MyListView>({ 300, 300 }, L"");
    for (const wchar_t* title : { L"Page", L"文字列", L"位置" })
        list.add_column(title, 100);
    for (int row = 0; row < 100; ++row) {
        list.add_row(L"p." + std::to_wstring(row));
        list.set_cell(row, 1, L"吾輩は猫である");
        list.set_cell(row, 2, L"12-17");
    }
    paint.run("MyListView with its header, 300 x 300", Target::systems);
    auto& empty = paint.add<look::MyListView>({ 300, 26 }, L"");
    for (const wchar_t* title : { L"Page", L"文字列", L"位置" })
        empty.add_column(title, 100);
    paint.measure("header of MyListView", painting_of(GetDlgItem(empty.hwnd(), 0)), { 300, 24 });
}

void paint_popups(PaintBench& paint)
{
    look::WarningWnd banner{ &paint.host() };
    banner.create(L"");
    banner.show(L"「猫」はこれ以上見つかりません");
    paint.run("WarningWnd", banner);
    banner.destroy();
    ovlib::TipWnd tip{ &paint.host() };
    tip.create(L"");
    tip.set_font(look::shared_font(SharedFont::ui_9));
    tip.show(L"ヒント\r\n二行目", { 300, 300 });
    paint.run("TipWnd", tip);
    paint.measure(
        "TipWnd, drawn anew",
        [&] {
            tip.show(L"ヒント\r\n二行目", { 300, 300 });
            GdiFlush();
        },
        tip.client_size());
    tip.destroy();
}

void paint_system_controls(PaintBench& paint)
{
    auto& combo = paint.add<ovlib::ComboBox>({ 350, 20 }, L"", static_cast<DWORD>(CBS_DROPDOWNLIST));
    combo.add(L"資料.pdf");
    combo.select(0);
    paint.run("ComboBox, 350 x 20", Target::systems);
    paint.add<look::BookSearchBox>({ 200, 22 }, L"猫 名前");
    paint.run("BookSearchBox, 200 x 22", Target::systems);
    std::wstring text;
    for (int line = 0; line < 40; ++line)
        text += L"吾輩は猫である。名前はまだ無い。どこで生れたかとんと見当がつかぬ。\r\n";
    paint.add<look::QBox>({ 650, 560 }, L"").set_text(text);
    paint.run("QBox full of text, 650 x 560", Target::systems);
}

} // namespace

void run_paint(Bench& bench)
{
    ovlib::WinApp::instance = GetModuleHandleW(nullptr);
    const INITCOMMONCONTROLSEX request{ sizeof request, ICC_WIN95_CLASSES };
    InitCommonControlsEx(&request);
    core::init_folders(test_support::dist_path());
    const ovlib::GDIPSession gdip;
    {
        const ovlib::MemDC dc;
        look::make_shared_fonts(dc.handle());
    }
    look::load_theme(look::theme_standard);
    {
        PaintBench paint{ bench };
        paint_buttons(paint);
        paint_book_parts(paint);
        paint_list(paint);
        paint_popups(paint);
        paint_system_controls(paint);
    }
    look::free_shared_fonts();
}

} // namespace bench
