// When a text box opens the input method.
#include "look/input_method.hpp"
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using Calls = std::vector<std::string>;

// Records the calls it receives.
class NotedMethod : public look::InputMethod {
public:
    bool acquire() override
    {
        calls.emplace_back("acquire");
        return exists;
    }
    bool is_open() override
    {
        calls.emplace_back("is_open");
        return opened;
    }
    void open() override { calls.emplace_back("open"); }
    void release() override { calls.emplace_back("release"); }

    bool exists = true;
    bool opened = false;
    Calls calls;
};

TEST(InputMethod, IsOpenedWhenItIsClosed)
{
    NotedMethod method;
    look::open_on_focus(method, true);
    EXPECT_EQ(method.calls, (Calls{ "acquire", "is_open", "open", "release" }));
}

TEST(InputMethod, IsNotOpenedAgain)
{
    NotedMethod method;
    method.opened = true;
    look::open_on_focus(method, true);
    EXPECT_EQ(method.calls, (Calls{ "acquire", "is_open", "release" }));
}

TEST(InputMethod, IsLeftAloneWhenTheSettingsDoNotWantIt)
{
    NotedMethod method;
    look::open_on_focus(method, false);
    EXPECT_EQ(method.calls, Calls{});
}

TEST(InputMethod, MayBeMissing)
{
    NotedMethod method;
    method.exists = false;
    look::open_on_focus(method, true);
    EXPECT_EQ(method.calls, Calls{ "acquire" });
}

} // namespace
