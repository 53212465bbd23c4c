#include "tools/bok/commands.hpp"
#include "tools/bok/input.hpp"
#include "tools/bok/json_writer.hpp"
#include "tools/bok/sink.hpp"
#include "tools/bok/tables.hpp"
#include <limits>
#include <optional>

namespace bok {

namespace {

std::optional<book::OrderMode> parse_mode(const Options& options)
{
    if (!options.has("--mode"))
        return std::nullopt;
    const std::string mode = options.value("--mode");
    if (mode == "stored")
        return book::OrderMode::stored;
    if (mode == "sorted")
        return book::OrderMode::sorted;
    if (mode == "random")
        return book::OrderMode::random;
    throw UsageError("--mode takes stored, sorted or random");
}

// The mode with the other direction. -2^31 cannot be negated; its replacement is no known mode either, so it
// still means the stored order.
std::int32_t reversed(std::int32_t mode)
{
    return mode == std::numeric_limits<std::int32_t>::min() ? std::numeric_limits<std::int32_t>::max()
                                                            : -mode;
}

// The settings of the Book that the options override.
struct OrderChange {
    std::optional<book::OrderMode> mode;
    bool reverse = false;
    std::optional<std::uint64_t> key;
    std::optional<std::uint64_t> seed;
};

OrderChange parse_change(const Options& options)
{
    constexpr auto first_key = static_cast<std::uint64_t>(book::SortKey::box1);
    constexpr auto last_key = static_cast<std::uint64_t>(book::SortKey::size);
    return { parse_mode(options), options.has("--reverse"), options.number("--key", first_key, last_key),
        options.number("--seed", 0, std::numeric_limits<std::uint32_t>::max()) };
}

void apply(const OrderChange& change, book::BookHeader& header)
{
    if (change.mode)
        header.order_mode = static_cast<std::int32_t>(*change.mode);
    if (change.reverse)
        header.order_mode = reversed(header.order_mode);
    if (change.key)
        header.sort_key = static_cast<std::int32_t>(*change.key);
    if (change.seed)
        header.seed = static_cast<std::uint32_t>(*change.seed);
}

void write_json(const book::Book& book, Sink& sink)
{
    JsonWriter json(sink.text());
    json.open('[');
    for (std::size_t position = 0; position < book.pages.size(); ++position) {
        json.value(book.position_to_index(position));
        sink.pass_on();
    }
    json.close(']');
    sink.text().push_back('\n');
}

void write_table(const book::Book& book, Sink& sink)
{
    for (std::size_t position = 0; position < book.pages.size(); ++position) {
        const std::size_t index = book.position_to_index(position);
        sink.text() += std::to_string(index) + '\t' + title_of(book.pages[index]) + '\n';
        sink.pass_on();
    }
}

} // namespace

int run_order(const Options& options, Streams& streams)
{
    const OrderChange change = parse_change(options);
    book::Book book = open_book(options.operand(0), streams);
    apply(change, book.header);
    rebuild_order(book);
    const auto sink = open_sink(streams.out);
    options.has("--json") ? write_json(book, *sink) : write_table(book, *sink);
    sink->finish();
    return exit_done;
}

} // namespace bok
