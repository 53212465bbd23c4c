// The three boxes in which a page is edited: their texts, colours, fonts, scroll places, wrapping and the
// boundary between them.
#pragma once
#include "app/book_session.hpp"
#include "app/main_layout.hpp"
#include "app/wnd/main_controls.hpp"
#include "look/box_look.hpp"
#include "look/wnd/mybox.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include <array>
#include <cstddef>
#include <optional>
#include <string>

namespace app {

class BoxDesk : public PageDesk {
public:
    // Both outlive the desk. `controls` knows what the user searches for.
    BoxDesk(ovlib::Wnd* parent, MainControls& controls);

    bool create();
    // Also lays the boundary where the last Book had it.
    void place(const PageBoxes& boxes);
    void show();
    const PageBoxes& layout() const { return layout_; }
    // Moves the boundary under box 1, as far as there is room; answers where it is then.
    int set_divider(int y);

    std::array<look::MyBox*, book::box_count> boxes() { return { &q_box_, &a_box_, &d_box_ }; }
    std::array<const look::MyBox*, book::box_count> boxes() const { return { &q_box_, &a_box_, &d_box_ }; }

    // `page` is the one whose text is in the boxes, null for none. True when the wrapping changed: the boxes
    // are new controls then.
    bool set_state(bool read_only, bool wrap, const book::Page* page);
    void repaint();

    // The number of the box that sends a colour message; nothing for other controls.
    std::optional<std::size_t> box_of(const ovlib::WndMessage& message) const;
    // Answers such a message with the colours of `page`; false for other controls and without a page.
    bool on_color(ovlib::WndMessage& message, const book::Page* page, look::BoxUse use);

    bool has_edits() const override;
    BoxEdits edits() const override;
    void show(const book::Page& page, bool is_shown_already) override;
    void store_scroll(book::Page& page) const override;
    void mark_clean() override;
    void show_title(const std::wstring& title, bool is_edited) override;
    void apply_theme(book::BookHeader& header) override;
    void apply_divider_and_fonts(book::BookHeader& header) override;
    book::SearchQuery query() const override;

private:
    void place_boxes();
    void restore_scroll(const book::Page& page);
    void bring_lost_boxes_back(bool read_only, bool wrap, const book::Page* page);

    ovlib::Wnd* parent_;
    MainControls& controls_;
    PageBoxes layout_;
    look::QBox q_box_;
    look::ABox a_box_;
    look::DBox d_box_;
    std::array<ovlib::GDI::Brush, book::box_count> brushes_;
};

// The answer to a colour message: the brush, which lives until the next one.
bool answer_colors(ovlib::WndMessage& message, look::BoxColors colors, ovlib::GDI::Brush& brush);

} // namespace app
