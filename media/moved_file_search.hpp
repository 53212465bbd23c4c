// Finding a file again that is no longer where its entry says.
#pragma once
#include "media/file_links.hpp"
#include <string>

namespace media {

// What the search asks of the user and of the page. Boxes let messages through: what stands on the page may
// be another when one returns.
class SearchTalk {
public:
    virtual ~SearchTalk() = default;
    virtual void warn(const std::wstring& text) = 0;
    // True for yes.
    virtual bool ask(const std::wstring& text) = 0;
    // Asks whether the entry shall leave the list.
    virtual void offer_removal() = 0;
    // Puts the path in the entry's place and shows it; false when the entry is no longer there.
    virtual bool replace_entry(const std::wstring& found) = 0;
};

struct MovedFileSearch {
    LinkStore& store;
    LinkNames& names;
    PathQuestions& paths;
    SearchTalk& talk;
};

// True when the list was changed. An entry that is there needs no search and no word. The link is that of the
// absolute path, also where it was made for the path as written: such a one is not found, and its entry is
// offered for removal.
bool search_moved_file(const std::wstring& entry, MovedFileSearch with);

} // namespace media
