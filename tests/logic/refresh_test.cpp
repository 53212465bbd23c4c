// The refresh mask: named masks, order of service, and what the page brings along.
#include "app/refresh.hpp"
#include <gtest/gtest.h>
#include <vector>

namespace {

using app::RefreshMask;
using app::View;
using Views = std::vector<View>;

Views served(RefreshMask& mask)
{
    Views views;
    app::serve_refresh(mask, [&](View view) { views.push_back(view); });
    return views;
}

TEST(RefreshMask, FullNamesEveryView)
{
    RefreshMask all = 0;
    for (const View view : app::service_order)
        all |= static_cast<RefreshMask>(view);
    EXPECT_EQ(all, app::refresh::full);
    EXPECT_EQ(app::refresh::full, 62591u);
    EXPECT_EQ(app::refresh::full_but_page, 62590u);
    EXPECT_EQ(app::refresh::controls, 62464u);
    EXPECT_EQ(app::refresh::controls_and_enable, 62528u);
    EXPECT_EQ(app::refresh::tabs, 33808u);
}

TEST(OverdueViews, AreAllOfThemWhenTheBoxesHoldAnotherPage)
{
    constexpr std::size_t none = static_cast<std::size_t>(-1);
    EXPECT_EQ(app::overdue_views(3, 3), 0u);
    EXPECT_EQ(app::overdue_views(none, none), 0u);
    EXPECT_EQ(app::overdue_views(3, 4), app::refresh::full);
    EXPECT_EQ(app::overdue_views(none, 0), app::refresh::full);
}

TEST(ServeRefresh, FollowsTheFixedOrderWhereBoxStateComesBeforeTheButtons)
{
    RefreshMask mask = app::refresh::full;
    EXPECT_EQ(served(mask), Views(app::service_order.begin(), app::service_order.end()));
    EXPECT_EQ(served(mask), Views{ View::history_enabled });
}

TEST(ServeRefresh, OfThePageAloneBringsTheFileViewsAlong)
{
    RefreshMask mask = 0x1;
    EXPECT_EQ(served(mask), (Views{ View::page, View::file_pane, View::file_combo, View::file_list_editor }));
    EXPECT_EQ(mask, 0u);
}

TEST(ServeRefresh, TouchesOnlyTheNamedViews)
{
    RefreshMask mask = app::refresh::file_choice;
    EXPECT_EQ(served(mask), (Views{ View::file_pane, View::file_list_editor }));
    mask = 0x380; // bits without a meaning
    EXPECT_EQ(served(mask), Views{});
}

TEST(ServeRefresh, ClearsABitBeforeItsWork)
{
    RefreshMask mask = app::refresh::full;
    app::serve_refresh(mask, [&](View view) {
        EXPECT_EQ(app::has_view(mask, view), view == View::history_enabled);
        EXPECT_EQ(view == View::page ? mask & 0xF : 0, 0u);
    });
}

TEST(ServeRefresh, ServesALaterViewThatAnEarlierOneAdds)
{
    RefreshMask mask = 0x10;
    Views views;
    app::serve_refresh(mask, [&](View view) {
        views.push_back(view);
        if (view == View::tabs)
            mask |= 0x8000 | 0x1;
    });
    EXPECT_EQ(views, (Views{ View::tabs, View::status_bar }));
    EXPECT_EQ(mask, 0x1u);
}

} // namespace
