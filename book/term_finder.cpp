#include "book/term_finder.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <bit>
#include <memory>
#include <utility>

// A term is searched by the two of its first 32 units that are expected least often in a text. NarrowText
// finds the few places that pass both byte tests, and only those are compared with the whole term. The tests
// let every occurrence pass, so the choice of the two units decides speed alone, never the result.
//
// For a search that ignores case, the byte test sets all bits in which the forms of the letter differ, in the
// text's byte and in the expected value. For ASCII that is one bit; both cases pass, and hardly anything else
// does.

namespace book {

namespace {

using platform::lower_case_table;

std::uint16_t unit_of(wchar_t unit)
{
    return static_cast<std::uint16_t>(unit);
}

// For each lower-case unit: the bits in which the units that fold to it differ from it.
const platform::UnitTable& fold_masks()
{
    static const std::unique_ptr<const platform::UnitTable> masks = [] {
        auto filled = std::make_unique<platform::UnitTable>();
        const platform::UnitTable& lower = lower_case_table();
        for (std::size_t unit = 0; unit < platform::unit_count; ++unit) {
            std::uint16_t& mask = (*filled)[lower[unit]];
            mask = static_cast<std::uint16_t>(mask | (unit ^ lower[unit]));
        }
        return filled;
    }();
    return *masks;
}

// How often a unit is expected in English or Japanese text; higher is more often. A guess is enough.
int commonness(int unit)
{
    constexpr std::wstring_view common = L" eaoitnsrlhdcumpgfybvkw()/,.-:\r\n";
    if (const std::size_t place = common.find(static_cast<wchar_t>(unit)); place != std::wstring_view::npos)
        return 100 - static_cast<int>(place);
    const bool is_kana = unit >= 0x3041 && unit <= 0x30FF;
    const bool is_punctuation = unit >= 0x3000 && unit <= 0x3002;
    return is_kana || is_punctuation ? 50 : 0;
}

struct Candidate {
    Probe probe;
    int cost; // higher if more units of a text are expected to pass the probe
};

Probe make_probe(std::size_t offset, std::uint16_t unit, std::uint16_t open_bits)
{
    Probe probe{ .offset = offset };
    probe.mask.fill(static_cast<std::uint8_t>(open_bits));
    probe.value.fill(static_cast<std::uint8_t>(unit | open_bits));
    return probe;
}

Candidate candidate_at(std::wstring_view term, std::size_t offset, LetterCase letter_case)
{
    std::uint16_t unit = unit_of(term[offset]);
    std::uint16_t open_bits = 0;
    if (letter_case == LetterCase::folded) {
        unit = lower_case_table()[unit];
        open_bits = fold_masks()[unit];
    }
    // One open bit admits both cases of a letter; each further bit admits unrelated units.
    constexpr int cost_of_a_stranger = 20;
    const int strangers = std::max(0, std::popcount(open_bits & 0xFFu) - 1);
    // Only the low byte is tested, so a rare unit may look like a common ASCII character.
    const int cost = std::max(commonness(unit), commonness(unit & 0xFF));
    return { make_probe(offset, unit, open_bits), cost + strangers * cost_of_a_stranger };
}

} // namespace

TermFinder::TermFinder(std::wstring_view term, LetterCase letter_case)
    : term_(term)
    , letter_case_(letter_case)
{
    if (term.empty())
        return;
    Candidate first = candidate_at(term, 0, letter_case);
    Candidate second = first;
    for (std::size_t offset = 1; offset < std::min(term.size(), NarrowText::reach); ++offset) {
        const Candidate next = candidate_at(term, offset, letter_case);
        if (next.cost < first.cost)
            second = std::exchange(first, next);
        else if (offset == 1 || next.cost < second.cost)
            second = next;
    }
    first_ = first.probe;
    second_ = second.probe;
}

bool TermFinder::find(std::wstring_view text, std::size_t& pos) const
{
    for (std::size_t begin = pos; begin < text.size(); begin += NarrowText::most_starts) {
        const std::size_t start = find_in_piece(NarrowText(text.substr(begin)), begin, text, pos);
        if (start != text.size()) {
            pos = start;
            return true;
        }
    }
    pos = text.size();
    return false;
}

bool TermFinder::finds_any(std::span<const TermFinder> finders, std::wstring_view text)
{
    for (std::size_t begin = 0; begin < text.size(); begin += NarrowText::most_starts) {
        const NarrowText piece(text.substr(begin));
        for (const TermFinder& finder : finders)
            if (finder.find_in_piece(piece, begin, text, 0) != text.size())
                return true;
    }
    return false;
}

bool TermFinder::occurs_at(std::wstring_view text, std::size_t start, std::size_t from) const
{
    // Never start in the middle of a surrogate pair, unless the caller began the search there.
    if (platform::is_low_surrogate(text[start]) && start > from
        && platform::is_high_surrogate(text[start - 1]))
        return false;
    const std::wstring_view units = text.substr(start, term_.size());
    if (letter_case_ == LetterCase::exact)
        return units == term_;
    const platform::UnitTable& lower = lower_case_table();
    return std::equal(units.begin(), units.end(), term_.begin(),
        [&](wchar_t a, wchar_t b) { return lower[unit_of(a)] == lower[unit_of(b)]; });
}

} // namespace book
