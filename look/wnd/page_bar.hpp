// The strip of the page editor that shows all pages of the Book.
#pragma once
#include "book/book.hpp"
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/gdi_object.hpp"

namespace look {

// It is not a window: its owner copies `view` when it paints. The owner calls redraw_strip when the pages,
// their selection or the theme changed, and draw after that and whenever the span or the current page
// changed.
class PageBar {
public:
    // The Book must outlive the bar; null draws only the frame.
    explicit PageBar(const book::Book* book);
    PageBar(const PageBar&) = delete;
    PageBar& operator=(const PageBar&) = delete;
    virtual ~PageBar() = default;

    void redraw_strip();
    // Stored indices: the ends of the span, in either order, and the current page.
    void draw(std::size_t first, std::size_t last, std::size_t current);

    const ovlib::BackBuffer& view() const { return view_; }

private:
    std::size_t page_count() const { return book_ != nullptr ? book_->pages.size() : 0; }
    void blend(const RECT& span);
    void draw_indicator(std::size_t current);

    const book::Book* book_;
    ovlib::BackBuffer view_; // the finished picture
    ovlib::BackBuffer strip_; // the background and the runs of selected pages
    ovlib::GDI::Bitmap indicator_;
};

} // namespace look
