// Links as the shell keeps them, one file each.
#pragma once
#include "media/file_links.hpp"
#include <array>
#include <string>
#include <windows.h>

#include <shobjidl.h>
#include <wrl/client.h>

namespace media {

// Needs COM on its thread and must end before COM does.
class ShellLink : public LinkStore {
public:
    // `owner` of what the shell shows when it looks for a target that has gone.
    explicit ShellLink(HWND owner);

    bool is_ready() const override { return file_ != nullptr; }
    // May show a window of the shell and lets messages through then.
    std::wstring resolve(const std::wstring& link) override;
    bool save(const std::wstring& target, const std::wstring& link) override;

private:
    static constexpr std::size_t longest_path = 2048;

    HWND owner_;
    Microsoft::WRL::ComPtr<IShellLinkW> link_;
    Microsoft::WRL::ComPtr<IPersistFile> file_;
    std::array<wchar_t, longest_path> path_{};
};

} // namespace media
