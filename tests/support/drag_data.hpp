// The data of a drag, as other programs offer it: files, attachments and text.
#pragma once
#include "controls/drop_data.hpp"
#include "ovlib/gui/com_object.hpp"
#include "ovlib/handles.hpp"
#include <cstring>
#include <new>
#include <shlobj.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace test_support {

using Block = std::vector<std::byte>;

inline CLIPFORMAT descriptor_format()
{
    return static_cast<CLIPFORMAT>(RegisterClipboardFormatW(L"FileGroupDescriptorW"));
}
inline CLIPFORMAT contents_format()
{
    return static_cast<CLIPFORMAT>(RegisterClipboardFormatW(L"FileContents"));
}

inline Block block_of(std::string_view text)
{
    const auto* const first = reinterpret_cast<const std::byte*>(text.data());
    return { first, first + text.size() };
}
inline Block block_of(std::wstring_view text)
{
    const auto* const first = reinterpret_cast<const std::byte*>(text.data());
    return { first, first + text.size() * sizeof(wchar_t) };
}

inline Block descriptor_of(const std::vector<std::wstring>& names, std::uint32_t stated_size = 0)
{
    Block block(sizeof(UINT) + names.size() * sizeof(FILEDESCRIPTORW));
    const auto count = static_cast<UINT>(names.size());
    std::memcpy(block.data(), &count, sizeof count);
    for (std::size_t i = 0; i < names.size(); ++i) {
        FILEDESCRIPTORW record{};
        record.dwFlags = stated_size != 0 ? FD_FILESIZE : 0;
        record.nFileSizeLow = stated_size;
        names[i].copy(record.cFileName, MAX_PATH);
        std::memcpy(block.data() + sizeof count + i * sizeof record, &record, sizeof record);
    }
    return block;
}

// Delivers blocks of memory or streams. What it has delivered refers to it until it is released.
class FakeSource : public ovlib::ComObject<FakeSource, IDataObject, IID_IDataObject> {
public:
    struct Content {
        CLIPFORMAT format;
        LONG index;
        Block bytes;
        DWORD medium = TYMED_HGLOBAL;
    };

    virtual ~FakeSource() = default;
    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override
    {
        if (throws)
            throw std::bad_alloc{};
        const Content* const content = find(*format);
        if (!content)
            return DV_E_FORMATETC;
        asked.push_back(*format);
        if (content->medium == TYMED_ISTREAM)
            CreateStreamOnHGlobal(nullptr, TRUE, &medium->pstm);
        else
            medium->hGlobal = lend(content->bytes);
        medium->tymed = content->medium;
        medium->pUnkForRelease = content->medium == TYMED_ISTREAM ? nullptr : this;
        if (medium->pUnkForRelease)
            AddRef();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override
    {
        queried.push_back(*format);
        return find(*format) ? S_OK : DV_E_FORMATETC;
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

    void offer_files(const std::vector<std::wstring>& paths)
    {
        contents.push_back({ CF_HDROP, -1, ovlib::drop_block(paths) });
    }
    void offer_text(std::wstring_view text)
    {
        contents.push_back({ CF_UNICODETEXT, -1, block_of(std::wstring{ text } + L'\0') });
    }
    void offer_attachments(const std::vector<std::pair<std::wstring, std::string>>& files)
    {
        std::vector<std::wstring> names;
        for (const auto& [name, bytes] : files) {
            contents.push_back({ contents_format(), static_cast<LONG>(names.size()), block_of(bytes) });
            names.push_back(name);
        }
        contents.push_back({ descriptor_format(), -1, descriptor_of(names) });
    }
    // Nothing that it delivered is still held.
    bool is_given_back()
    {
        AddRef();
        return Release() == 1;
    }

    std::vector<Content> contents;
    std::vector<FORMATETC> queried;
    std::vector<FORMATETC> asked;
    bool throws = false;

private:
    const Content* find(const FORMATETC& format) const
    {
        for (const Content& content : contents) {
            if (content.format == format.cfFormat && content.index == format.lindex)
                return &content;
        }
        return nullptr;
    }
    // An empty block cannot be locked.
    HGLOBAL lend(const Block& bytes)
    {
        HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
        if (void* const start = GlobalLock(memory)) {
            std::memcpy(start, bytes.data(), bytes.size());
            GlobalUnlock(memory);
        }
        lent_.emplace_back(memory);
        return memory;
    }

    std::vector<ovlib::UniqueGlobalMemory> lent_;
};

using Source = Microsoft::WRL::ComPtr<FakeSource>;

inline Source make_source()
{
    return ovlib::make_com<FakeSource>();
}

} // namespace test_support
