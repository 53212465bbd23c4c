// The replace window, opened over a Book.
#pragma once
#include "tests/support/gui_editing.hpp"
#include "tests/support/gui_panel.hpp"

namespace gui {

class Replacing : public EditingWindows {
protected:
    static constexpr auto failed_save = L"Error: Book の保存に失敗\r\n";

    void open_with(std::initializer_list<book::Page> pages)
    {
        open(pages);
        open_replace();
    }
    void open_three()
    {
        open_with({ page(L"猫と犬\r\n"), page(L"猫猫\r\n"), page(L"鳥\r\n") });
        set_check(replace(), command::replace_in_boxes, true);
    }
    // Changes the first of three pages.
    void open_changed()
    {
        open_three();
        replaced(L"猫", L"兎", command::replace_current_page);
        ASSERT_TRUE(replace().has_changed());
    }
    void close_by(int button)
    {
        met_ = answered(button, [&] { replace().send(WM_CLOSE, 0, 0); });
    }
    static RECT label_area(const book::ReplaceField& field)
    {
        return { field.title_at.x, field.title_at.y, field.title_at.x + 46, field.title_at.y + 17 };
    }
    MetBox met_;
};

} // namespace gui
