// The order of the virtual functions is fixed. With ABIs whose pointers to virtual members contain the index
// in the class's table, the order can be read from them.
#include "look/wnd/mybox.hpp"
#include "ovlib/gui/check_box.hpp"
#include "ovlib/gui/classic_dialog.hpp"
#include "ovlib/gui/combobox.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/drag_files.hpp"
#include "ovlib/gui/drop_files.hpp"
#include "ovlib/gui/editbox.hpp"
#include "ovlib/gui/gdip_image.hpp"
#include "ovlib/gui/modern_dialog.hpp"
#include "ovlib/gui/slider.hpp"
#include "ovlib/gui/statusbar.hpp"
#include "ovlib/gui/subwnd.hpp"
#include "ovlib/thread.hpp"
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

namespace {

#if defined(__GNUC__)

using namespace ovlib;

// A table entry is encoded as 1 + 8 * index under the ABI of GCC and Clang.
template <class Member> std::ptrdiff_t slot(Member member)
{
    std::ptrdiff_t entry = 0;
    static_assert(sizeof member >= sizeof entry);
    std::memcpy(&entry, &member, sizeof entry);
    EXPECT_EQ(entry % 8, 1) << "not virtual";
    return entry / 8;
}

void expect_consecutive(const std::vector<std::ptrdiff_t>& slots, std::ptrdiff_t first)
{
    for (std::size_t i = 0; i < slots.size(); ++i)
        EXPECT_EQ(slots[i], first + static_cast<std::ptrdiff_t>(i)) << "operation " << i;
}

constexpr std::ptrdiff_t after_destructor = 2; // the ABI has two entries for it

TEST(Slots, OfWndAreInTheirOrder)
{
    using W = Wnd;
    const std::vector<std::ptrdiff_t> slots{
        slot(&W::create),
        slot(&W::destroy),
        slot(&W::set_tab_order),
        slot(&W::focus_next),
        slot(&W::destroy_children),
        slot(&W::count_children),
        slot(&W::on_destroyed),
        slot(&W::on_message),
        slot(&W::default_proc),
        slot(&W::set_parent),
        slot(&W::parent),
        slot(&W::is_sibling),
        slot(&W::control_id),
        slot(&W::class_icon),
        slot(&W::class_small_icon),
        slot(&W::class_background),
        slot(&W::set_text),
        slot(&W::text),
        slot(&W::text_length),
        slot(&W::is_enabled),
        slot(&W::enable),
        slot(&W::set_topmost),
        slot(&W::center),
        slot<void (W::*)(POINT, bool)>(&W::move),
        slot<void (W::*)(int, int, bool)>(&W::move),
        slot(&W::position),
        slot<void (W::*)(SIZE, bool)>(&W::resize),
        slot<void (W::*)(int, int, bool)>(&W::resize),
        slot(&W::size),
        slot(&W::set_rect),
        slot(&W::rect),
        slot(&W::client_rect),
        slot(&W::client_size),
        slot(&W::cursor_pos),
        slot<void (W::*)(bool)>(&W::show),
        slot(&W::show_cmd),
        slot(&W::is_visible),
        slot(&W::set_alpha),
        slot(&W::set_font),
        slot(&W::font),
        slot(&W::set_redraw),
        slot(&W::set_focus),
        slot(&W::focus),
        slot<bool (W::*)(const WndMessage&)>(&W::post),
        slot<bool (W::*)(std::uint32_t, std::uint64_t, std::int64_t)>(&W::post),
        slot<std::int64_t (W::*)(const WndMessage&)>(&W::send),
        slot<std::int64_t (W::*)(std::uint32_t, std::uint64_t, std::int64_t)>(&W::send),
        slot(&W::send_command),
        slot(&W::minimize),
        slot(&W::maximize),
        slot(&W::restore),
        slot(&W::is_minimized),
        slot(&W::is_maximized),
        slot(&W::reserved),
        slot<int (W::*)(const std::wstring&, const std::wstring&, std::uint32_t)>(&W::message_box),
        slot<int (W::*)(const std::string&, const std::string&, std::uint32_t)>(&W::message_box),
        slot<int (W::*)(std::uint32_t, const std::wstring&)>(&W::error_box),
        slot<int (W::*)(std::uint32_t, const std::string&)>(&W::error_box),
        slot(&W::dispatch),
        slot(&W::message_loop),
        slot(&W::wait),
        slot(&W::on_wait_signalled),
        slot(&W::on_wait_failed),
    };
    expect_consecutive(slots, after_destructor);
}

std::ptrdiff_t after_wnd()
{
    return slot(&Wnd::on_wait_failed) + 1;
}

// OLE calls them by their place.
TEST(Slots, OfTheObjectsForDragsAndDropsAreInTheirOrder)
{
    using S = DragFiles;
    expect_consecutive({ slot(&S::QueryInterface), slot(&S::AddRef), slot(&S::Release),
                           slot(&S::QueryContinueDrag), slot(&S::GiveFeedback) },
        0);
    using D = DragDataObject;
    expect_consecutive(
        { slot(&D::QueryInterface), slot(&D::AddRef), slot(&D::Release), slot(&D::GetData),
            slot(&D::GetDataHere), slot(&D::QueryGetData), slot(&D::GetCanonicalFormatEtc), slot(&D::SetData),
            slot(&D::EnumFormatEtc), slot(&D::DAdvise), slot(&D::DUnadvise), slot(&D::EnumDAdvise) },
        0);
    using T = DropFiles;
    expect_consecutive({ slot(&T::QueryInterface), slot(&T::AddRef), slot(&T::Release), slot(&T::DragEnter),
                           slot(&T::DragOver), slot(&T::DragLeave), slot(&T::Drop),
                           slot(&T::take_virtual_files), slot(&T::take_files), slot(&T::take_text) },
        0);
    EXPECT_EQ(slot(&T::can_accept), slot(&T::take_text) + 1 + after_destructor);
}

TEST(Slots, OfTheBasesFollowThoseOfTheirBase)
{
    expect_consecutive({ slot(&BaseWnd::on_created), slot(&BaseWnd::class_info),
                           slot(&BaseWnd::create_params), slot(&BaseWnd::create_window) },
        after_wnd());
    expect_consecutive(
        { slot(&SysControl::set_subclassed), slot(&SysControl::is_subclassed) }, after_wnd() + 4);
}

TEST(Slots, OfEditBoxAreInTheirOrder)
{
    using E = EditBox;
    const std::vector<std::ptrdiff_t> slots{
        slot(&E::can_undo),
        slot(&E::can_paste),
        slot(&E::paste),
        slot(&E::copy),
        slot(&E::cut),
        slot(&E::undo),
        slot(&E::set_read_only),
        slot(&E::is_read_only),
        slot(&E::clear_undo),
        slot(&E::clear_selection),
        slot(&E::set_tab_stops),
        slot(&E::set_limit),
        slot(&E::limit),
        slot(&E::scroll_v_to),
        slot(&E::scroll_h_to),
        slot(&E::scroll_v_pos),
        slot(&E::scroll_h_pos),
        slot(&E::line_scroll),
        slot(&E::set_modified),
        slot(&E::is_modified),
        slot(&E::scroll_caret),
        slot(&E::set_caret),
        slot(&E::caret),
        slot(&E::selection),
        slot(&E::select_all),
        slot(&E::set_selection),
        slot(&E::has_selection),
        slot(&E::selected_text),
        slot(&E::select_at),
        slot(&E::replace_range),
        slot(&E::replace_selection),
        slot(&E::erase_range),
        slot(&E::erase_selection),
        slot(&E::append),
        slot(&E::line_from_char),
        slot(&E::load_file),
        slot(&E::save_file),
    };
    expect_consecutive(slots, slot(&SysControl::is_subclassed) + 1);
}

TEST(Slots, OfDrawnButtonsAreInTheirOrder)
{
    using B = CustomButton;
    using C = CustomCheckBox;
    expect_consecutive({ slot(&B::set_bitmap), slot(&B::draw_item), slot(&B::draw_background),
                           slot(&B::draw_focus), slot(&B::draw_text), slot(&B::draw_frame) },
        slot(&SysControl::is_subclassed) + 1);
    expect_consecutive({ slot(&C::draw_box), slot(&C::fit_to_text), slot(&C::set_checked), slot(&C::toggle),
                           slot(&C::is_checked) },
        slot(&B::draw_frame) + 1);
}

TEST(Slots, OfMyBoxFollowThoseOfEditBox)
{
    EXPECT_EQ(slot(&look::MyBox::set_wrap), slot(&EditBox::save_file) + 1);
}

TEST(Slots, OfComboBoxAreInTheirOrder)
{
    using C = ComboBox;
    const std::vector<std::ptrdiff_t> slots{
        slot(&C::count),
        slot(&C::clear),
        slot<void (C::*)(bool)>(&C::show_list),
        slot(&C::remove),
        slot(&C::insert),
        slot<int (C::*)(const std::wstring&, std::int64_t)>(&C::add),
        slot<int (C::*)(const std::wstring&)>(&C::add),
        slot(&C::set_item_data),
        slot(&C::item_data),
        slot(&C::set_min_visible),
        slot(&C::select),
        slot(&C::selected),
        slot(&C::clear_selection),
        slot<int (C::*)(int) const>(&C::text_length),
        slot(&C::item_text),
        slot(&C::replace),
        slot(&C::find_exact),
        slot(&C::edit_child),
    };
    expect_consecutive(slots, slot(&SysControl::is_subclassed) + 1);
}

TEST(Slots, OfSliderAreInTheirOrder)
{
    using S = Slider;
    const std::vector<std::ptrdiff_t> slots{
        slot(&S::layout),
        slot(&S::update_thumb),
        slot(&S::value_to_x),
        slot(&S::x_to_value),
        slot(&S::draw_border),
        slot(&S::draw_track_frame),
        slot(&S::draw_track),
        slot(&S::draw_thumb),
        slot(&S::draw_label),
        slot(&S::redraw),
        slot(&S::notify),
    };
    expect_consecutive(slots, slot(&BaseWnd::create_window) + 1);
}

TEST(Slots, OfStatusBarAreInTheirOrder)
{
    using S = StatusBar;
    const std::vector<std::ptrdiff_t> slots{
        slot(&S::borders),
        slot(&S::part_count),
        slot(&S::part_rect),
        slot(&S::part_text),
        slot(&S::set_part_text),
        slot(&S::set_parts),
        slot(&S::draw_part),
    };
    expect_consecutive(slots, slot(&SysControl::is_subclassed) + 1);
}

TEST(Slots, OfTheDialogsFollowTheDestructor)
{
    using M = modern::FileDialog;
    using O = modern::FileOpenDialog;
    expect_consecutive({ slot(&M::set_title), slot(&M::options), slot(&M::set_options), slot(&M::set_folder),
                           slot(&M::set_filters), slot(&M::set_file_name), slot(&M::set_default_extension),
                           slot(&M::show), slot(&O::allow_multiple), slot(&O::get_result) },
        after_destructor);
    EXPECT_EQ(slot(&classic::FileDialog::show), after_destructor);
}

TEST(Slots, OfThreadFollowTheDestructor)
{
    EXPECT_EQ(slot(&Thread::run), after_destructor);
}

TEST(Slots, OfDrawingFollowTheDestructor)
{
    EXPECT_EQ(slot(&DC::size), after_destructor);
    expect_consecutive({ slot<bool (GDIPImage::*)(const GDIPMemory&)>(&GDIPImage::load),
                           slot<bool (GDIPImage::*)(const std::wstring&)>(&GDIPImage::load),
                           slot(&GDIPImage::copy_from), slot(&GDIPImage::clear) },
        after_destructor);
}

TEST(Slots, OfAThreadAreItsDestructorAndItsRun)
{
    EXPECT_EQ(slot(&Thread::run), after_destructor);
}

#endif

} // namespace
