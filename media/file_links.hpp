// Shell links (.lnk) for finding moved files: one per path, named by the path's hash. The system can resolve
// a link to the current path of a file that was moved. Links are never deleted.
#pragma once
#include "platform/hash_provider.hpp"
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace media {

// The bytes of a path that are hashed: its UTF-16 units, little-endian, without case folding.
std::vector<std::byte> hashed_bytes(std::wstring_view path);
// 64 lower-case hexadecimal digits and ".lnk".
std::wstring link_name(const platform::Digest& digest);

// Maps a path to the file of its link.
class LinkNames {
public:
    virtual ~LinkNames() = default;
    virtual bool is_ready() const = 0;
    // nullopt if hashing fails.
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

// Calls `write` with a temporary name beside `link`, and renames the file to `link` when it is complete. So
// an existing link is always a valid one, even if the process ends while writing. The temporary file of a
// failed write is removed, or replaced by the next attempt if removing fails.
bool save_whole(const std::wstring& link, const std::function<bool(const std::wstring& file)>& write);

// Creates and resolves links. Used only on the thread that made it.
class LinkStore {
public:
    virtual ~LinkStore() = default;
    virtual bool is_ready() const = 0;
    // The current path of the link's target; empty if it cannot be found. May show a dialog of the system.
    // Does not change the link.
    virtual std::wstring resolve(const std::wstring& link) = 0;
    virtual bool save(const std::wstring& target, const std::wstring& link) = 0;
};

// File system queries, as an interface for tests.
class PathQuestions {
public:
    virtual ~PathQuestions() = default;
    virtual bool exists(const std::wstring& path) = 0;
    // Relative paths count from the current directory.
    virtual std::wstring absolute(const std::wstring& path) = 0;
};

} // namespace media
