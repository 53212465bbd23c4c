// The source of a drag and its data, as OLE and a target use them.
#include "controls/drop_data.hpp"
#include "ovlib/gui/drag_files.hpp"
#include "tests/support/gui_drops.hpp"

namespace {

using Microsoft::WRL::ComPtr;
using Paths = std::vector<std::wstring>;

ComPtr<ovlib::DragDataObject> data_with(const Paths& paths, const std::wstring& text = L"")
{
    const auto data = ovlib::make_com<ovlib::DragDataObject>();
    data->paths = paths;
    data->text = text;
    return data;
}

HRESULT query(ovlib::DragDataObject& data, CLIPFORMAT format, DWORD medium = 1, DWORD aspect = 1)
{
    FORMATETC asked{ format, nullptr, aspect, -1, medium };
    return data.QueryGetData(&asked);
}

HRESULT get(ovlib::DragDataObject& data, CLIPFORMAT format)
{
    FORMATETC asked = ovlib::memory_format(format);
    STGMEDIUM medium{};
    const HRESULT result = data.GetData(&asked, &medium);
    ReleaseStgMedium(&medium);
    return result;
}

TEST(DragSource, ContinuesWhileTheLeftButtonIsDown)
{
    const auto source = ovlib::make_com<ovlib::DragFiles>();
    EXPECT_EQ(source->QueryContinueDrag(FALSE, MK_LBUTTON), S_OK);
    EXPECT_EQ(source->QueryContinueDrag(FALSE, MK_LBUTTON | MK_CONTROL), S_OK);
    EXPECT_EQ(source->QueryContinueDrag(FALSE, 0), 0x40100);
    EXPECT_EQ(source->QueryContinueDrag(FALSE, MK_RBUTTON), 0x40100);
    EXPECT_EQ(source->QueryContinueDrag(TRUE, MK_LBUTTON), 0x40101);
    EXPECT_EQ(source->QueryContinueDrag(TRUE, 0), 0x40101);
    EXPECT_EQ(source->GiveFeedback(1), DRAGDROP_S_USEDEFAULTCURSORS);
}

TEST(DragSource, KnowsItsTwoInterfaces)
{
    const auto source = ovlib::make_com<ovlib::DragFiles>();
    const IID id{ 0x121, 0, 0, { 0xC0, 0, 0, 0, 0, 0, 0, 0x46 } };
    void* found = nullptr;
    EXPECT_EQ(source->QueryInterface(id, &found), S_OK);
    EXPECT_EQ(source->Release(), 1u);
    EXPECT_EQ(source->QueryInterface(IID_IUnknown, &found), S_OK);
    EXPECT_EQ(source->Release(), 1u);
    EXPECT_EQ(source->QueryInterface(IID_IDataObject, &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
}

TEST(DragScope, MarksOneDragAtATime)
{
    EXPECT_FALSE(ovlib::DragScope::is_dragging());
    {
        const ovlib::DragScope first;
        EXPECT_TRUE(first);
        {
            const ovlib::DragScope second;
            EXPECT_FALSE(second);
        }
        EXPECT_TRUE(ovlib::DragScope::is_dragging()) << "the second marks nothing";
    }
    EXPECT_FALSE(ovlib::DragScope::is_dragging());
}

TEST(DragData, OffersFilesIfItHasAny)
{
    EXPECT_EQ(query(*data_with({ L"C:\\a" }).Get(), CF_HDROP), S_OK);
    EXPECT_EQ(query(*data_with({}).Get(), CF_HDROP), DV_E_FORMATETC);
    EXPECT_EQ(query(*data_with({ L"C:\\a" }).Get(), CF_UNICODETEXT), DV_E_FORMATETC);
    EXPECT_EQ(query(*data_with({}, L"x").Get(), CF_UNICODETEXT), S_OK);
    EXPECT_EQ(query(*data_with({ L"C:\\a" }, L"x").Get(), CF_TEXT), DV_E_FORMATETC);
}

TEST(DragData, TakesTheMediumForAMask)
{
    const auto data = data_with({ L"C:\\a" });
    EXPECT_EQ(query(*data.Get(), CF_HDROP, TYMED_HGLOBAL | TYMED_ISTREAM), S_OK);
    EXPECT_EQ(query(*data.Get(), CF_HDROP, TYMED_ISTREAM), DV_E_TYMED);
    EXPECT_EQ(query(*data.Get(), CF_HDROP, 0), DV_E_TYMED);
    EXPECT_EQ(query(*data.Get(), CF_HDROP, 1, DVASPECT_ICON), DV_E_TYMED);
    EXPECT_EQ(query(*data.Get(), CF_TEXT, TYMED_ISTREAM), DV_E_TYMED);
    EXPECT_EQ(data->QueryGetData(nullptr), E_INVALIDARG);
}

TEST(DragData, DeliversABlockOfPaths)
{
    const Paths paths{ L"C:\\資料\\図.png", L"C:\\b" };
    const auto data = data_with(paths);
    FORMATETC asked = ovlib::memory_format(CF_HDROP);
    STGMEDIUM medium{};
    ASSERT_EQ(data->GetData(&asked, &medium), S_OK);
    EXPECT_EQ(medium.tymed, DWORD{ TYMED_HGLOBAL });
    EXPECT_EQ(medium.pUnkForRelease, nullptr);
    const auto* const header = static_cast<const DROPFILES*>(GlobalLock(medium.hGlobal));
    EXPECT_EQ(header->pFiles, 20u);
    EXPECT_EQ(header->fWide, 1);
    GlobalUnlock(medium.hGlobal);
    auto const drop = static_cast<HDROP>(medium.hGlobal);
    EXPECT_EQ(DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0), 2u) << "as the system reads it";
    wchar_t path[64]{};
    DragQueryFileW(drop, 0, path, 64);
    EXPECT_EQ(path, paths[0]);
    ReleaseStgMedium(&medium);
}

// Although the text decides whether there is text at all.
TEST(DragData, DeliversTheFirstPathAsText)
{
    const auto data = data_with({ L"C:\\a", L"C:\\b" }, L"text");
    FORMATETC asked = ovlib::memory_format(CF_UNICODETEXT);
    STGMEDIUM medium{};
    ASSERT_EQ(data->GetData(&asked, &medium), S_OK);
    {
        const ovlib::GlobalBlock block{ medium.hGlobal };
        EXPECT_EQ(ovlib::dropped_text(block.bytes()), L"C:\\a");
    }
    ReleaseStgMedium(&medium);
    EXPECT_EQ(get(*data_with({}, L"text").Get(), CF_UNICODETEXT), DV_E_FORMATETC);
}

TEST(DragData, DeliversNothingElse)
{
    EXPECT_EQ(get(*data_with({}).Get(), CF_HDROP), DV_E_FORMATETC);
    EXPECT_EQ(get(*data_with({ L"C:\\a" }).Get(), CF_UNICODETEXT), DV_E_FORMATETC);
    const auto data = data_with({ L"C:\\a" });
    FORMATETC asked = ovlib::memory_format(CF_HDROP);
    STGMEDIUM medium{};
    EXPECT_EQ(data->GetData(&asked, nullptr), E_INVALIDARG);
    EXPECT_EQ(data->GetData(nullptr, &medium), E_INVALIDARG);
    asked.tymed = TYMED_ISTREAM;
    EXPECT_EQ(data->GetData(&asked, &medium), DV_E_TYMED);
    EXPECT_EQ(data->GetDataHere(&asked, &medium), E_NOTIMPL);
    EXPECT_EQ(data->SetData(&asked, &medium, FALSE), E_NOTIMPL);
    EXPECT_EQ(data->DAdvise(&asked, 0, nullptr, nullptr), OLE_E_ADVISENOTSUPPORTED);
}

std::vector<CLIPFORMAT> listed(ovlib::DragDataObject& data)
{
    ComPtr<IEnumFORMATETC> formats;
    EXPECT_EQ(data.EnumFormatEtc(DATADIR_GET, &formats), S_OK);
    std::vector<CLIPFORMAT> found;
    FORMATETC format{};
    while (formats && formats->Next(1, &format, nullptr) == S_OK) {
        EXPECT_EQ(format.tymed, DWORD{ TYMED_HGLOBAL });
        EXPECT_EQ(format.dwAspect, DWORD{ DVASPECT_CONTENT });
        EXPECT_EQ(format.lindex, -1);
        found.push_back(format.cfFormat);
    }
    return found;
}

TEST(DragData, ListsWhatItOffers)
{
    EXPECT_EQ(listed(*data_with({ L"C:\\a" }).Get()), (std::vector<CLIPFORMAT>{ CF_HDROP }));
    EXPECT_EQ(
        listed(*data_with({ L"C:\\a" }, L"x").Get()), (std::vector<CLIPFORMAT>{ CF_HDROP, CF_UNICODETEXT }));
    EXPECT_EQ(listed(*data_with({}).Get()), (std::vector<CLIPFORMAT>{}));
    const auto data = data_with({ L"C:\\a" });
    ComPtr<IEnumFORMATETC> formats;
    EXPECT_EQ(data->EnumFormatEtc(DATADIR_SET, &formats), E_NOTIMPL);
    EXPECT_EQ(data->EnumFormatEtc(DATADIR_GET, nullptr), E_INVALIDARG);
}

} // namespace
