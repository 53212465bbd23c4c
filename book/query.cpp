#include "book/query.hpp"
#include "book/page_text.hpp"
#include "platform/text.hpp"

namespace book {

namespace {

constexpr std::size_t longest_condition = 32; // code points

bool divides_terms(wchar_t unit)
{
    return unit == L' ' || unit == L'\t' || unit == 0x3000;
}

void push_unless_empty(std::wstring_view term, std::vector<std::wstring>& terms)
{
    if (!term.empty())
        terms.emplace_back(term);
}

std::wstring joined(const std::vector<std::wstring>& terms, std::wstring_view between)
{
    std::wstring text;
    for (const std::wstring& term : terms) {
        if (&term != &terms.front())
            text += between;
        text += term;
    }
    return text;
}

// The index after the first `count` code points, or the length of a shorter text. Counting code points keeps
// the cut from splitting a surrogate pair.
std::size_t end_of_code_points(std::wstring_view text, std::size_t count)
{
    std::size_t end = 0;
    for (; count > 0 && end < text.size(); --count) {
        const bool is_pair = platform::is_high_surrogate(text[end]) && end + 1 < text.size()
            && platform::is_low_surrogate(text[end + 1]);
        end += is_pair ? 2 : 1;
    }
    return end;
}

std::wstring terms_text(const SearchQuery& query)
{
    std::wstring text = joined(query.terms, query.all_terms ? L" && " : L" | ");
    if (const std::size_t end = end_of_code_points(text, longest_condition); end < text.size())
        text.replace(end, std::wstring::npos, L"...");
    return query.terms.size() > 1 ? L"<" + text + L">" : text;
}

void add_track(std::wstring& text, std::wstring_view name)
{
    if (!text.empty())
        text += L" | ";
    text += name;
}

} // namespace

void split_terms(std::wstring_view text, std::vector<std::wstring>& terms)
{
    std::wstring token;
    const auto end_token = [&] {
        push_unless_empty(token, terms);
        token.clear();
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        // A quote that is never closed falls through to the last branch.
        const std::size_t closing = text[i] == L'"' ? text.find(L'"', i + 1) : std::wstring_view::npos;
        if (closing != std::wstring_view::npos) {
            end_token();
            push_unless_empty(text.substr(i + 1, closing - i - 1), terms);
            i = closing;
        } else if (divides_terms(text[i])) {
            end_token();
        } else {
            token += text[i];
        }
    }
    end_token();
}

std::vector<std::wstring> query_terms(std::wstring text)
{
    remove_separator(text);
    std::vector<std::wstring> terms;
    split_terms(text, terms);
    return terms;
}

std::wstring condition_text(const SearchQuery& query)
{
    if (query.selected_only)
        return L"選択中のページ";
    std::wstring text = terms_text(query);
    if (query.track_marks)
        add_track(text, L"マーク追跡");
    if (query.track_tabs)
        add_track(text, L"タブ追跡");
    return text;
}

std::wstring failed_search_text(const SearchQuery& query)
{
    const std::wstring condition = condition_text(query);
    return condition.empty() ? condition : L"一致条件: " + condition;
}

} // namespace book
