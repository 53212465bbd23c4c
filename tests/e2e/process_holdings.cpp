#include "process_holdings.hpp"
#include <array>
#include <cstddef>
#include <cstring>
#include <psapi.h>
#include <winternl.h>

namespace e2e {

namespace {

using QueryProcess = LONG NTAPI(HANDLE, int what, void* buffer, ULONG size, ULONG* length);
using QuerySystem = LONG NTAPI(int what, void* buffer, ULONG size, ULONG* length);
constexpr int extended_handles = 64;

template <class Function> Function* system_function(const char* name)
{
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name)));
}

// An entry of the GDI table that is mapped into a process. The entries are counted if the system does not
// count them.
struct GdiEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint16_t type;
    std::uint64_t user_pointer;
};
static_assert(sizeof(GdiEntry) == 24);
constexpr std::size_t gdi_entries = 0x10000;
constexpr std::size_t table_in_process_block = 0xF8;

std::size_t counted_gdi_objects(HANDLE process)
{
    const auto query = system_function<QueryProcess>("NtQueryInformationProcess");
    PROCESS_BASIC_INFORMATION info{};
    if (!query || query(process, ProcessBasicInformation, &info, sizeof(info), nullptr) != 0)
        return 0;
    std::uint64_t table = 0;
    const auto* block = reinterpret_cast<const std::byte*>(info.PebBaseAddress);
    std::vector<GdiEntry> entries(gdi_entries);
    const SIZE_T size = entries.size() * sizeof(GdiEntry);
    if (!ReadProcessMemory(process, block + table_in_process_block, &table, sizeof(table), nullptr)
        || !ReadProcessMemory(process, reinterpret_cast<void*>(table), entries.data(), size, nullptr))
        return 0;
    // A free entry points to the next free entry of the table, so its value lies inside the table.
    std::size_t count = 0;
    for (const GdiEntry& entry : entries)
        count += entry.object != 0 && (entry.object < table || entry.object >= table + size) ? 1 : 0;
    return count;
}

std::size_t gdi_objects(HANDLE process)
{
    const DWORD told = GetGuiResources(process, GR_GDIOBJECTS);
    return told != 0 ? told : counted_gdi_objects(process);
}

BOOL CALLBACK count_window(HWND, LPARAM count)
{
    ++*reinterpret_cast<std::size_t*>(count);
    return TRUE;
}

std::size_t windows_of(DWORD process_id)
{
    struct Search {
        DWORD process_id;
        std::size_t count;
    } search{ process_id, 0 };
    EnumWindows(
        [](HWND window, LPARAM argument) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(argument);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner != wanted.process_id)
                return TRUE;
            ++wanted.count;
            EnumChildWindows(window, count_window, reinterpret_cast<LPARAM>(&wanted.count));
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.count;
}

struct HandleRow {
    void* object;
    ULONG_PTR process_id;
    ULONG_PTR handle;
    ULONG access;
    USHORT trace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};

std::size_t kernel_handles(DWORD process_id)
{
    const auto query = system_function<QuerySystem>("NtQuerySystemInformation");
    std::vector<std::byte> rows(1 << 22);
    if (!query || query(extended_handles, rows.data(), static_cast<ULONG>(rows.size()), nullptr) != 0)
        return 0;
    ULONG_PTR count = 0;
    std::memcpy(&count, rows.data(), sizeof(count));
    std::size_t ours = 0;
    for (std::size_t i = 0; i < count; ++i) {
        HandleRow row{};
        std::memcpy(&row, rows.data() + 2 * sizeof(ULONG_PTR) + i * sizeof(row), sizeof(row));
        ours += row.process_id == process_id ? 1 : 0;
    }
    return ours;
}

std::size_t private_bytes(HANDLE process)
{
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(process, &counters, sizeof(counters));
    return counters.PagefileUsage;
}

} // namespace

Holdings holdings_of(const Program& program)
{
    return { gdi_objects(program.process()), windows_of(program.process_id()),
        kernel_handles(program.process_id()), private_bytes(program.process()) };
}

void require_no_growth(const Holdings& from, const Holdings& to)
{
    const auto has_grown = [&](std::size_t Holdings::*what, std::size_t room) {
        return to.*what > from.*what + room;
    };
    if (has_grown(&Holdings::gdi_objects, 80) || has_grown(&Holdings::windows, 6)
        || has_grown(&Holdings::kernel_handles, 40) || has_grown(&Holdings::private_bytes, 24u << 20))
        throw DriverError("the program holds " + to_string(to) + " after " + to_string(from));
}

std::string to_string(const Holdings& holdings)
{
    return std::to_string(holdings.gdi_objects) + " GDI objects, " + std::to_string(holdings.windows)
        + " windows, " + std::to_string(holdings.kernel_handles) + " handles, "
        + std::to_string(holdings.private_bytes / 1024) + " KiB";
}

} // namespace e2e
