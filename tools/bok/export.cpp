#include "platform/text.hpp"
#include "tools/bok/commands.hpp"
#include "tools/bok/html.hpp"
#include "tools/bok/input.hpp"
#include "tools/bok/json_book.hpp"
#include "tools/bok/markdown.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"
#include "tools/bok/tables.hpp"
#include "tools/bok/tsv.hpp"

namespace bok {

namespace {

using Export = void (*)(const book::Book&, Sink&, Progress&);

struct Form {
    Export write;
    bool is_displayed; // pages are written in display order, otherwise in stored order
};

Form form_named(const std::string& name)
{
    if (name == "tsv")
        return { export_tsv, false };
    if (name == "json")
        return { export_json, false };
    if (name == "markdown")
        return { export_markdown, true };
    if (name == "html")
        return { export_html, true };
    throw UsageError("--to takes tsv, json, markdown or html");
}

} // namespace

int run_export(const Options& options, Streams& streams)
{
    const Form form = form_named(options.value("--to"));
    const std::string file = options.value("-o");
    if (options.has("-o") && file.empty())
        throw UsageError("option -o needs a value");
    book::Book book = open_book(options.operand(0), streams);
    // Only if needed: a stamp that is too short to sort by must not stop an export in stored order.
    if (form.is_displayed)
        rebuild_order(book);
    const auto sink = open_sink(streams.out, file == "-" ? std::wstring() : platform::from_utf8(file));
    Progress progress(streams, "exporting");
    form.write(book, *sink, progress);
    sink->finish();
    return exit_done;
}

} // namespace bok
