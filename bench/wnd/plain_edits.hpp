// The yardstick for the main window's text boxes: the system's edit controls in a plain window.
#pragma once
#include <windows.h>
#include <string>
#include <vector>

namespace bench {

class PlainEdits {
public:
    // Makes one edit control per window in `models`, with its position, style and font.
    explicit PlainEdits(const std::vector<HWND>& models);
    PlainEdits(const PlainEdits&) = delete;
    PlainEdits& operator=(const PlainEdits&) = delete;
    ~PlainEdits();

    HWND edit(std::size_t place) const { return edits_[place]; }

private:
    HWND host_;
    std::vector<HWND> edits_;
};

} // namespace bench
