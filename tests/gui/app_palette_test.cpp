// The palette and the main window: whose box it is for, undimmed boxes, fonts, and the end of the program.
#include "core/folders.hpp"
#include "core/passed_object.hpp"
#include "look/custom_colors.hpp"
#include "look/wnd/palettewnd.hpp"
#include "tests/support/gui_app_controls.hpp"

namespace {

namespace command = core::command;

constexpr std::array box_ids{ int{ command::box_1 }, int{ command::box_2 }, int{ command::box_3 } };

class AppPalette : public gui::AppControls {
protected:
    look::PaletteWnd& palette() const
    {
        auto* const found =
            dynamic_cast<look::PaletteWnd*>(ovlib::Wnd::from_control_id(command::palette_window));
        if (!found)
            throw std::runtime_error("no palette");
        return *found;
    }
    bool has_palette() const { return ovlib::Wnd::from_control_id(command::palette_window) != nullptr; }
    void show_for(HWND sender)
    {
        command(command::show_palette, static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(sender)));
    }
    int selected() const
    {
        return static_cast<int>(SendMessageW(GetDlgItem(palette().hwnd(), 2520), CB_GETCURSEL, 0, 0));
    }
    COLORREF text_color(int id)
    {
        const ovlib::MemDC dc;
        window().send(
            WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.handle()), reinterpret_cast<LPARAM>(box(id)));
        return GetTextColor(dc.handle());
    }
    bool needs_paint(int id) const { return GetUpdateRect(box(id), nullptr, FALSE) != FALSE; }
    void paint_boxes() const
    {
        for (const int id : box_ids)
            UpdateWindow(box(id));
    }
    static bool are_all(const std::function<bool(int)>& holds) { return std::ranges::all_of(box_ids, holds); }
    book::Page colored_page()
    {
        book::Page made = page(L"a\r\n");
        made.text_color.fill(0x0000FF);
        return made;
    }
};

TEST_F(AppPalette, IsCreatedAtItsFirstOpening)
{
    open({ page(L"a") });
    EXPECT_FALSE(has_palette());
    command(command::show_palette);
    EXPECT_TRUE(palette().is_open());
}

TEST_F(AppPalette, OpensForTheBoxThatAsks)
{
    open({ page(L"a") });
    for (std::size_t i = 0; i < box_ids.size(); ++i) {
        show_for(box(box_ids[i]));
        EXPECT_EQ(selected(), static_cast<int>(i));
        palette().send(WM_CLOSE, 0, 0);
    }
    show_for(box(command::box_3));
    palette().send(WM_CLOSE, 0, 0);
    show_for(nullptr);
    EXPECT_EQ(selected(), 0) << "from the main menu";
}

TEST_F(AppPalette, ReadOnlyBoxesShowTheirColoursWhileItIsOpen)
{
    open({ colored_page() });
    gui::EditingWindow editor{ &window() };
    window().add_busy_window(editor);
    ASSERT_TRUE(editor.create(L""));
    editor.show(true);
    const auto is_dimmed = [&](int id) { return text_color(id) == RGB(74, 74, 74); };
    const auto is_plain = [&](int id) { return text_color(id) == 0x0000FF; };
    const auto must_paint = [&](int id) { return needs_paint(id); };
    EXPECT_TRUE(are_all(is_dimmed));
    paint_boxes();
    command(command::show_palette);
    EXPECT_TRUE(are_all(is_plain));
    EXPECT_TRUE(are_all(must_paint));
    paint_boxes();
    window().minimize();
    EXPECT_TRUE(are_all(is_plain)) << "a minimised owner hides it, but it is open";
    window().restore();
    gui::pump();
    paint_boxes();
    palette().show(false);
    EXPECT_TRUE(are_all(is_dimmed));
    EXPECT_TRUE(are_all(must_paint));
    editor.show(false);
    close();
}

TEST_F(AppPalette, AFontIsSetOnItsBoxOnly)
{
    open({ page(L"a") });
    LOGFONTW font{};
    font.lfHeight = -33;
    lstrcpyW(font.lfFaceName, L"Arial");
    for (int code = 0; code < 3; ++code) {
        std::array<LPARAM, 3> before{};
        for (std::size_t i = 0; i < 3; ++i)
            before[i] = SendMessageW(box(box_ids[i]), WM_GETFONT, 0, 0);
        font.lfHeight = -33 - code;
        const core::PassedObject passed{ font };
        command(command::set_box_font, passed.lparam(), code);
        for (std::size_t i = 0; i < 3; ++i) {
            LOGFONTW now{};
            const LRESULT handle = SendMessageW(box(box_ids[i]), WM_GETFONT, 0, 0);
            GetObjectW(reinterpret_cast<HFONT>(handle), sizeof now, &now);
            if (static_cast<int>(i) == code)
                EXPECT_EQ(now.lfHeight, -33 - code);
            else
                EXPECT_EQ(handle, before[i]);
        }
    }
}

