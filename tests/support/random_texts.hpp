// Texts and terms that are hard for a search.
#pragma once
#include <cstddef>
#include <iterator>
#include <random>
#include <string>

namespace test_support {

// Few different units, so that terms occur; many share a low byte or a folded form.
inline constexpr wchar_t hard_units[] = { L'a', L'A', L'k', L'K', 0x212A, 0x6B6B, 0x4B6B, L'j', 0x0100,
    0x0101, 0xD842, 0xD83D, 0xDFB7, 0xDE00, 0xDE20, 0, L' ', 0x3042, 0x30A2, 0xFF21, 0xFF41 };

class RandomTexts {
public:
    explicit RandomTexts(unsigned seed)
        : generator_(seed)
    {
    }

    std::size_t below(std::size_t limit) { return generator_() % limit; }
    bool coin() { return below(2) == 1; }

    std::wstring text(std::size_t longest)
    {
        // Fewer units to choose from make longer partial matches.
        const std::size_t first = below(std::size(hard_units));
        const std::size_t span = 1 + below(std::size(hard_units));
        std::wstring made(below(longest + 1), L'\0');
        for (wchar_t& unit : made)
            unit = hard_units[(first + below(span)) % std::size(hard_units)];
        return made;
    }

    std::wstring term_for(const std::wstring& text)
    {
        if (text.empty() || below(4) == 0)
            return this->text(4);
        const std::size_t start = below(text.size());
        return text.substr(start, 1 + below(below(4) == 0 ? 120 : 6));
    }

private:
    std::mt19937 generator_;
};

} // namespace test_support
