// The target of drops, driven as OLE drives it, with a window that records its notifications.
#include "ovlib/gui/basewnd.hpp"
#include "ovlib/gui/drag_files.hpp"
#include "ovlib/system_error.hpp"
#include "ovlib/win_app.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_drops.hpp"
#include "tests/support/gui_folder.hpp"

namespace {

using gui::drop_on;
using gui::effect_at_entry;
using gui::make_source;
using gui::Source;
using ovlib::DropSource;
using Codes = std::vector<int>;
using Paths = std::vector<std::wstring>;
using Target = Microsoft::WRL::ComPtr<ovlib::DropFiles>;

constexpr std::uint32_t notification = 0x8001;

class RecordingWindow : public ovlib::BaseWnd {
public:
    bool on_message(ovlib::WndMessage& message) override
    {
        if (message.message < 0x8000 || message.message >= 0xC000)
            return false;
        codes.push_back(HIWORD(message.wparam));
        if (codes.back() == 7 && on_save)
            message.result = on_save(message.lparam);
        if (codes.back() != 7 && on_code)
            on_code(codes.back());
        return true;
    }

    Codes codes;
    std::function<std::int64_t(std::int64_t)> on_save;
    std::function<void(int)> on_code;
};

class DropTarget : public testing::Test {
protected:
    DropTarget()
    {
        ovlib::WinApp::instance = GetModuleHandleW(nullptr);
        EXPECT_TRUE(window.create(L"target"));
        target = ovlib::make_com<ovlib::DropFiles>(&window,
            ovlib::DropFiles::Hooks{ [this] { return is_accepting; },
                [this](const std::wstring& text) { failures.push_back(text); } });
        target->message = notification;
        // Saves under the proposed name in the test's folder.
        window.on_save = [this](std::int64_t lparam) {
            std::wstring* const name = target->proposed_name(lparam);
            if (!name)
                return 0;
            proposed.push_back(*name);
            *name = folder.file(*name);
            return 1;
        };
    }
    ~DropTarget() override
    {
        target.Reset();
        window.destroy();
        gui::take_quit();
    }
    ULONG references() const
    {
        target->AddRef();
        return target->Release();
    }
    std::string saved(const std::wstring& name) const
    {
        const auto bytes = folder.read(name);
        return { bytes.begin(), bytes.end() };
    }
    static Source files(const Paths& paths)
    {
        Source source = make_source();
        source->offer_files(paths);
        return source;
    }

