// The session reports that the shown page has new hits, so that they can be listed again.
#include "tests/support/session_fixture.hpp"

namespace {

using namespace test_support;

class HitsRenewed : public SessionTest {
protected:
    // How often they are reported while `action` runs as a command.
    int reports(const std::function<void()>& action)
    {
        room.renewals = 0;
        session.run(action);
        return room.renewals;
    }
};

TEST_F(HitsRenewed, AreReportedAfterAChangeOfTextAndOfTheFileList)
{
    desk.asked.terms = { L"x" };
    desk.type(0, L"xx");
    EXPECT_EQ(reports([&] { session.save(app::SaveCode::if_changed); }), 1);
    EXPECT_EQ(book.hits.size(), 2u);
    EXPECT_EQ(reports([&] { app::add_files(session, [] { return std::vector<std::wstring>{ L"x" }; }); }), 1);
    EXPECT_EQ(reports([&] { session.note_content_change(); }), 1);
}

TEST_F(HitsRenewed, AreNotReportedWhenAnotherPageIsShown)
{
    EXPECT_EQ(reports([&] {
        app::turn_page(session, 1);
        session.merge(core::refresh::full);
    }),
        0);
    desk.type(0, L"new");
    talk.answers = { true };
    EXPECT_EQ(reports([&] {
        app::turn_page(session, 1); // saves the edits first
        session.merge(core::refresh::full);
    }),
        0);
    EXPECT_EQ(reports([&] { session.load_book(path); }), 0);
}

TEST_F(HitsRenewed, AreNotReportedWithoutAChange)
{
    EXPECT_EQ(reports([] {}), 0);
    EXPECT_EQ(reports([&] { session.merge(core::refresh::full); }), 0);
}

TEST_F(HitsRenewed, AreReportedAfterAChangeByAView)
{
    room.while_serving = [&](core::View view) {
        if (view == core::View::box_state)
            session.note_content_change();
    };
    EXPECT_GE(reports([&] { session.merge(core::refresh::controls | 0x1000); }), 1);
}

TEST_F(HitsRenewed, ANewQueryIsAppliedAtOnceAndOnlyOnce)
{
    desk.asked.terms = { L"one" };
    EXPECT_TRUE(session.renew_hits());
    EXPECT_EQ(book.hits.size(), 1u);
    EXPECT_FALSE(session.renew_hits());
    EXPECT_EQ(reports([] {}), 0);
}

} // namespace
