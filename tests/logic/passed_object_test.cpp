// Objects passed in the argument of a command.
#include "core/passed_object.hpp"
#include <gtest/gtest.h>
#include <string>

namespace {

using core::PassedObject;

TEST(PassedObject, IsFoundDuringItsScopeOnly)
{
    const std::wstring text = L"someone@example.com";
    std::int64_t lparam = 0;
    {
        const PassedObject passed{ text };
        lparam = passed.lparam();
        EXPECT_EQ(PassedObject::find<std::wstring>(lparam), &text);
    }
    EXPECT_EQ(PassedObject::find<std::wstring>(lparam), nullptr);
}

TEST(PassedObject, IsNotFoundAsAnotherType)
{
    const std::wstring text;
    const PassedObject passed{ text };
    EXPECT_EQ(PassedObject::find<int>(passed.lparam()), nullptr);
}

TEST(PassedObject, AnyOtherNumberIsHarmless)
{
    const std::wstring text;
    const PassedObject passed{ text };
    for (const std::int64_t lparam : { std::int64_t{ 0 }, std::int64_t{ -1 }, passed.lparam() + 1 })
        EXPECT_EQ(PassedObject::find<std::wstring>(lparam), nullptr);
}

TEST(PassedObject, OfAnOuterCallIsFoundInANestedOne)
{
    const std::wstring outer_text;
    const int number = 7;
    const PassedObject outer{ outer_text };
    {
        const PassedObject inner{ number };
        EXPECT_EQ(PassedObject::find<std::wstring>(outer.lparam()), &outer_text);
        EXPECT_EQ(PassedObject::find<int>(inner.lparam()), &number);
    }
    EXPECT_EQ(PassedObject::find<std::wstring>(outer.lparam()), &outer_text);
}

} // namespace
