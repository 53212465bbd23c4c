// Programs of the user and of the system that the program under test starts.
#pragma once
#include "driver_window.hpp"
#include <filesystem>
#include <string>
#include <vector>

namespace e2e {

// While it lives, files with that extension belong to a program that notes how it is called.
class RecordedProgram {
public:
    // The program is copied into `folder`. `extension` with its point.
    RecordedProgram(const std::filesystem::path& folder, std::wstring extension);
    RecordedProgram(const RecordedProgram&) = delete;
    RecordedProgram& operator=(const RecordedProgram&) = delete;
    ~RecordedProgram();

    // What it was called with, each call's parameters as they stood.
    std::vector<std::wstring> calls() const;

private:
    std::filesystem::path program_;
    std::wstring extension_;
};

// Waits for the file manager's window of that folder and closes it.
void close_folder_window(const std::wstring& folder_name);

} // namespace e2e
