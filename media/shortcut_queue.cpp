#include "media/shortcut_queue.hpp"
#include <utility>

namespace media {

namespace {

constexpr std::size_t yield_mask = 0xFF; // yields at every 256th entry

void make_link(const std::wstring& entry, std::size_t index, LinkStore& store, LinkNames& names,
    PathQuestions& paths, WorkerControl& control)
{
    if (!paths.exists(entry))
        return;
    const std::optional<std::wstring> link = names.link_of(entry);
    if (!link || paths.exists(*link))
        return;
    store.save(entry, *link);
    if ((index & yield_mask) == 0)
        control.yield();
}

} // namespace

EntryList every_entry(const book::Book& book)
{
    std::size_t count = 0;
    std::size_t units = 0;
    for (const book::Page& page : book.pages) {
        count += page.files.size();
        for (const std::wstring& file : page.files)
            units += file.size();
    }
    EntryList entries;
    entries.reserve(count, units);
    for (const book::Page& page : book.pages) {
        for (const std::wstring& file : page.files)
            entries.push_back(file);
    }
    return entries;
}

QueueCounts ShortcutQueue::replace(EntryList entries)
{
    const std::scoped_lock hold{ lock_ };
    entries_ = std::move(entries);
    resume_index_ = 0;
    return { 0, entries_.size() };
}

QueueCounts ShortcutQueue::merge(const std::vector<std::wstring>& paths)
{
    const std::scoped_lock hold{ lock_ };
    const QueueCounts counts{ paths.size(), entries_.size() - resume_index_ };
    if (counts == QueueCounts{})
        return counts;
    EntryList merged{ paths };
    for (std::size_t i = resume_index_; i < entries_.size(); ++i)
        merged.push_back(entries_[i]);
    entries_ = std::move(merged);
    resume_index_ = 0;
    return counts;
}

void ShortcutQueue::interrupt_at(std::size_t index)
{
    is_interrupted_ = true;
    resume_index_ = index;
}

void ShortcutQueue::finish()
{
    entries_ = {};
    resume_index_ = 0;
}

void make_links(
    ShortcutQueue& queue, LinkStore& store, LinkNames& names, PathQuestions& paths, WorkerControl& control)
{
    const std::scoped_lock hold{ queue.lock() };
    queue.begin_run();
    if (queue.entries().empty() || !store.is_ready() || !names.is_ready())
        return;
    for (std::size_t i = 0; i < queue.entries().size(); ++i) {
        // The rest of the queue is kept, so the next run continues here.
        if (control.is_stopped()) {
            queue.interrupt_at(i);
            return;
        }
        make_link(std::wstring{ queue.entries()[i] }, i, store, names, paths, control);
    }
    queue.finish();
}

bool start_shortcut_creation(
    const ShortcutStart& start, ShortcutStarter& starter, const std::function<QueueCounts()>& queue_entries)
{
    if (start.is_cleaning_up) {
        starter.log(L"start_shortcut_creation_async() ※cleanup中につき処理中止\r\n");
        return false;
    }
    starter.log(L"start_shortcut_creation_async()\r\n");
    if (!start.auto_file_search)
        return false;
    // A running worker holds the queue's lock, so it must end before the queue is touched.
    if (!starter.stop_worker())
        return false;
    if (!starter.has_folder(start.link_folder) && !starter.create_folder(start.link_folder)) {
        starter.warn(L"ショートカットフォルダの作成に失敗\r\n" + start.link_folder);
        return false;
    }
    if (queue_entries() == QueueCounts{})
        return false;
    if (starter.start_worker())
        return true;
    starter.warn(L"BackgroundThread の起動に失敗");
    return false;
}

} // namespace media
