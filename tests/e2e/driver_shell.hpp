// Programs of the user and of the system that the program under test starts.
#pragma once
#include "driver_window.hpp"
#include <filesystem>
#include <string>
#include <vector>

namespace e2e {

// During its lifetime, files with this extension are associated with a program that records how it is called.
class RecordedProgram {
public:
    // Copies the program into `folder`. `extension` includes its dot.
    RecordedProgram(const std::filesystem::path& folder, std::wstring extension);
    RecordedProgram(const RecordedProgram&) = delete;
    RecordedProgram& operator=(const RecordedProgram&) = delete;
    ~RecordedProgram();

    // The command line parameters of each call, unchanged.
    std::vector<std::wstring> calls() const;

private:
    std::filesystem::path program_;
    std::wstring extension_;
};

// Waits for the file manager's window of that folder and closes it.
void close_folder_window(const std::wstring& folder_name);

} // namespace e2e
