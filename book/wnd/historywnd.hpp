// The Books that were opened or saved, newest first: one click opens one.
#pragma once
#include "book/history_list.hpp"
#include "look/wnd/my_list_view.hpp"
#include "ovlib/gui/image_list.hpp"
#include "ovlib/gui/subwnd.hpp"

namespace book {

// Created hidden; closing only hides it. A click posts the command of its row to the parent: the answer may
// fill this list anew, which must not happen inside the list's own notification.
class HistoryWnd : public ovlib::SubWnd {
public:
    // `history` must outlive the window.
    HistoryWnd(ovlib::Wnd* parent, int control_id, const HistoryList* history);

    bool on_message(ovlib::WndMessage& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;
    // At the cursor when it was hidden, to the front when it was shown.
    void show(bool visible) override;

    // The rows and the title, while the window is visible.
    void refill();

    const look::MyListView& list() const { return list_; }

private:
    // Grey while its window is disabled.
    class BookList : public look::MyListView {
    public:
        using MyListView::MyListView;
        void apply_theme() override;
    };

    bool on_create();
    bool on_notify(const NMHDR& notice);
    bool on_erase_background(HDC dc);
    void create_images();
    bool add_image(const wchar_t* file, const wchar_t* failure);
    void place_list();
    void come_to_cursor();

    const HistoryList* history_;
    ovlib::ImageList images_; // before the list that shows them
    BookList list_;
};

} // namespace book