TEST_F(AppPalette, AnAddressThatNobodyPassesIsHarmless)
{
    open({ page(L"a") });
    const LRESULT before = SendMessageW(box(command::box_1), WM_GETFONT, 0, 0);
    const LOGFONTW font{};
    for (const std::int64_t lparam : { std::int64_t{ 0 }, std::int64_t{ 1 },
             static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(&font)) }) {
        command(command::set_box_font, lparam, 0);
        command(command::write_mail, lparam);
    }
    EXPECT_EQ(SendMessageW(box(command::box_1), WM_GETFONT, 0, 0), before);
}

TEST_F(AppPalette, TheCustomColoursAreWrittenWhenTheProgramEnds)
{
    const std::wstring file = core::custom_colors_file(core::folders());
    open({ page(L"a") });
    EXPECT_EQ(GetFileAttributesW(file.c_str()), INVALID_FILE_ATTRIBUTES);
    close();
    WIN32_FILE_ATTRIBUTE_DATA data{};
    ASSERT_TRUE(GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(data.nFileSizeLow, 64u);
}

TEST_F(AppPalette, TheProgramEndsWithItOpen)
{
    open({ page(L"a") });
    command(command::show_palette);
    window().send(WM_CLOSE, 0, 0);
    EXPECT_EQ(window().hwnd(), nullptr);
    EXPECT_FALSE(has_palette());
}

TEST_F(AppPalette, TheProgramEndsWithItsQuestionOpen)
{
    open({ page(L"a") });
    command(command::show_palette);
    SendMessageW(GetDlgItem(palette().hwnd(), command::apply_theme_to_pages), BM_CLICK, 0, 0);
    HWND const main = window().hwnd();
    gui::DialogDriver user{ [&](HWND) { PostMessageW(main, WM_CLOSE, 0, 0); } };
    palette().send_command(look::theme_dark, 0, 0);
    EXPECT_TRUE(user.finish());
    EXPECT_FALSE(IsWindow(main));
    EXPECT_EQ(saved().header.theme, look::theme_standard);
}

TEST_F(AppPalette, TheProgramEndsWithItsDialogsOpen)
{
    for (const int id : { 2503, int{ command::set_box_font } }) {
        open({ page(L"a") });
        command(command::show_palette);
        HWND const main = window().hwnd();
        gui::DialogDriver user{ [&](HWND) { PostMessageW(main, WM_CLOSE, 0, 0); } };
        SendMessageW(GetDlgItem(palette().hwnd(), id), BM_CLICK, 0, 0);
        EXPECT_TRUE(user.finish());
        EXPECT_FALSE(IsWindow(main));
        close();
    }
}

// The main window stays enabled under the dialog.
TEST_F(AppPalette, ChoosesNothingWhileTheMainWindowShowsABox)
{
    open({ page(L"a") });
    command(command::show_palette);
    command(command::set_accepting_input, 0);
    for (const int id : { 2503, 2504, int{ command::set_box_font }, 6500 })
        palette().send_command(id, 0, 0); // a dialog would never end
    const std::int32_t theme = book().header.theme;
    palette().send_command(look::theme_dark, 0, 0);
    EXPECT_EQ(book().header.theme, theme);
    command(command::set_accepting_input, 1);
    palette().send_command(command::close_window, 0, 0);
    EXPECT_FALSE(palette().is_open());
}

TEST_F(AppPalette, AColourForADeletedPageIsDropped)
{
    book::Page first = page(L"a");
    first.back_color.fill(0x123456); // not the colour of the page that becomes current
    open({ first, page(L"b") });
    command(command::show_palette);
    HWND const main = window().hwnd();
    gui::DialogDriver user{ [&](HWND dialog) {
        std::thread answer{ [&] {
            // The question of the deletion comes over the colour dialog.
            HWND box = nullptr;
            gui::poll_until(
                [&] { return (box = FindWindowW(L"#32770", nullptr)) != nullptr && box != dialog; });
            PostMessageW(box, WM_COMMAND, IDYES, 0);
        } };
        SendMessageW(main, WM_COMMAND, command::delete_page, 0);
        answer.join();
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    } };
    SendMessageW(GetDlgItem(palette().hwnd(), 2504), BM_CLICK, 0, 0);
    EXPECT_TRUE(user.finish());
    ASSERT_EQ(book().pages.size(), 1u);
    EXPECT_EQ(book().pages[0].text[0], L"b");
    EXPECT_EQ(book().pages[0].back_color[0], 0xFFFFFFu);
}

} // namespace
