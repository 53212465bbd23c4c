// The worker that makes links for a Book's files, with the largest number of paths to be expected.
#include "bench/harness.hpp"
#include "media/shortcut_queue.hpp"
#include "media/system_paths.hpp"
#include "media/wnd/shell_link.hpp"
#include "tests/support/temp_folder.hpp"
#include <objbase.h>
#include <stdexcept>

namespace bench {

namespace {

constexpr std::size_t path_count = 200000;
constexpr std::size_t file_count = 200; // each of them in a thousand entries
constexpr int few_rounds = 3;

using Paths = std::vector<std::wstring>;

class ComSession {
public:
    ComSession()
        : is_ready_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
    {
    }
    ~ComSession()
    {
        if (is_ready_)
            CoUninitialize();
    }
    ComSession(const ComSession&) = delete;
    ComSession& operator=(const ComSession&) = delete;

private:
    bool is_ready_;
};

class NeverStopped : public media::WorkerControl {
public:
    bool is_stopped() const override { return false; }
    void yield() override { Sleep(0); }
};

// Existing files, missing files and links in a temporary folder.
class LinkSite {
public:
    LinkSite()
    {
        if (!store_.is_ready() || !names_.is_ready() || !platform::create_folder(folder_.file(L"links")))
            throw std::runtime_error("no links can be made");
        for (std::size_t i = 0; i < path_count; ++i) {
            const std::wstring number = std::to_wstring(i % file_count);
            there.push_back(folder_.file(L"絵" + number + L".png"));
            missing.push_back(folder_.file(L"無い" + std::to_wstring(i) + L".png"));
            if (i < file_count)
                test_support::write_text(there[i], L"x");
            links.push_back(i < file_count ? names_.link_of(there[i]).value() : links[i % file_count]);
        }
    }

    void run(const Paths& paths)
    {
        media::ShortcutQueue queue;
        queue.replace(paths);
        media::make_links(queue, store_, names_, paths_, control_);
    }
    // Makes the links without checking the files and without hashing names.
    void make_bare()
    {
        for (std::size_t i = 0; i < file_count; ++i)
            store_.save(there[i], bare_place(i));
    }
    void remove_links() const
    {
        for (std::size_t i = 0; i < file_count; ++i) {
            platform::remove_file(links[i]);
            platform::remove_file(bare_place(i));
        }
    }

    Paths there;
    Paths missing;
    Paths links; // of the files in `there`

private:
    std::wstring bare_place(std::size_t i) const { return folder_.file(std::to_wstring(i) + L".lnk"); }

    ComSession com_;
    test_support::TempFolder folder_;
    media::ShellLink store_{ nullptr };
    media::HashedLinkNames names_{ folder_.file(L"links") + L"\\" };
    media::SystemPaths paths_;
    NeverStopped control_;
};

void ask_for(const Paths& paths)
{
    for (const std::wstring& path : paths)
        keep(GetFileAttributesW(path.c_str()));
}

} // namespace

void run_links(Bench& bench)
{
    LinkSite site;
    const Paths first{ site.there.begin(), site.there.begin() + file_count };
    bench.run({ .name = "worker, 200 new links",
        .subject = [&] { site.run(first); },
        .against = "the shell's own making of as many",
        .yardstick = [&] { site.make_bare(); },
        .target_ratio = 1.2,
        .rounds = few_rounds,
        .prepare = [&] { site.remove_links(); } });
    bench.run({ .name = "worker, 200,000 paths that have a link",
        .subject = [&] { site.run(site.there); },
        .against = "asking for each path and each link",
        .yardstick =
            [&] {
                ask_for(site.there);
                ask_for(site.links);
            },
        .target_ratio = 1.5,
        .rounds = few_rounds });
    bench.run({ .name = "worker, 200,000 paths of missing files",
        .subject = [&] { site.run(site.missing); },
        .against = "asking for each path",
        .yardstick = [&] { ask_for(site.missing); },
        .target_ratio = 1.2,
        .rounds = few_rounds });
}

} // namespace bench
