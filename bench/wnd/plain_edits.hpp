// The yardstick of what the main window does with text: the system's own edit controls in a plain window.
#pragma once
#include <string>
#include <vector>
#include <windows.h>

namespace bench {

class PlainEdits {
public:
    // One edit control for each of `models`, with its place, style and font.
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
