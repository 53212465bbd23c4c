// The shell's properties of one file.
#pragma once
#include "media/file_facts.hpp"
#include <windows.h>
#include <propsys.h>
#include <shobjidl.h>
#include <string>
#include <wrl/client.h>

namespace media {

// The value as stored; empty if the store has no such value.
PropertyValue stored_property(IPropertyStore& store, FileProperty property);
// Converted from the stored type; 0 if that fails.
std::uint64_t stored_duration(IPropertyStore& store);

// Needs COM. Reads nothing while closed.
class ShellPropertyReader : public PropertySource {
public:
    bool open(const std::wstring& path) override;
    void close() override;
    PropertyValue read(FileProperty property) override;
    std::uint64_t read_duration() override;

    bool is_opened() const { return opened_; }
    const std::wstring& path() const { return path_; }

private:
    Microsoft::WRL::ComPtr<IShellItem2> item_;
    Microsoft::WRL::ComPtr<IPropertyStore> store_;
    std::wstring path_;
    bool opened_ = false;
};

} // namespace media
