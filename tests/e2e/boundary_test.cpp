// The boundary between the boxes, dragged with the mouse.
#include "driver_main_window.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

class Boundary : public MainWindowTest {
protected:
    app::PageBoxes boxes(int divider) const { return app::with_divider(layout().boxes, divider); }
    int first() const { return app::first_divider(layout().boxes); }
    // The middle of that gap while the boundary is at `divider`.
    POINT grip(app::BoxGap gap, int divider) const { return middle(app::gap_rect(boxes(divider), gap)); }
    void expect_divider(int divider, const Where& where = Where::current())
    {
        const app::PageBoxes expected = boxes(divider);
        const std::pair<int, app::Rect> places[] = { { command::box_1, expected.first },
            { command::box_2, expected.second }, { command::box_3, expected.third } };
        for (const auto& [id, rect] : places) {
            expect_soon(
                rect, [&, box_id = id] { return client_rect(box_id); }, where);
        }
    }
    app::Rect client_rect(int id) const
    {
        RECT rect = box(id).rect();
        MapWindowPoints(nullptr, main_window().handle(), reinterpret_cast<POINT*>(&rect), 2);
        return { rect.left, rect.top, rect.right, rect.bottom };
    }
    // Drags the boundary to `to`.
    void drag_boundary(app::BoxGap gap, int from, int to)
    {
        const POINT start = grip(gap, from);
        const int offset = gap == app::BoxGap::lower ? 32 : 0;
        drag(start, { start.x, on_screen(0, to + offset).y });
    }
    fs::path open_book(const wchar_t* name = L"手帖.bok")
    {
        const fs::path file = root().add_book(name, { make_page(L"一") });
        open_settled(file);
        return file;
    }
};

} // namespace

TEST_F(Boundary, IsDraggedByEitherGapSavedAndRestored)
{
    const fs::path file = open_book();
    expect_divider(first());
    drag_boundary(app::BoxGap::upper, first(), 300);
    expect_divider(300);
    drag_boundary(app::BoxGap::lower, 300, 250);
    expect_divider(250);
    close();
    EXPECT_EQ(load_book(file).header.divider, 250);
    start().wait_for_window();
    settle();
    expect_divider(250);
    drag_boundary(app::BoxGap::upper, 250, 200);
    expect_divider(200);
}

TEST_F(Boundary, StaysWithinItsRangeWhereverTheMouseGoes)
{
    open_book();
    const app::PageBoxes at = layout().boxes;
    drag_boundary(app::BoxGap::upper, first(), at.first.top - 25);
    expect_divider(at.first.top);
    drag_boundary(app::BoxGap::lower, at.first.top, at.third.bottom + 60);
    expect_divider(at.third.bottom - 36);
    drag_boundary(app::BoxGap::upper, at.third.bottom - 36, 400);
    expect_divider(400);
}

TEST_F(Boundary, ADragKeepsTheEditAndTheText)
{
    open_book();
    write_first(L"い");
    drag_boundary(app::BoxGap::upper, first(), 220);
    expect_divider(220);
    EXPECT_EQ(box(command::box_1).text(), L"い一\r\n");
    EXPECT_EQ(title(), L"手帖 *");
    write_first(L"ろ");
    chord({ VK_CONTROL, 'S' });
    expect_soon(L"手帖", [&] { return title(); });
}

TEST_F(Boundary, IsSeparateForEachBook)
{
    const fs::path other = root().add_book(L"ほか.bok", { make_page(L"ほか") });
    const fs::path file = root().add_book(L"手帖.bok", { make_page(L"一") });
    root().write_history({ file.wstring(), other.wstring() });
    start().wait_for_window();
    settle();
    drag_boundary(app::BoxGap::upper, first(), 320);
    expect_divider(320);
    main_window().send_command(command::first_history_entry + 1);
    expect_page(L"ほか");
    expect_divider(first());
    main_window().send_command(command::first_history_entry + 1);
    expect_page(L"一");
    expect_divider(320);
}
