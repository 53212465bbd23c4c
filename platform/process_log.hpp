// The process's log: text collected in memory and written to a file once, when the program ends.
#pragma once
#include "platform/file.hpp"
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace ovlib::WinApp {

// Shared by all threads. Nothing is collected while the path is empty, and no code of the program sets one,
// so the log is silent in normal use. It has no levels, times or separators: each caller ends its text with
// CR LF.
template <class Char> class ProcessLog {
public:
    using Text = std::basic_string<Char>;
    using View = std::basic_string_view<Char>;
    using ErrorText = Text (*)(std::uint32_t code);

    ProcessLog() = default;
    ProcessLog(const ProcessLog&) = delete;
    ProcessLog& operator=(const ProcessLog&) = delete;

    ProcessLog& append(View text);
    // Appends the system's message for `code`; nothing if there is none.
    ProcessLog& append_error(std::uint32_t code);
    ProcessLog& operator<<(View text) { return append(text); }

    // Writes the buffer over the start of the file as 16-bit units, without a byte order mark. The file is
    // not truncated: the end of a longer old text remains. The buffer is cleared only if all of it was
    // written.
    void flush();

    void set_path(std::wstring path);
    void set_error_text(ErrorText source);
    Text buffered() const;

private:
    mutable std::mutex lock_;
    Text buffer_;
    std::wstring path_;
    ErrorText error_text_ = nullptr;
};

template <class Char> ProcessLog<Char>& ProcessLog<Char>::append(View text)
{
    const std::scoped_lock hold{ lock_ };
    if (!path_.empty())
        buffer_ += text;
    return *this;
}

template <class Char> ProcessLog<Char>& ProcessLog<Char>::append_error(std::uint32_t code)
{
    const std::scoped_lock hold{ lock_ };
    if (!path_.empty() && error_text_)
        buffer_ += error_text_(code);
    return *this;
}

template <class Char> void ProcessLog<Char>::flush()
{
    const std::scoped_lock hold{ lock_ };
    if (path_.empty())
        return;
    auto file = platform::File::open_over(path_);
    if (!file.is_open())
        return;
    std::u16string units;
    units.reserve(buffer_.size());
    for (const Char unit : buffer_)
        units += static_cast<char16_t>(unit);
    if (file.write(std::as_bytes(std::span{ units })))
        buffer_.clear();
}

template <class Char> void ProcessLog<Char>::set_path(std::wstring path)
{
    const std::scoped_lock hold{ lock_ };
    path_ = std::move(path);
}

template <class Char> void ProcessLog<Char>::set_error_text(ErrorText source)
{
    const std::scoped_lock hold{ lock_ };
    error_text_ = source;
}

template <class Char> typename ProcessLog<Char>::Text ProcessLog<Char>::buffered() const
{
    const std::scoped_lock hold{ lock_ };
    return buffer_;
}

// The only log of the process.
inline ProcessLog<wchar_t>& process_log()
{
    static ProcessLog<wchar_t> log;
    return log;
}

} // namespace ovlib::WinApp
