// A fake of the shell's file dialog, for results that the real one cannot be made to return.
#pragma once
#include <windows.h>
#include <array>
#include <cwchar>
#include <shobjidl.h>
#include <string>
#include <utility>
#include <vector>
#include <wrl/client.h>

namespace gui {

// The result of each step. The objects are on the test's stack and are not reference counted.
struct FakeAnswers {
    HRESULT show = S_OK;
    HRESULT query_open_dialog = S_OK;
    HRESULT results = S_OK;
    HRESULT count = S_OK;
    HRESULT second_path = S_OK; // of the three items
};

class FakeItem final : public IShellItem {
public:
    explicit FakeItem(const wchar_t* path, const HRESULT& answer)
        : path_(path)
        , answer_(answer)
    {
    }
    STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP BindToHandler(IBindCtx*, REFGUID, REFIID, void**) override { return E_NOTIMPL; }
    STDMETHODIMP GetParent(IShellItem**) override { return E_NOTIMPL; }
    STDMETHODIMP GetDisplayName(SIGDN form, LPWSTR* name) override
    {
        if (FAILED(answer_) || form != SIGDN_FILESYSPATH)
            return E_FAIL;
        const std::size_t size = (std::wcslen(path_) + 1) * sizeof(wchar_t);
        *name = static_cast<wchar_t*>(CoTaskMemAlloc(size));
        CopyMemory(*name, path_, size);
        return S_OK;
    }
    STDMETHODIMP GetAttributes(SFGAOF, SFGAOF*) override { return E_NOTIMPL; }
    STDMETHODIMP Compare(IShellItem*, SICHINTF, int*) override { return E_NOTIMPL; }

private:
    const wchar_t* path_;
    const HRESULT& answer_;
};

class FakeItems final : public IShellItemArray {
public:
    explicit FakeItems(const FakeAnswers& answers)
        : answers_(answers)
        , items_{ FakeItem{ L"C:\\a", fine_ }, FakeItem{ L"C:\\b", answers.second_path },
            FakeItem{ L"C:\\c", fine_ } }
    {
    }
    STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP BindToHandler(IBindCtx*, REFGUID, REFIID, void**) override { return E_NOTIMPL; }
    STDMETHODIMP GetPropertyStore(GETPROPERTYSTOREFLAGS, REFIID, void**) override { return E_NOTIMPL; }
    STDMETHODIMP GetPropertyDescriptionList(REFPROPERTYKEY, REFIID, void**) override { return E_NOTIMPL; }
    STDMETHODIMP GetAttributes(SIATTRIBFLAGS, SFGAOF, SFGAOF*) override { return E_NOTIMPL; }
    STDMETHODIMP GetCount(DWORD* count) override
    {
        *count = static_cast<DWORD>(items_.size());
        return answers_.count;
    }
    STDMETHODIMP GetItemAt(DWORD index, IShellItem** item) override
    {
        *item = &items_[index];
        return S_OK;
    }
    STDMETHODIMP EnumItems(IEnumShellItems**) override { return E_NOTIMPL; }

private:
    const HRESULT fine_ = S_OK;
    const FakeAnswers& answers_;
    std::array<FakeItem, 3> items_;
};

class FakeFileDialog final : public IFileOpenDialog {
public:
    explicit FakeFileDialog(const FakeAnswers& answers)
        : answers_(answers)
        , items_(answers)
    {
    }
    STDMETHODIMP QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualIID(id, IID_IFileOpenDialog) && SUCCEEDED(answers_.query_open_dialog);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++held); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--held); }
    STDMETHODIMP Show(HWND) override { return answers_.show; }
    STDMETHODIMP SetFileTypes(UINT count, const COMDLG_FILTERSPEC* list) override
    {
        auto& types = type_lists.emplace_back();
        for (UINT i = 0; i < count; ++i)
            types.emplace_back(list[i].pszName, list[i].pszSpec);
        return S_OK;
    }
    STDMETHODIMP SetFileTypeIndex(UINT) override { return E_NOTIMPL; }
    STDMETHODIMP GetFileTypeIndex(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP Advise(IFileDialogEvents*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP Unadvise(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP SetOptions(FILEOPENDIALOGOPTIONS) override { return E_NOTIMPL; }
    STDMETHODIMP GetOptions(FILEOPENDIALOGOPTIONS*) override { return E_NOTIMPL; }
    STDMETHODIMP SetDefaultFolder(IShellItem*) override { return E_NOTIMPL; }
    STDMETHODIMP SetFolder(IShellItem*) override
    {
        ++folders_set;
        return S_OK;
    }
    STDMETHODIMP GetFolder(IShellItem**) override { return E_NOTIMPL; }
    STDMETHODIMP GetCurrentSelection(IShellItem**) override { return E_NOTIMPL; }
    STDMETHODIMP SetFileName(LPCWSTR text) override
    {
        file_name = text;
        return S_OK;
    }
    STDMETHODIMP GetFileName(LPWSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP SetTitle(LPCWSTR text) override
    {
        title = text;
        return S_OK;
    }
    STDMETHODIMP SetOkButtonLabel(LPCWSTR) override { return E_NOTIMPL; }
    STDMETHODIMP SetFileNameLabel(LPCWSTR) override { return E_NOTIMPL; }
    STDMETHODIMP GetResult(IShellItem**) override { return E_NOTIMPL; }
    STDMETHODIMP AddPlace(IShellItem*, FDAP) override { return E_NOTIMPL; }
    STDMETHODIMP SetDefaultExtension(LPCWSTR text) override
    {
        default_extension = text;
        return S_OK;
    }
    STDMETHODIMP Close(HRESULT) override { return E_NOTIMPL; }
    STDMETHODIMP SetClientGuid(REFGUID) override { return E_NOTIMPL; }
    STDMETHODIMP ClearClientData() override { return E_NOTIMPL; }
    STDMETHODIMP SetFilter(IShellItemFilter*) override { return E_NOTIMPL; }
    STDMETHODIMP GetResults(IShellItemArray** items) override
    {
        *items = &items_;
        return answers_.results;
    }
    STDMETHODIMP GetSelectedItems(IShellItemArray**) override { return E_NOTIMPL; }

    Microsoft::WRL::ComPtr<IFileDialog> pointer() { return { this }; }

    using Types = std::vector<std::pair<std::wstring, std::wstring>>; // name and pattern

    int held = 0;
    int folders_set = 0;
    std::vector<Types> type_lists;
    std::wstring title;
    std::wstring file_name;
    std::wstring default_extension;

private:
    const FakeAnswers& answers_;
    FakeItems items_;
};

} // namespace gui