    gui::OleOnThread ole;
    gui::TempFolder folder;
    RecordingWindow window;
    Target target;
    bool is_accepting = true;
    Paths proposed;
    Paths failures;
};

TEST_F(DropTarget, KnowsItsTwoInterfaces)
{
    const IID id{ 0x122, 0, 0, { 0xC0, 0, 0, 0, 0, 0, 0, 0x46 } };
    void* found = nullptr;
    EXPECT_EQ(target->QueryInterface(id, &found), S_OK);
    EXPECT_EQ(found, static_cast<IDropTarget*>(target.Get()));
    target->Release();
    EXPECT_EQ(target->QueryInterface(IID_IUnknown, &found), S_OK);
    target->Release();
    EXPECT_EQ(target->QueryInterface(IID_IDropSource, &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(target->QueryInterface(id, nullptr), E_POINTER);
    EXPECT_EQ(references(), 1u);
}

TEST_F(DropTarget, AsksForFilesThenAttachmentsThenText)
{
    const Source empty = make_source();
    effect_at_entry(*target.Get(), *empty.Get());
    std::vector<CLIPFORMAT> formats;
    for (const FORMATETC& asked : empty->queried) {
        formats.push_back(asked.cfFormat);
        EXPECT_EQ(asked.dwAspect, 1u);
        EXPECT_EQ(asked.tymed, 1u);
        EXPECT_EQ(asked.lindex, -1);
    }
    EXPECT_EQ(formats, (std::vector<CLIPFORMAT>{ 15, gui::descriptor_format(), 13 }));
    EXPECT_EQ(target->source, DropSource::nothing);
}

TEST_F(DropTarget, TakesFilesOfASourceThatOffersTextToo)
{
    const Source source = files({ L"C:\\a.txt" });
    source->offer_text(L"C:\\a.txt");
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), DWORD{ DROPEFFECT_COPY });
    EXPECT_EQ(target->source, DropSource::files);
    EXPECT_EQ(target->paths, Paths{ L"C:\\a.txt" });
    EXPECT_EQ(window.codes, (Codes{ 4, 5, 1 }));
    EXPECT_TRUE(source->is_given_back());
}

TEST_F(DropTarget, ReportsCopyingOnlyIfTheSourceAllowsIt)
{
    const Source source = files({ L"C:\\a" });
    EXPECT_EQ(effect_at_entry(*target.Get(), *source.Get(), 7), 1u);
    EXPECT_EQ(effect_at_entry(*target.Get(), *source.Get(), DROPEFFECT_MOVE | DROPEFFECT_LINK), 0u);
    EXPECT_EQ(drop_on(*target.Get(), *source.Get(), {}, DROPEFFECT_MOVE), 0u);
    EXPECT_TRUE(source->asked.empty()) << "nothing is taken";
    EXPECT_EQ(window.codes, (Codes{ 4, 6, 4, 6, 4, 5, 0 }));
}

TEST_F(DropTarget, RefusesWhatItsWindowAndItsMaskDoNotAllow)
{
    const Source source = files({ L"C:\\a" });
    is_accepting = false;
    EXPECT_EQ(effect_at_entry(*target.Get(), *source.Get()), 0u);
    is_accepting = true;
    target->allowed_kinds = 2 | 4;
    EXPECT_EQ(effect_at_entry(*target.Get(), *source.Get()), 0u);
    target->allowed_kinds = 1;
    EXPECT_EQ(effect_at_entry(*target.Get(), *source.Get()), 1u);
    EXPECT_EQ(effect_at_entry(*target.Get(), *make_source().Get()), 0u);
}

TEST_F(DropTarget, RefusesADragOfThisProcess)
{
    const Source source = files({ L"C:\\a" });
    {
        const ovlib::DragScope drag;
        EXPECT_EQ(effect_at_entry(*target.Get(), *source.Get()), 0u);
    }
    EXPECT_EQ(effect_at_entry(*target.Get(), *source.Get()), 1u);
}

TEST_F(DropTarget, ReportsNothingOverARefusedDragAndTakesNothing)
{
    const Source source = files({ L"C:\\a" });
    is_accepting = false;
    DWORD effect = 7;
    target->DragEnter(source.Get(), 0, {}, &effect);
    is_accepting = true;
    effect = 7;
    target->DragOver(0, {}, &effect);
    EXPECT_EQ(effect, 0u);
    effect = 7;
    target->Drop(source.Get(), 0, {}, &effect);
    EXPECT_EQ(effect, 0u);
    EXPECT_TRUE(source->asked.empty());
    EXPECT_EQ(window.codes, (Codes{ 4, 5, 0 }));
}

TEST_F(DropTarget, StoresThePlaceOfEachEvent)
{
    const Source source = files({ L"C:\\a" });
    DWORD effect = 1;
    target->DragEnter(source.Get(), 0, { 1, 2 }, &effect);
    EXPECT_EQ(target->point.x, 1);
    target->DragOver(0, { -3, 4 }, &effect);
    EXPECT_EQ(target->point.x, -3);
    EXPECT_EQ(target->point.y, 4);
    target->Drop(source.Get(), 0, { 5, 6 }, &effect);
    EXPECT_EQ(target->point.y, 6);
}

TEST_F(DropTarget, KeepsThePathsUntilASourceEnters)
{
    const Source source = files({ L"C:\\a" });
    drop_on(*target.Get(), *source.Get());
    EXPECT_EQ(target->paths, Paths{ L"C:\\a" });
    effect_at_entry(*target.Get(), *source.Get());
    EXPECT_EQ(target->paths, Paths{});
}

TEST_F(DropTarget, TakesNoFilesFromABlockWithoutAny)
{
    for (gui::Block block : { gui::Block{}, gui::Block(3), gui::Block(20), ovlib::drop_block({}),
             gui::Block(40, std::byte{ 0xFF }) }) {
        const Source source = make_source();
        source->contents.push_back({ CF_HDROP, -1, std::move(block) });
        EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 0u);
        EXPECT_EQ(window.codes.back(), 0);
        EXPECT_TRUE(source->is_given_back());
    }
}

