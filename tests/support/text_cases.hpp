// Checks a function from text to text against a table.
#pragma once
#include <gtest/gtest.h>
#include <initializer_list>
#include <string_view>

namespace test_support {

struct TextCase {
    std::wstring_view given;
    std::wstring_view expected;
};

template <class Function> void expect_texts(Function function, std::initializer_list<TextCase> cases)
{
    for (const TextCase& text : cases)
        EXPECT_EQ(function(text.given), text.expected) << testing::PrintToString(text.given);
}

} // namespace test_support
