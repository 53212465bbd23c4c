#include "tools/bok/mend.hpp"
#include "book/page_text.hpp"
#include "tools/bok/page_rules.hpp"
#include "tools/bok/streams.hpp"
#include "tools/bok/utf8.hpp"

namespace bok {

namespace {

class Mender {
public:
    Mender(book::Page& page, const std::function<void(const std::string&)>& tell)
        : page_(page)
        , tell_(tell)
    {
    }

    // Repairs until the page would come back from a file unchanged. Each round removes one flaw.
    void mend()
    {
        mend_stamp();
        while (const auto flaw = check_verbatim_page(page_))
            mend(*flaw);
    }

private:
    // The program needs both times of a page: a missing one becomes the current time.
    void mend_stamp()
    {
        if (page_.stamp.size() >= 2 * book::time_length)
            return;
        const std::wstring now = book::current_time_text();
        const bool has_creation = page_.stamp.size() >= book::time_length;
        std::wstring mended = (has_creation ? page_.stamp.substr(0, book::time_length) : now) + now;
        tell_("stamp \"" + printable(std::wstring_view(page_.stamp)) + "\" becomes \""
            + printable(std::wstring_view(mended)) + '"');
        page_.stamp = std::move(mended);
    }

    // Removes all separators of the field, as the program's own boxes do. Any other flaw cannot come from a
    // file.
    void mend(const PageFlaw& flaw)
    {
        std::wstring& text = text_of_field(flaw);
        const std::size_t length = text.size();
        book::remove_separator(text);
        if (text.size() == length)
            throw Problem(name_of(flaw) + ' ' + flaw.reason);
        tell_(name_of(flaw) + ' ' + flaw.reason + ": U+0003 is removed");
        if (flaw.field == PageField::stamp)
            mend_stamp();
        // A file entry that is blank now would be dropped by loading, so it is removed here.
        if (flaw.field != PageField::files || !book::trimmed(text, book::TrimMode::both).empty())
            return;
        page_.files.erase(page_.files.begin() + static_cast<std::ptrdiff_t>(flaw.entry));
        if (page_.current_file > 0 && page_.current_file >= flaw.entry)
            --page_.current_file;
    }

    std::wstring& text_of_field(const PageFlaw& flaw)
    {
        switch (flaw.field) {
        case PageField::box1:
            return page_.text[0];
        case PageField::box2:
            return page_.text[1];
        case PageField::box3:
            return page_.text[2];
        case PageField::files:
            return page_.files[flaw.entry];
        case PageField::folder:
            return page_.reference_folder;
        case PageField::stamp:
            return page_.stamp;
        default:
            throw Problem(name_of(flaw) + ' ' + flaw.reason);
        }
    }

    book::Page& page_;
    const std::function<void(const std::string&)>& tell_;
};

} // namespace

void mend_page(book::Page& page, const std::function<void(const std::string&)>& tell)
{
    Mender(page, tell).mend();
}

} // namespace bok
