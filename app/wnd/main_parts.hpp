// The parts of the main window, for its commands and views.
#pragma once
#include "app/book_session.hpp"
#include "app/edit_actions.hpp"
#include "app/wnd/background.hpp"
#include "app/wnd/file_view.hpp"
#include "app/wnd/link_maker.hpp"
#include "app/wnd/main_controls.hpp"
#include "app/wnd/main_drops.hpp"
#include "app/wnd/main_talk.hpp"
#include "app/wnd/page_desk.hpp"
#include "book/wnd/book_search_result_wnd.hpp"
#include "book/wnd/bookeditor.hpp"
#include "book/wnd/filelist_editor.hpp"
#include "book/wnd/replacewnd.hpp"
#include "look/wnd/palettewnd.hpp"
#include "look/wnd/settingwnd.hpp"
#include "media/path_answers.hpp"
#include "ovlib/gui/menu_pictures.hpp"

namespace app {

// A window that edits pages, for the dialogue with the user.
class BusyToolWindow : public BusyWindow {
public:
    // `window` must outlive it.
    explicit BusyToolWindow(look::ToolWindow& window)
        : window_(window)
    {
    }
    bool is_open() const override { return window_.is_open(); }
    void close() override { window_.show(false); }

private:
    look::ToolWindow& window_;
};

// Lives as long as its window. The parts refer to each other.
struct MainParts {
    explicit MainParts(ovlib::BaseWnd& window);
    MainParts(const MainParts&) = delete;
    MainParts& operator=(const MainParts&) = delete;

    // Creates the child windows. False if the program cannot go on without one of them.
    bool create();
    void lay_out();
    // Refreshes one view of the Book.
    void serve(core::View view);
    WindowState window_state() const;
    // A rectangle of the client area in screen coordinates.
    RECT on_screen(const Rect& place) const;
    // Gives the focus to the box of a search hit, or for a hit in the file list to the list of entries.
    void focus_place_of(const book::SearchHit& hit);
    // Runs an action as a command does and returns its result; false if it did not run to its end.
    bool run(const std::function<bool()>& action);

    ovlib::BaseWnd& window;
    BookSession session; // before all parts that show its Book; its constructor calls none of them
    MainControls controls;
    book::FileListEditor file_list_editor;
    BoxDesk desk;
    book::BookSearchResultWnd results;
    MainTalk talk;
    LinkMaker links;
    media::PathAnswers path_answers; // shared by all views during one refresh
    ovlib::MenuPictures menu_pictures;
    FileView file_view;
    Background background;
    // Created when they are first shown.
    look::PaletteWnd palette;
    look::SettingWnd settings;
    EditSession edit_session;
    book::ReplaceWnd replace_window;
    book::BookEditor book_editor;
    MainDrops drops;
    MainLayout layout;

private:
    BusyToolWindow busy_replacing_{ replace_window };
    BusyToolWindow busy_editing_{ book_editor };
};

} // namespace app
