// The refresh mask: named masks, service order, and the views that the page adds.
#include "core/refresh.hpp"
#include <gtest/gtest.h>
#include <vector>

namespace {

using core::RefreshMask;
using core::View;
using Views = std::vector<View>;

Views served(RefreshMask& mask)
{
    Views views;
    core::serve_refresh(mask, [&](View view) { views.push_back(view); });
    return views;
}

TEST(RefreshMask, FullHasEveryView)
{
    RefreshMask all = 0;
    for (const View view : core::service_order)
        all |= static_cast<RefreshMask>(view);
    EXPECT_EQ(all, core::refresh::full);
    EXPECT_EQ(core::refresh::full, 62591u);
    EXPECT_EQ(core::refresh::full_but_page, 62590u);
    EXPECT_EQ(core::refresh::controls, 62464u);
    EXPECT_EQ(core::refresh::controls_and_enable, 62528u);
    EXPECT_EQ(core::refresh::tabs, 33808u);
}

TEST(OverdueViews, AreAllViewsWhenTheBoxesShowAnotherPage)
{
    constexpr std::size_t none = static_cast<std::size_t>(-1);
    EXPECT_EQ(core::overdue_views(3, 3), 0u);
    EXPECT_EQ(core::overdue_views(none, none), 0u);
    EXPECT_EQ(core::overdue_views(3, 4), core::refresh::full);
    EXPECT_EQ(core::overdue_views(none, 0), core::refresh::full);
}

TEST(ServeRefresh, FollowsTheFixedOrderWhereBoxStateComesBeforeTheButtons)
{
    RefreshMask mask = core::refresh::full;
    EXPECT_EQ(served(mask), Views(core::service_order.begin(), core::service_order.end()));
    EXPECT_EQ(served(mask), Views{ View::history_enabled });
}

TEST(ServeRefresh, OfThePageAloneRefreshesTheFileViewsToo)
{
    RefreshMask mask = 0x1;
    EXPECT_EQ(served(mask), (Views{ View::page, View::file_pane, View::file_combo, View::file_list_editor }));
    EXPECT_EQ(mask, 0u);
}

TEST(ServeRefresh, ServesOnlyTheGivenViews)
{
    RefreshMask mask = core::refresh::file_choice;
    EXPECT_EQ(served(mask), (Views{ View::file_pane, View::file_list_editor }));
    mask = 0x380; // bits without a meaning
    EXPECT_EQ(served(mask), Views{});
}

TEST(ServeRefresh, ClearsABitBeforeServingIt)
{
    RefreshMask mask = core::refresh::full;
    core::serve_refresh(mask, [&](View view) {
        EXPECT_EQ(core::has_view(mask, view), view == View::history_enabled);
        EXPECT_EQ(view == View::page ? mask & 0xF : 0, 0u);
    });
}

TEST(ServeRefresh, ServesALaterViewThatAnEarlierOneAdds)
{
    RefreshMask mask = 0x10;
    Views views;
    core::serve_refresh(mask, [&](View view) {
        views.push_back(view);
        if (view == View::tabs)
            mask |= 0x8000 | 0x1;
    });
    EXPECT_EQ(views, (Views{ View::tabs, View::status_bar }));
    EXPECT_EQ(mask, 0x1u);
}

} // namespace