TEST_F(DropTarget, TakesPathsInTheCodePage)
{
    gui::Block block(20);
    block[0] = std::byte{ 20 };
    for (const char unit : std::string_view{ "C:\\a\0", 5 })
        block.push_back(static_cast<std::byte>(unit));
    const Source source = make_source();
    source->contents.push_back({ CF_HDROP, -1, block });
    drop_on(*target.Get(), *source.Get());
    EXPECT_EQ(target->paths, Paths{ L"C:\\a" });
}

TEST_F(DropTarget, TakesTextOfAnyLength)
{
    const Source source = make_source();
    source->offer_text(L"二行\r\nある");
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 1u);
    EXPECT_EQ(target->paths, Paths{ L"二行\r\nある" });
    const Source empty = make_source();
    empty->offer_text(L"");
    EXPECT_EQ(drop_on(*target.Get(), *empty.Get()), 1u);
    EXPECT_EQ(target->paths, Paths{ L"" });
    EXPECT_EQ(window.codes, (Codes{ 4, 5, 3, 4, 5, 3 }));
}

TEST_F(DropTarget, SavesAttachmentsWhereTheWindowSays)
{
    const Source source = make_source();
    source->offer_attachments({ { L"a.txt", "one" }, { L"添付.bin", "twothree" } });
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 1u);
    EXPECT_EQ(window.codes, (Codes{ 4, 5, 7, 7, 2 }));
    EXPECT_EQ(target->paths, (Paths{ folder.file(L"a.txt"), folder.file(L"添付.bin") }));
    EXPECT_EQ(saved(L"a.txt"), "one");
    EXPECT_EQ(saved(L"添付.bin"), "twothree");
    ASSERT_EQ(source->asked.size(), 3u);
    EXPECT_EQ(source->asked[0].lindex, -1);
    EXPECT_EQ(source->asked[1].lindex, 0);
    EXPECT_EQ(source->asked[2].lindex, 1);
    EXPECT_TRUE(source->is_given_back());
    EXPECT_TRUE(failures.empty());
}

TEST_F(DropTarget, WritesNothingForADeclinedAttachment)
{
    const Source source = make_source();
    source->offer_attachments({ { L"a", "one" }, { L"b", "two" }, { L"c", "three" } });
    const auto save = window.on_save;
    window.on_save = [&](std::int64_t lparam) {
        return *target->proposed_name(lparam) == L"b" ? 0 : save(lparam);
    };
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 1u);
    EXPECT_EQ(target->paths, (Paths{ folder.file(L"a"), folder.file(L"c") }));
    EXPECT_FALSE(std::filesystem::exists(folder.file(L"b")));
    window.on_save = [&](std::int64_t lparam) {
        target->proposed_name(lparam)->clear();
        return 1;
    };
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 0u) << "all declined";
    EXPECT_EQ(window.codes.back(), 0);
    EXPECT_TRUE(source->is_given_back());
}

TEST_F(DropTarget, SkipsEmptyUnnamedAndStreamedAttachments)
{
    const Source source = make_source();
    source->offer_attachments({ { L"empty", "" }, { L"", "unnamed" }, { L"stream", "x" }, { L"last", "y" } });
    source->contents[2].medium = TYMED_ISTREAM;
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 1u);
    EXPECT_EQ(proposed, Paths{ L"last" });
    const Source only_stream = make_source();
    only_stream->offer_attachments({ { L"stream", "x" } });
    only_stream->contents[0].medium = TYMED_ISTREAM;
    EXPECT_EQ(drop_on(*target.Get(), *only_stream.Get()), 0u);
    EXPECT_TRUE(only_stream->is_given_back());
}

TEST_F(DropTarget, WritesOnlyTheStatedSize)
{
    const Source source = make_source();
    source->offer_attachments({ { L"a", "three bytes and padding" } });
    source->contents.back().bytes = gui::descriptor_of({ L"a" }, 3);
    drop_on(*target.Get(), *source.Get());
    EXPECT_EQ(saved(L"a"), "thr");
}

