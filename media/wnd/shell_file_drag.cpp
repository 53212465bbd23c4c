#include "media/wnd/shell_file_drag.hpp"

namespace media {

ShellFileDrag::ShellFileDrag()
    : source_(ovlib::make_com<ovlib::DragFiles>())
{
}

void ShellFileDrag::run(const std::wstring& path)
{
    if (GetKeyState(VK_LBUTTON) >= 0)
        return;
    const auto data = ovlib::make_com<ovlib::DragDataObject>();
    data->paths = { path };
    const auto source = source_; // the pane may be destroyed meanwhile
    DWORD effect = DROPEFFECT_NONE;
    DoDragDrop(data.Get(), source.Get(), DROPEFFECT_COPY, &effect);
}

} // namespace media
