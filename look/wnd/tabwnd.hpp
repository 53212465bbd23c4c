// The strip of page tabs in the main window.
#pragma once
#include "book/book.hpp"
#include "look/tab_strip.hpp"
#include "look/wnd/tab_drawing.hpp"
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/menu.hpp"
#include "ovlib/gui/tipwnd.hpp"

namespace look {

// Shows a coloured tab for each page that has one. A click on a tab sends the parent go_to_tab, and the last
// item of the popup sends remove_tab. The colours of the popup are written into the page. Otherwise the strip
// only reads the Book, which must outlive it.
class TabWnd : public ovlib::ChildWnd {
public:
    TabWnd(ovlib::Wnd* parent, book::Book* book);

    bool on_message(ovlib::WndMessage& message) override;
    void create_params(CREATESTRUCTW& params) override;

    // Reads everything from the Book again and renumbers its tabs. To be called whenever the pages, the tabs,
    // the current page or the size of the strip changed.
    void rebuild();

    const std::vector<TabItem>& items() const { return items_; }
    std::uint64_t current_tab() const { return current_tab_; }
    std::uint64_t hover_tab() const { return hover_tab_; }
    // The colour that was last chosen for a tab; new tabs get it.
    Color chosen_color() const { return chosen_.color(); }
    const ovlib::BackBuffer& buffer() const { return buffer_; }
    const ovlib::TipWnd& tip() const { return tip_; }
    const ovlib::Menu& menu() const { return menu_; }

private:
    void make_tip_and_menu();
    bool on_paint();
    bool on_mouse_move(platform::Point point);
    bool on_mouse_leave();
    bool on_press(platform::Point point);
    bool on_right_release(platform::Point point);
    bool hand_on_key(const ovlib::WndMessage& message);
    bool on_command(int id);
    void set_hover(std::uint64_t tab);
    void hover_at_cursor();
    void track_leave();
    void show_tip(std::uint64_t tab);
    void show_menu(const TabItem& item);
    void fit_buffer();
    void repaint();

    book::Book* book_;
    ovlib::Menu menu_;
    ovlib::TipWnd tip_{ this };
    ovlib::BackBuffer buffer_;
    std::vector<TabItem> items_;
    std::uint64_t current_tab_ = 0; // tab numbers; 0 for none
    std::uint64_t hover_tab_ = 0;
    std::uint64_t menu_tab_ = 0;
    ChosenTabColor chosen_;
    Swatches swatches_;
};

} // namespace look
