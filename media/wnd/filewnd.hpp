// The pane beside the text: shows the selected file of the current page as a picture, an animation, a
// thumbnail or a message.
#pragma once
#include "book/book.hpp"
#include "controls/wheel_steps.hpp"
#include "core/latest_request.hpp"
#include "look/wnd/themed.hpp"
#include "media/pane_input.hpp"
#include "media/wnd/gif_thread.hpp"
#include "media/wnd/image_canvas.hpp"
#include "media/wnd/image_loader.hpp"
#include "media/wnd/shell_property_reader.hpp"
#include "media/wnd/shell_thumbnail.hpp"
#include "media/wnd/viewer.hpp"
#include "ovlib/gui/childwnd.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include <string>

namespace media {

// Drags a file out of the pane with the mouse.
class FileDrag {
public:
    virtual ~FileDrag() = default;
    // Returns when the drag has ended. Messages are dispatched meanwhile.
    virtual void run(const std::wstring& path) = 0;
};

// The pane's access to the shell. All must outlive the pane.
struct PaneShell {
    ThumbnailSource& thumbnails;
    PropertySource& properties;
    PathAnswers& paths;
    FileDrag* drag = nullptr; // null: files cannot be dragged
    const ovlib::MenuPictures* menu_pictures = nullptr; // of the viewer's menu
};

class FileWnd : public ovlib::ChildWnd, public look::Themed {
public:
    // The Book must outlive the pane.
    FileWnd(ovlib::Wnd* parent, book::Book* book, const PaneShell& shell);
    ~FileWnd() override;

    bool on_message(ovlib::WndMessage& message) override;
    void set_rect(const RECT& rect, bool repaint) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;
    void apply_theme() override;

    // Loads on this thread and plays animations. The shell may dispatch messages meanwhile. A call that comes
    // then returns at once, and the running call loads once more.
    void show_selected_file();
    bool is_loading() const { return is_loading_; }
    // Scales with the current interpolation mode, without loading.
    void scale_anew();

    const ImageLoader& loader() const { return loader_; }
    const ImageCanvas& canvas() const { return canvas_; }
    const GifThread& gif_thread() const { return gif_thread_; }
    Viewer& viewer() { return viewer_; }

private:
    void load_mark();
    void on_destroy();
    bool on_paint();
    bool on_command(const ovlib::WndMessage& message);
    bool on_press(platform::Point at);
    bool on_double_click(platform::Point at);
    bool on_wheel(const ovlib::WndMessage& message);
    bool on_mouse_move(platform::Point at);
    void drag_file();
    void draw_many_files_mark();

    bool load_latest();
    void load_and_show(core::LatestRequest::Request load);
    void lay_out_and_draw();
    void draw_anew();
    std::wstring selected_entry() const;

    book::Book* book_;
    FileDrag* file_drag_;
    ImageLoader loader_;
    ImageCanvas canvas_;
    Viewer viewer_;
    GifThread gif_thread_; // destroyed before the canvas and loader that it uses
    DragArm drag_;
    ovlib::WheelSteps wheel_;
    ovlib::GDI::Bitmap many_files_mark_;
    bool is_loading_ = false;
    core::LatestRequest loads_;
};

} // namespace media
