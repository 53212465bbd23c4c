#include "tools/bok/save.hpp"
#include "book/book_file.hpp"
#include "platform/text.hpp"
#include "tools/bok/sink.hpp"
#include "tools/bok/streams.hpp"
#include "tools/bok/utf8.hpp"

namespace bok {

namespace {

// Records a failed write, which write_book does not report.
class CheckedSink final : public book::ByteSink {
public:
    explicit CheckedSink(platform::File& file)
        : file_(file)
    {
    }

    void write(std::span<const std::byte> bytes) override { is_whole_ = file_.write(bytes) && is_whole_; }
    bool is_whole() const { return is_whole_; }

private:
    platform::File& file_;
    bool is_whole_ = true;
};

} // namespace

void save_book(book::Book& book, const std::string& path)
{
    Replacement replacement(platform::from_utf8(path));
    platform::File file = platform::File::create(replacement.path());
    CheckedSink sink(file);
    if (file.is_open())
        book::write_book(book, sink);
    if (!file.is_open() || !sink.is_whole())
        throw Problem(printable(path) + ": cannot be written completely; the old file is unchanged");
    file.close();
    replacement.commit();
}

} // namespace bok
