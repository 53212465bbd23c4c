#include "book/replace.hpp"
#include "book/page_text.hpp"
#include "book/term_finder.hpp"
#include <utility>
#include <vector>

// All new texts are built before the first page changes, and then exchanged with the old ones, which cannot
// fail. A text is built in one pass: the pieces between the occurrences are copied, never moved.

namespace book {

namespace {

std::wstring without_line_breaks(std::wstring text)
{
    std::erase_if(text, [](wchar_t unit) { return unit == L'\r' || unit == L'\n'; });
    return text;
}

class Replacer {
public:
    explicit Replacer(const ReplaceRequest& request)
        : targets_(request.targets)
        , finder_(request.search, request.letter_case)
        , replacement_(request.replacement)
        , line_replacement_(without_line_breaks(request.replacement))
    {
    }

    void add(Page& page)
    {
        if (targets_ & replace_target::boxes)
            add_boxes(page);
        if (targets_ & replace_target::file_list)
            for (std::wstring& entry : page.files)
                add_line(entry);
        if (targets_ & replace_target::folder)
            add_line(page.reference_folder);
    }

    std::size_t commit() noexcept
    {
        for (Change& change : changes_)
            change.field->swap(change.text);
        return count_;
    }

private:
    struct Change {
        std::wstring* field;
        std::wstring text;
    };

    void add_boxes(Page& page)
    {
        const std::size_t count_before = count_;
        add_text(page.text[0]);
        if (add_line(page.text[1]))
            trim_text(changes_.back().text, TrimMode::both);
        add_text(page.text[2]);
        if (count_ == count_before)
            return;
        std::wstring stamp = page.stamp;
        renew_stamp(stamp, now_);
        changes_.push_back({ &page.stamp, std::move(stamp) });
    }

    bool add_text(std::wstring& field) { return add(field, replacement_); }

    // Deleting what was between a lone CR and a lone LF would make a line break of them.
    bool add_line(std::wstring& field)
    {
        if (!add(field, line_replacement_))
            return false;
        std::wstring& text = changes_.back().text;
        if (text.find(L"\r\n") != std::wstring::npos)
            text = without_line_breaks(std::move(text));
        return true;
    }

    // False if nothing was found.
    bool add(std::wstring& field, std::wstring_view replacement)
    {
        starts_.clear();
        finder_.for_each(field, [this](std::size_t start) { starts_.push_back(start); });
        if (starts_.empty())
            return false;
        std::wstring text;
        text.reserve(field.size() - starts_.size() * finder_.length() + starts_.size() * replacement.size());
        std::size_t copied = 0;
        for (const std::size_t start : starts_) {
            text.append(field, copied, start - copied);
            text += replacement;
            copied = start + finder_.length();
        }
        text.append(field, copied);
        changes_.push_back({ &field, std::move(text) });
        count_ += starts_.size();
        return true;
    }

    ReplaceTargets targets_;
    TermFinder finder_;
    const std::wstring& replacement_;
    std::wstring line_replacement_;
    std::wstring now_ = current_time_text();
    std::vector<Change> changes_;
    std::vector<std::size_t> starts_; // of the occurrences in one field
    std::size_t count_ = 0;
};

} // namespace

void remove_separators(ReplaceRequest& request)
{
    remove_separator(request.search);
    remove_separator(request.replacement);
}

std::size_t replace_in_pages(std::span<Page> pages, const ReplaceRequest& request)
{
    Replacer replacer(request);
    for (Page& page : pages)
        replacer.add(page);
    return replacer.commit();
}

std::size_t replace_in_page(Page& page, const ReplaceRequest& request)
{
    return replace_in_pages({ &page, 1 }, request);
}

} // namespace book
