// White space, trimming and the other small operations on text.
#include "platform/text.hpp"
#include <gtest/gtest.h>
#include <set>

namespace {

TEST(WhiteSpace, IsExactlyTheProgramsOwnTable)
{
    const std::set<int> expected{ 0x9, 0xA, 0xB, 0xC, 0xD, 0x20, 0x85, 0xA0, 0x1680, 0x2000, 0x2001, 0x2002,
        0x2003, 0x2004, 0x2005, 0x2006, 0x2007, 0x2008, 0x2009, 0x200A, 0x2028, 0x2029, 0x202F, 0x205F,
        0x3000 };
    for (int unit = 0; unit < 0x10000; ++unit)
        EXPECT_EQ(platform::is_white_space(static_cast<wchar_t>(unit)), expected.contains(unit)) << unit;
}

} // namespace
