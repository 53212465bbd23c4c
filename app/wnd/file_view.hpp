// The file pane of the main window, and the facts about its file below it.
#pragma once
#include "app/main_layout.hpp"
#include "core/latest_request.hpp"
#include "media/wnd/filewnd.hpp"
#include "media/wnd/shell_file_drag.hpp"
#include "media/wnd/small_picture.hpp"
#include <string>

namespace app {

class FileView {
public:
    // All must outlive the pane.
    FileView(ovlib::Wnd* parent, book::Book* book, media::PathAnswers& paths,
        const ovlib::MenuPictures& menu_pictures);

    bool create();
    void place(const MainLayout& layout);

    // Loads the selected file and queries its facts once. False if the result is not final: messages are
    // dispatched meanwhile, and a later call or the running one completes the work.
    bool show_selected_file();
    void scale_anew() { pane_.scale_anew(); }
    void open_viewer() { pane_.viewer().open(); }
    // Draws the facts next to the counter of the page's files; draws nothing if `counter` is empty.
    void draw_note(const ovlib::DC& dc, const MainLayout& layout, const std::wstring& counter) const;

private:
    media::PathAnswers& paths_;
    media::ShellThumbnails thumbnails_;
    media::ShellPropertyReader properties_;
    media::ShellFileDrag drag_;
    media::FileWnd pane_;
    media::FileFacts facts_; // about the file in the pane
    media::SmallPicture small_picture_;
    core::LatestRequest queries_; // for the facts and the small picture
};

} // namespace app