TEST_F(DropTarget, SurvivesACountThatIsLargerThanItsBlock)
{
    const Source source = make_source();
    source->offer_attachments({ { L"a", "x" } });
    std::ranges::fill(std::span{ source->contents.back().bytes }.first(4), std::byte{ 0xFF });
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 1u);
    EXPECT_EQ(proposed, Paths{ L"a" });
}

TEST_F(DropTarget, ReplacesAnExistingFile)
{
    folder.write(L"a", { 'l', 'o', 'n', 'g', 'e', 'r' });
    const Source source = make_source();
    source->offer_attachments({ { L"a", "new" } });
    drop_on(*target.Get(), *source.Get());
    EXPECT_EQ(saved(L"a"), "new");
}

TEST_F(DropTarget, ShowsWhyAnAttachmentCannotBeWritten)
{
    const Source source = make_source();
    source->offer_attachments({ { L"無\\a", "x" }, { L"b", "y" } });
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 1u) << "the other one was written";
    const std::wstring reason = ovlib::system_error_text(ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(failures, Paths{ reason + folder.file(L"無\\a") });
    EXPECT_EQ(target->paths, Paths{ folder.file(L"b") });
}

TEST_F(DropTarget, ShowsThatADeviceIsNoFile)
{
    const Source source = make_source();
    source->offer_attachments({ { L"a", "x" } });
    window.on_save = [&](std::int64_t lparam) {
        *target->proposed_name(lparam) = L"NUL";
        return 1;
    };
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 0u);
    EXPECT_EQ(failures.size(), 1u);
}

TEST_F(DropTarget, ShowsTheFailureInABoxWithoutAHook)
{
    const Target plain = ovlib::make_com<ovlib::DropFiles>(&window);
    plain->message = notification;
    window.on_save = [&](std::int64_t lparam) {
        *plain->proposed_name(lparam) = folder.file(L"無\\a");
        return 1;
    };
    const Source source = make_source();
    source->offer_attachments({ { L"a", "x" } });
    Paths box;
    gui::DialogDriver user{ [&](HWND dialog) {
        box = { gui::text_of(dialog), gui::text_of(GetDlgItem(dialog, 65535)) };
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    } };
    drop_on(*plain.Get(), *source.Get());
    EXPECT_TRUE(user.finish());
    EXPECT_EQ(box,
        (Paths{ L"保存エラー", ovlib::system_error_text(ERROR_PATH_NOT_FOUND) + folder.file(L"無\\a") }));
}

TEST_F(DropTarget, KnowsItsOwnQuestionOnly)
{
    const Source source = make_source();
    source->offer_attachments({ { L"a", "x" } });
    std::wstring strange = L"strange";
    std::int64_t asked = 0;
    window.on_save = [&](std::int64_t lparam) {
        asked = lparam;
        EXPECT_EQ(target->proposed_name(0), nullptr);
        EXPECT_EQ(target->proposed_name(reinterpret_cast<std::intptr_t>(&strange)), nullptr);
        EXPECT_NE(target->proposed_name(lparam), nullptr);
        return 0;
    };
    drop_on(*target.Get(), *source.Get());
    EXPECT_NE(asked, 0);
    EXPECT_EQ(target->proposed_name(asked), nullptr) << "the name is gone";
}

TEST_F(DropTarget, NotifiesAnExistingWindowWithAMessageOfAPrivateNumber)
{
    const Source source = files({ L"C:\\a" });
    target->message = 0x7FFF;
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 1u);
    EXPECT_EQ(window.codes, Codes{});
    target->message = 0x8000;
    drop_on(*target.Get(), *source.Get());
    EXPECT_EQ(window.codes, (Codes{ 4, 5, 1 }));
    window.codes.clear();
    window.destroy();
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 1u);
    target->detach();
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 1u);
    EXPECT_EQ(window.codes, Codes{});
}

