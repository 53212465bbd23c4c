// The links by which a file that was moved is found again: one for each path, named by the path's hash. None
// is ever deleted.
#pragma once
#include "platform/hash_provider.hpp"
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace media {

// What is hashed of a path: its UTF-16 units, two bytes each, low byte first, nothing folded.
std::vector<std::byte> hashed_bytes(std::wstring_view path);
// 64 lower-case hexadecimal digits and ".lnk".
std::wstring link_name(const platform::Digest& digest);

// Which link belongs to a path.
class LinkNames {
public:
    virtual ~LinkNames() = default;
    virtual bool is_ready() const = 0;
    virtual std::optional<std::wstring> link_of(const std::wstring& path) = 0;
};

class HashedLinkNames : public LinkNames {
public:
    // `prefix` is the folder of the links with its separator.
    explicit HashedLinkNames(std::wstring prefix);
    bool is_ready() const override { return hash_.is_ready(); }
    std::optional<std::wstring> link_of(const std::wstring& path) override;

private:
    std::wstring prefix_;
    platform::HashProvider hash_;
};

// Has `write` make the file beside `link`, under a name that is never taken for a link's, and gives it its
// own name when it is whole: a link that exists is one that leads somewhere. What a writing that failed
// leaves is removed; where even that fails, the next one for this link replaces it.
bool save_whole(const std::wstring& link, const std::function<bool(const std::wstring& file)>& write);

// Keeps where files went. Used by the thread that made it.
class LinkStore {
public:
    virtual ~LinkStore() = default;
    virtual bool is_ready() const = 0;
    // The present path of the link's target, for which the user may be asked; empty when it cannot be told.
    // The link stays as it is.
    virtual std::wstring resolve(const std::wstring& link) = 0;
    virtual bool save(const std::wstring& target, const std::wstring& link) = 0;
};

// What is asked of the file system.
class PathQuestions {
public:
    virtual ~PathQuestions() = default;
    virtual bool exists(const std::wstring& path) = 0;
    // Counted from the current directory.
    virtual std::wstring absolute(const std::wstring& path) = 0;
};

} // namespace media
