// The page editor: its pictures and colours.
#include "app/wnd/app_bitmaps.hpp"
#include "core/folders.hpp"
#include "look/theme.hpp"
#include "tests/support/gui_page_editing.hpp"
#include "tests/support/gui_panel.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/picture_files.hpp"
#include "tests/support/temp_folder.hpp"

namespace {

namespace command = core::command;
namespace place = book::page_editor_place;
using gui::PageEditing;

constexpr ovlib::Color red = ovlib::rgb(255, 0, 0);

class PageEditorLooks : public PageEditing {
protected:
    void SetUp() override { CreateDirectoryW(core::folders().res.c_str(), nullptr); }
    static void write_resource(const std::wstring& name, std::span<const std::byte> bytes)
    {
        test_support::write_bytes(core::folders().res + L"\\" + name, bytes);
    }
    bool shows(int id, ovlib::Color color) const
    {
        RECT all{};
        GetClientRect(item(editor(), id), &all);
        return gui::has_color(item(editor(), id), all, color.value);
    }
};

TEST_F(PageEditorLooks, TheStripShowsTheRangeAndTheCurrentPage)
{
    const std::vector<unsigned char> indicator = gui::bmp_file(9, 21, red);
    write_resource(L"indicator.bmp", std::as_bytes(std::span{ indicator }));
    open_letters(L"あいうえお"); // 74 pixels each
    turn_with_shift(command::next_page);
    turn_with_shift(command::next_page);
    ASSERT_EQ(range(), L"1-3");
    const COLORREF plain = look::palette().bar_back.value;
    for (const int x : { 5, 100, 160, 215 })
        EXPECT_NE(strip_pixel(x), plain) << x;
    EXPECT_EQ(strip_pixel(100), strip_pixel(20)) << "the whole range has one colour";
    for (const int x : { 260, 340 })
        EXPECT_EQ(strip_pixel(x), plain) << x;
    EXPECT_EQ(strip_pixel(185), red.value) << "the third page";
    for (const int x : { 37, 111, 259 })
        EXPECT_NE(strip_pixel(x), red.value) << x;
}

TEST_F(PageEditorLooks, TheNumbersOfTheRangeShowWhetherTheirPagesAreSelected)
{
    open_letters(L"あいう");
    turn_with_shift(command::last_page);
    const look::ThemePalette& colors = look::palette();
    for (const int id : { command::go_to_range_start, command::go_to_range_end })
        EXPECT_TRUE(shows(id, colors.editor_label)) << id;
    click_in(editor(), command::select_range);
    for (const int id : { command::go_to_range_start, command::go_to_range_end }) {
        EXPECT_TRUE(shows(id, colors.selected_bar)) << id;
        EXPECT_FALSE(shows(id, colors.editor_label)) << id;
    }
    order(command::clear_selection);
    EXPECT_TRUE(shows(command::go_to_range_start, colors.editor_label));
    EXPECT_FALSE(shows(command::go_to_range_start, colors.selected_bar));
    select({ 0 });
    order(command::copy_pages);
    order(command::paste_pages_at_end, IDYES);
    EXPECT_TRUE(shows(command::go_to_range_start, colors.pasted_bar));
}

TEST_F(PageEditorLooks, EachArrowHasItsPictureAndItsPlace)
{
    struct Arrow {
        int id;
        const wchar_t* file;
        ovlib::Color color;
    };
    const Arrow arrows[] = { { command::first_page, L"front.png", red },
        { command::previous_page, L"prev.png", ovlib::rgb(0, 255, 0) },
        { command::next_page, L"next.png", ovlib::rgb(0, 0, 255) },
        { command::last_page, L"back.png", ovlib::rgb(255, 0, 255) } };
    for (const Arrow& arrow : arrows)
        write_resource(arrow.file, test_support::png_file(12, 12, test_support::plain(arrow.color)));
    open_letters(L"あい");
    LONG left = 0;
    for (const Arrow& arrow : arrows) {
        EXPECT_TRUE(shows(arrow.id, arrow.color)) << arrow.file;
        RECT rect{};
        GetWindowRect(item(editor(), arrow.id), &rect);
        EXPECT_GT(rect.left, left) << arrow.file;
        left = rect.left;
    }
}

// Changing the theme colours every window that exists.
TEST_F(PageEditorLooks, OpensInTheThemeOfTheBook)
{
    book::Book dark = lettered(L"あい");
    dark.header.theme = look::theme_dark;
    open(std::move(dark));
    open_editor();
    for (const int id : { command::select_page, command::select_range, command::trace_selection }) {
        EXPECT_EQ(check_in(editor(), id).colors().back, look::palette().check_back) << id;
        EXPECT_EQ(check_in(editor(), id).colors().text, look::palette().check_text) << id;
    }
}

TEST_F(PageEditorLooks, ItsMenuHasThePicturesOfItsCommands)
{
    const std::vector<unsigned char> picture = gui::bmp_file(16, 16, red);
    for (const wchar_t* name : { L"copy.bmp", L"cut.bmp", L"paste.bmp", L"trashbox.bmp" })
        write_resource(name, std::as_bytes(std::span{ picture }));
    app::load_app_bitmaps();
    open_letters(L"あい");
    std::vector<UINT> with_picture;
    gui::MenuDriver user{ [&](const gui::ShownMenu& menu) {
        for (int i = 0; i < GetMenuItemCount(menu.menu()); ++i) {
            MENUITEMINFOW item{};
            item.cbSize = sizeof item;
            item.fMask = MIIM_BITMAP | MIIM_ID;
            GetMenuItemInfoW(menu.menu(), static_cast<UINT>(i), TRUE, &item);
            if (item.hbmpItem)
                with_picture.push_back(item.wID);
        }
    } };
    ASSERT_TRUE(gui::bring_to_front(editor()));
    editor().send(WM_CONTEXTMENU, 0, MAKELPARAM(-1, -1));
    EXPECT_TRUE(user.finish());
    EXPECT_EQ(with_picture,
        (std::vector<UINT>{
            command::copy_pages, command::cut_pages, command::delete_pages, command::paste_pages }));
}

} // namespace
