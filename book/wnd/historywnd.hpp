// The Books that were opened or saved, newest first. One click opens a Book.
#pragma once
#include "book/history_list.hpp"
#include "look/wnd/my_list_view.hpp"
#include "look/wnd/tool_window.hpp"
#include "ovlib/gui/image_list.hpp"

namespace book {

// Opens at the cursor. A click posts the command of its row to the parent instead of sending it: the command
// may refill this list, which must not happen inside the list's own notification.
class HistoryWnd : public look::ToolWindow {
public:
    // `history` must outlive the window.
    HistoryWnd(ovlib::Wnd* parent, int control_id, const HistoryList* history);

    bool on_message(ovlib::WndMessage& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;

    // Fills the rows and the title again, if the window is open.
    void refill();

    const look::MyListView& list() const { return list_; }

protected:
    bool make_controls() override;
    void lay_out(platform::Size client) override;
    void on_opening() override;
    bool on_enter() override;
    ovlib::Color ground() const override;

private:
    // Its text is grey while the window is disabled.
    class BookList : public look::MyListView {
    public:
        using MyListView::MyListView;
        void apply_theme() override;
    };

    bool on_notify(const NMHDR& notice);
    void open_row(int row);
    void create_images();
    bool add_image(const wchar_t* file, const wchar_t* failure);
    void fill();

    const HistoryList* history_;
    ovlib::ImageList images_; // before the list that shows them
    BookList list_;
};

} // namespace book
