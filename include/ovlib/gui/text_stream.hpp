// A cursor that draws runs of text one after another.
#pragma once
#include "ovlib/gui/dc.hpp"
#include <string>
#include <vector>

namespace ovlib::GDI {

// A run with the rectangle where it was drawn, for text that can be clicked.
struct TextRegion {
    std::wstring text;
    std::wstring target;
    RECT rect{};
    bool flag = false;
};

// The fields are the interface: set color, font, back_mode, flags, x or y between runs to change style or
// position. The initial values are those of the device context, whose own values are restored after every
// run.
class TextStream {
public:
    // `regions` is cleared, then collects the regions that are drawn; it must outlive the stream.
    explicit TextStream(const DC& target, std::vector<TextRegion>* regions = nullptr);
    virtual ~TextStream() = default;

    TextStream& operator<<(const std::wstring& text);
    TextStream& operator<<(TextRegion region);
    // Draws into `rect` without measuring; the cursor moves to its top left corner first.
    void draw(const std::wstring& text, const RECT& rect);

    DC dc;
    int origin_x = 0;
    int x = 0; // advances with each run
    int y = 0;
    int width = 0; // the limit for measuring
    int line_height = 0; // of the font, then of the last run
    UINT flags = DT_SINGLELINE | DT_NOPREFIX;
    Color color;
    Color back_color;
    int back_mode = 0;
    HFONT font = nullptr;
    bool underline_next = false; // for the next run only
    std::vector<TextRegion>* regions = nullptr;

private:
    enum class Measuring { measured, as_given };

    void draw_run(const std::wstring& text, RECT& rect, Measuring measuring);
    // Swaps colours and mode between the stream and the device context.
    void swap_colors();
    void underline(const RECT& rect);
};

} // namespace ovlib::GDI
