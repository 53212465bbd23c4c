// A file system, a link store and link names in memory.
#pragma once
#include "media/file_links.hpp"
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace test_support {

class FakePaths : public media::PathQuestions {
public:
    bool exists(const std::wstring& path) override
    {
        asked.push_back(path);
        return present.contains(path);
    }
    // Only a path with a drive is absolute.
    std::wstring absolute(const std::wstring& path) override
    {
        const bool is_full = path.size() > 1 && path[1] == L':';
        return can_tell ? (is_full ? path : L"C:\\data\\" + path) : std::wstring{};
    }

    std::set<std::wstring> present;
    std::vector<std::wstring> asked;
    bool can_tell = true;
};

class FakeNames : public media::LinkNames {
public:
    bool is_ready() const override { return ready; }
    std::optional<std::wstring> link_of(const std::wstring& path) override
    {
        return failing.contains(path) ? std::nullopt : std::optional{ L"<" + path + L">" };
    }

    bool ready = true;
    std::set<std::wstring> failing;
};

class FakeStore : public media::LinkStore {
public:
    explicit FakeStore(FakePaths& paths)
        : paths_(paths)
    {
    }
    bool is_ready() const override { return ready; }
    std::wstring resolve(const std::wstring& link) override
    {
        resolved.push_back(link);
        const auto found = targets.find(link);
        return found == targets.end() ? std::wstring{} : found->second;
    }
    bool save(const std::wstring& target, const std::wstring& link) override
    {
        saved.push_back(target + L" " + link);
        if (can_save)
            paths_.present.insert(link);
        return can_save;
    }

    bool ready = true;
    bool can_save = true;
    std::map<std::wstring, std::wstring> targets;
    std::vector<std::wstring> resolved;
    std::vector<std::wstring> saved;

private:
    FakePaths& paths_;
};

} // namespace test_support
