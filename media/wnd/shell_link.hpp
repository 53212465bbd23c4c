// Shell links, one file each.
#pragma once
#include "media/file_links.hpp"
#include <windows.h>
#include <array>
#include <shobjidl.h>
#include <string>
#include <wrl/client.h>

namespace media {

// Needs COM on its thread, and must be destroyed before COM ends.
class ShellLink : public LinkStore {
public:
    // `owner` owns the windows that the shell shows while it searches for a moved target.
    explicit ShellLink(HWND owner);

    bool is_ready() const override { return file_ != nullptr; }
    // The shell may show a window and then dispatches messages.
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
