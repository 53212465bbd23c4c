// The file pane of the main window with what is told of its file below it.
#pragma once
#include "app/main_layout.hpp"
#include "core/latest_request.hpp"
#include "media/wnd/filewnd.hpp"
#include "media/wnd/small_picture.hpp"
#include <string>

namespace app {

class FilePane {
public:
    // All outlive the pane.
    FilePane(ovlib::Wnd* parent, book::Book* book, media::PathAnswers& paths);

    bool create();
    void place(const MainLayout& layout);

    // Loads the selected file, and asks once what is told of it. False when nothing is settled yet: messages
    // are let through meanwhile, and another call, or the one that is running, sees to the rest.
    bool show_selected_file();
    void scale_anew() { pane_.scale_anew(); }
    // Beside the counter of the page's files; nothing without one.
    void draw_note(const ovlib::DC& dc, const MainLayout& layout, const std::wstring& counter) const;

private:
    media::PathAnswers& paths_;
    media::ShellThumbnails thumbnails_;
    media::ShellPropertyReader properties_;
    media::FileWnd pane_;
    media::FileFacts facts_; // of what is in the pane
    media::SmallPicture small_picture_;
    core::LatestRequest queries_; // for the facts and the small picture
};

} // namespace app
