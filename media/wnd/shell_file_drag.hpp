// Drags of files out of the pane.
#pragma once
#include "media/wnd/filewnd.hpp"
#include "ovlib/gui/drag_files.hpp"
#include <wrl/client.h>

namespace media {

// Copies the file to the window on which the user drops it. Without a pressed left button it does nothing:
// the drag would end at once as a drop on the window under the cursor.
class ShellFileDrag : public FileDrag {
public:
    ShellFileDrag();
    void run(const std::wstring& path) override;

private:
    Microsoft::WRL::ComPtr<ovlib::DragFiles> source_; // serves all drags
};

} // namespace media
