#include "platform/file.hpp"
#include "platform/text.hpp"
#include "tools/bok/commands.hpp"
#include "tools/bok/input.hpp"
#include "tools/bok/inspect.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>

namespace bok {

int run_check(const Options& options, Streams& streams)
{
    const std::wstring path = platform::from_utf8(options.operand(0));
    check_readable(path);
    platform::File file = platform::File::open_read(path);
    book::FileSource source(file);
    const std::uint64_t size = source.size();
    const auto sink = open_sink(streams.out);
    Progress progress(streams, "checking");
    const auto write = [&](const Finding& finding) {
        sink->text() += text_of(finding) + '\n';
        sink->pass_on();
    };
    const Inspection inspection =
        inspect(source, size, write, [&](std::uint64_t done) { progress.show(done, size); });
    if (inspection.findings == 0) {
        sink->text() += "no problems: pages " + std::to_string(inspection.pages) + ", tabs "
            + std::to_string(inspection.tabs) + ", marks " + std::to_string(inspection.marks) + '\n';
    }
    sink->finish();
    if (inspection.findings == 0)
        return exit_done;
    throw Problem(printable(path) + ": " + std::to_string(inspection.findings)
        + (inspection.findings == 1 ? " problem" : " problems"));
}

} // namespace bok