// The dialog of an attachment dispatches messages, so another source can enter and drop.
TEST_F(DropTarget, RefusesASourceWhileADropRuns)
{
    const Source source = make_source();
    source->offer_attachments({ { L"a", "x" }, { L"b", "y" } });
    const Source other = files({ L"C:\\other" });
    const auto save = window.on_save;
    window.on_save = [&](std::int64_t lparam) {
        EXPECT_EQ(drop_on(*target.Get(), *other.Get(), { 9, 9 }), 0u);
        return save(lparam);
    };
    EXPECT_EQ(drop_on(*target.Get(), *source.Get(), { 1, 1 }), 1u);
    EXPECT_EQ(target->paths, (Paths{ folder.file(L"a"), folder.file(L"b") }));
    EXPECT_EQ(target->point.x, 1);
    EXPECT_TRUE(other->asked.empty());
    DWORD effect = 1;
    target->DragOver(0, {}, &effect);
    EXPECT_EQ(effect, 0u) << "the source that was refused is still there";
}

TEST_F(DropTarget, LivesUntilItsDropHasEnded)
{
    const Source source = make_source();
    source->offer_attachments({ { L"a", "x" }, { L"b", "y" } });
    IDropTarget* const bare = target.Get();
    window.on_save = [&](std::int64_t) {
        target.Reset();
        return 0;
    };
    DWORD effect = 1;
    EXPECT_EQ(bare->DragEnter(source.Get(), 0, {}, &effect), S_OK);
    effect = 1;
    EXPECT_EQ(bare->Drop(source.Get(), 0, {}, &effect), S_OK);
    EXPECT_EQ(effect, 0u);
    EXPECT_TRUE(source->is_given_back());
}

// A hostile source may offer any number of attachments, each of which takes its time.
TEST_F(DropTarget, AsksForNothingMoreWhenItsWindowIsGone)
{
    const Source source = make_source();
    source->offer_attachments({ { L"a", "x" }, { L"b", "y" }, { L"c", "z" } });
    std::size_t asked = 0;
    window.on_save = [&](std::int64_t) {
        asked = source->asked.size();
        window.destroy();
        return 0;
    };
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 0u);
    EXPECT_EQ(source->asked.size(), asked);
}

TEST_F(DropTarget, PassesNoExceptionOn)
{
    const Source source = files({ L"C:\\a" });
    source->throws = true;
    DWORD effect = 1;
    EXPECT_EQ(target->DragEnter(source.Get(), 0, {}, &effect), S_OK);
    effect = 1;
    EXPECT_EQ(target->Drop(source.Get(), 0, {}, &effect), E_UNEXPECTED);
    EXPECT_EQ(effect, 0u);
    source->throws = false;
    EXPECT_EQ(drop_on(*target.Get(), *source.Get()), 1u) << "the next drop works";
}

TEST_F(DropTarget, RefusesCallsWithoutAnEffectOrData)
{
    const Source source = files({ L"C:\\a" });
    EXPECT_EQ(target->DragEnter(source.Get(), 0, {}, nullptr), E_INVALIDARG);
    EXPECT_EQ(target->DragOver(0, {}, nullptr), E_INVALIDARG);
    EXPECT_EQ(target->Drop(source.Get(), 0, {}, nullptr), E_INVALIDARG);
    DWORD effect = 1;
    EXPECT_EQ(target->DragEnter(nullptr, 0, {}, &effect), S_OK);
    EXPECT_EQ(effect, 0u);
    effect = 1;
    target->DragEnter(source.Get(), 0, {}, &effect);
    EXPECT_EQ(target->Drop(nullptr, 0, {}, &effect), S_OK);
    EXPECT_EQ(effect, 0u);
}

TEST_F(DropTarget, KeepsNoReferencesOverManyDrops)
{
    const Source source = files({ L"C:\\a" });
    const Source text = make_source();
    text->offer_text(L"x");
    for (int i = 0; i < 5000; ++i) {
        ASSERT_EQ(drop_on(*target.Get(), *source.Get()), 1u);
        ASSERT_EQ(drop_on(*target.Get(), *text.Get()), 1u);
        source->queried.clear();
        source->asked.clear();
    }
    EXPECT_EQ(references(), 1u);
    EXPECT_TRUE(source->is_given_back());
    EXPECT_TRUE(text->is_given_back());
}

} // namespace
