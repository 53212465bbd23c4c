// Finds a file that is no longer at the path of its entry.
#pragma once
#include "media/file_links.hpp"
#include <string>

namespace media {

// The user and the page, as the search needs them. Message boxes dispatch messages, so another page may be
// shown when one returns.
class SearchTalk {
public:
    virtual ~SearchTalk() = default;
    virtual void warn(const std::wstring& text) = 0;
    // True for yes.
    virtual bool ask(const std::wstring& text) = 0;
    // Asks whether to remove the entry from the list, and does so.
    virtual void offer_removal() = 0;
    // Replaces the entry by the path and shows it; false if the entry no longer exists.
    virtual bool replace_entry(const std::wstring& found) = 0;
};

struct MovedFileSearch {
    LinkStore& store;
    LinkNames& names;
    PathQuestions& paths;
    SearchTalk& talk;
};

// Searches the file of `entry`; true if the list was changed. Does nothing, without a message, if the file
// exists. The link is looked up by the absolute path. A link that was made for a relative path as written is
// therefore not found, and removal of the entry is offered.
bool search_moved_file(const std::wstring& entry, MovedFileSearch with);

} // namespace media
