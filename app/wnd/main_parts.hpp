// The parts of the main window, for its commands and views.
#pragma once
#include "app/book_session.hpp"
#include "app/wnd/background.hpp"
#include "app/wnd/file_view.hpp"
#include "app/wnd/link_maker.hpp"
#include "app/wnd/main_controls.hpp"
#include "app/wnd/main_talk.hpp"
#include "app/wnd/page_desk.hpp"
#include "book/wnd/book_search_result_wnd.hpp"
#include "book/wnd/filelist_editor.hpp"
#include "media/path_answers.hpp"
#include "ovlib/gui/menu_pictures.hpp"

namespace app {

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
    FileView file_view;
    Background background;
    ovlib::MenuPictures menu_pictures;
    MainLayout layout;
};

} // namespace app
