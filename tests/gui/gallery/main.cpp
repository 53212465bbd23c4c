// gallery [theme]
//     shows the controls in a theme, 6000 to 6006, until the window is closed; F1 to F6 change the theme, F7
//     opens the menu
// gallery --pictures FOLDER theme…
//     writes FOLDER/gallery-THEME.png and FOLDER/panes-THEME.png for each theme
#include "app/wnd/app_bitmaps.hpp"
#include "core/folders.hpp"
#include "exhibits.hpp"
#include "look/theme.hpp"
#include "ovlib/gui/gdip.hpp"
#include "ovlib/win_app.hpp"
#include "pane_sheet.hpp"
#include "popups.hpp"
#include "tests/support/built_files.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/screen_picture.hpp"
#include <commctrl.h>
#include <cstdio>
#include <ole2.h>

namespace {

using namespace gallery;

void choose_theme(std::int32_t theme)
{
    look::load_theme(theme);
    look::apply_theme_to_windows();
}

// For a user: keys change the theme, whichever control has the focus.
class BrowsedGallery : public GalleryWnd {
public:
    void dispatch(MSG& message) override
    {
        if (message.message == WM_KEYDOWN && message.wParam >= VK_F1 && message.wParam <= VK_F6)
            show_theme(look::theme_standard + static_cast<std::int32_t>(message.wParam - VK_F1));
        else if (message.message == WM_KEYDOWN && message.wParam == VK_F7)
            popups->open_menu();
        else
            GalleryWnd::dispatch(message);
    }
    void show_theme(std::int32_t theme) const
    {
        choose_theme(theme);
        popups->show();
    }

    std::unique_ptr<Popups> popups;
};

void fill(GalleryWnd& wnd)
{
    Shelf first{ wnd, { 14, 8, 390, 950 } };
    show_push_buttons(first);
    show_check_boxes(first);
    show_lists(first);
    Shelf second{ wnd, { 410, 8, 790, 950 } };
    show_image_buttons(second);
    show_program_buttons(second);
    show_sliders(second);
    Shelf third{ wnd, { 810, 8, 1290, 950 } };
    show_text_boxes(third);
    show_fields(third);
    show_combo_boxes(third);
    show_icons(third);
    Shelf bottom{ wnd, { 14, 790, 1290, 930 } };
    show_main_parts(bottom);
}

bool take_pictures(
    GalleryWnd& wnd, Popups& popups, const std::wstring& folder, const std::vector<std::int32_t>& themes)
{
    bool all_taken = true;
    for (const std::int32_t theme : themes) {
        choose_theme(theme);
        popups.show();
        popups.wait_for_banner();
        const std::wstring file = folder + L"/gallery-" + std::to_wstring(theme) + L".png";
        popups.with_menu_open([&] { all_taken = test_support::save_screen(wnd.rect(), file) && all_taken; });
        popups.hide();
    }
    wnd.show(false);
    for (const std::int32_t theme : themes)
        all_taken = save_pane_sheet(folder, theme) && all_taken;
    return all_taken;
}

struct Options {
    std::wstring folder; // for pictures; empty: interactive
    std::vector<std::int32_t> themes;
};

Options read_options(int argc, wchar_t** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        if (std::wstring_view(argv[i]) == L"--pictures" && i + 1 < argc)
            options.folder = argv[++i];
        else
            options.themes.push_back(static_cast<std::int32_t>(std::wcstol(argv[i], nullptr, 10)));
    }
    if (options.themes.empty())
        options.themes.push_back(look::theme_standard);
    return options;
}

void prepare_program()
{
    ovlib::WinApp::instance = GetModuleHandleW(nullptr);
    const INITCOMMONCONTROLSEX request{ sizeof request, ICC_WIN95_CLASSES };
    InitCommonControlsEx(&request);
    core::init_folders(test_support::dist_path());
    app::load_app_bitmaps();
    const ovlib::MemDC dc;
    look::make_shared_fonts(dc.handle());
}

int run(const Options& options)
{
    BrowsedGallery wnd;
    look::load_theme(options.themes.front());
    wnd.apply_theme();
    if (!wnd.create(L"Pagewick gallery"))
        return 1;
    fill(wnd);
    wnd.popups = std::make_unique<Popups>(wnd);
    wnd.show_theme(options.themes.front());
    if (options.folder.empty())
        return wnd.message_loop();
    gui::pump();
    const bool taken = take_pictures(wnd, *wnd.popups, options.folder, options.themes);
    std::printf("%s\n", taken ? "taken" : "a picture is missing");
    return taken ? 0 : 1;
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    prepare_program();
    OleInitialize(nullptr);
    int code = 0;
    {
        const ovlib::GDIPSession gdip;
        code = run(read_options(argc, argv));
    }
    app::free_app_bitmaps();
    look::free_shared_fonts();
    OleUninitialize();
    return code;
}
