#include "tools/bok/sink.hpp"
#include "tools/bok/streams.hpp"
#include "tools/bok/utf8.hpp"
#include <ostream>
#include <span>

namespace bok {

namespace {

constexpr std::size_t piece_size = std::size_t{ 1 } << 18;
constexpr int most_attempts = 1000;

[[noreturn]] void fail(const std::wstring& path, const char* reason)
{
    throw Problem(printable(path) + ": " + reason);
}

void check_target(const std::wstring& path)
{
    if (platform::is_folder(path))
        fail(path, "is a folder");
    if (platform::exists(path) && !platform::is_regular_file(path))
        fail(path, "is not an ordinary file");
}

class StreamSink : public Sink {
public:
    explicit StreamSink(std::ostream& out)
        : out_(out)
    {
    }

protected:
    void write(std::string_view bytes) override
    {
        out_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!out_)
            throw Problem("the output cannot be written");
    }
    void close() override
    {
        if (!out_.flush())
            throw Problem("the output cannot be written");
    }

private:
    std::ostream& out_;
};

class FileSink : public Sink {
public:
    explicit FileSink(const std::wstring& path)
        : replacement_(path)
        , file_(platform::File::create(replacement_.path()))
    {
        if (!file_.is_open())
            fail(path, "cannot be written");
    }

protected:
    void write(std::string_view bytes) override
    {
        if (!file_.write(std::as_bytes(std::span(bytes))))
            fail(replacement_.target(), "cannot be written completely; the old file is unchanged");
    }
    void close() override
    {
        file_.close();
        replacement_.commit();
    }

private:
    Replacement replacement_; // declared before the file, which must be closed first
    platform::File file_;
};

} // namespace

Replacement::Replacement(std::wstring target)
    : target_(std::move(target))
{
    check_target(target_);
    // Never overwrites a temporary file: another bok may be writing it.
    for (int attempt = 0; attempt < most_attempts; ++attempt) {
        path_ = target_ + L"." + std::to_wstring(attempt) + L".tmp";
        if (!platform::exists(path_)) {
            // Created now, so that an unwritable folder is reported before the work.
            if (!platform::File::create(path_).is_open())
                fail(target_, "cannot be written");
            return;
        }
    }
    fail(target_, "cannot be written: too many temporary files beside it");
}

Replacement::~Replacement()
{
    if (!committed_)
        platform::remove_file(path_);
}

void Replacement::commit()
{
    if (!platform::replace_file(path_, target_))
        fail(target_, "cannot be replaced");
    committed_ = true;
}

void Sink::pass_on()
{
    if (text_.size() < piece_size)
        return;
    write(text_);
    text_.clear();
}

void Sink::finish()
{
    if (!text_.empty())
        write(text_);
    text_.clear();
    close();
}

std::unique_ptr<Sink> open_sink(std::ostream& out, const std::wstring& file)
{
    if (file.empty())
        return std::make_unique<StreamSink>(out);
    return std::make_unique<FileSink>(file);
}

} // namespace bok
