#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/boxes/file_dialogs.h"
#include "tests/support/folder_windows/folder_windows_script.h"
#include "tests/support/folder_windows/real_folder_window.h"
#include "tests/support/input/real_input.h"
#include "tests/support/processes/fixture_programs.h"
#include "tests/support/processes/wendlow_process.h"
#include "tests/support/profiles/profile_encoder.h"
#include "tests/support/windows/control_ids.h"
#include "tests/support/windows/messages.h"
#include "tests/support/windows/windows_lookup.h"

using namespace test_support;

namespace
{

// Programs and a folder on the screen, the program that lists them, and a place for the profile.
class Saving : public testing::Test
{
protected:
    // Shows a program of that name and title at the rectangle; the entry is what a profile has of it.
    void show(const std::wstring& title, int x, int y, int width, int height)
    {
        const std::wstring path =
            fixtures_.add(title, {.title = title, .x = x, .y = y, .width = width, .height = height});
        fixtures_.start(title);
        entries_[title] = {kProgramFlag, x, y, width, height, units_of(path)};
    }

    // Scans and ticks the windows in the order given.
    void scan_and_tick(const std::vector<std::wstring>& titles)
    {
        wendlow_.scan();
        for (const std::wstring& title : titles)
            wendlow_.tick(title);
    }

    // The file of these windows in the order of their rows, byte for byte.
    Bytes expected(std::vector<std::wstring> titles, const std::u16string& name) const
    {
        std::sort(titles.begin(), titles.end(), [&](const std::wstring& left, const std::wstring& right) {
            return wendlow_.row_of(left) < wendlow_.row_of(right);
        });
        ProfileEncoder encoder;
        encoder.name(name);
        for (const std::wstring& title : titles)
            encoder.add(entries_.at(title));
        return encoder.bytes();
    }

    // The whole way through name window and save dialog; the bytes of the file come back.
    Bytes save(const std::wstring& name)
    {
        wendlow_.create_profile(name, file());
        return read_file(file());
    }

    std::wstring file() const { return folder_.file(L"profile.txt"); }
    HWND name_edit() const { return GetDlgItem(wendlow_.wait_for_name_window(), name_control::kName); }
    std::wstring shown_name() const { return text_of(name_edit()); }

    FixturePrograms fixtures_;
    TemporaryFolder folder_;
    WendlowProcess wendlow_;
    std::map<std::wstring, ProfileEntry> entries_;
};

TEST_F(Saving, WritesOneProgramByteForByte)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    EXPECT_EQ(hex(save(L"A")), hex(expected({L"One"}, u"A")));
    boxes.expect_no_boxes();
    EXPECT_EQ(wendlow_.name_window(), nullptr);
    EXPECT_NE(wendlow_.list_window(), nullptr);
}

TEST_F(Saving, WritesTickedRowsInTheOrderOfTheList)
{
    show(L"First", 100, 110, 320, 240);
    show(L"Second", 200, 120, 330, 250);
    show(L"Not wanted", 250, 160, 360, 280);
    show(L"Third", 300, 130, 340, 260);
    scan_and_tick({L"Second", L"Third", L"First"});
    EXPECT_EQ(hex(save(L"three windows")), hex(expected({L"First", L"Second", L"Third"}, u"three windows")));
}

TEST_F(Saving, KeepsNegativePlaces)
{
    show(L"Left above", -8, -20, 400, 300);
    scan_and_tick({L"Left above"});
    const Bytes saved = save(L"negative");
    EXPECT_EQ(hex(saved), hex(expected({L"Left above"}, u"negative")));
    // X and Y follow the count and the one kind flag.
    EXPECT_EQ(hex({saved.begin() + 5, saved.begin() + 13}), "F8 FF FF FF EC FF FF FF");
}

TEST_F(Saving, KeepsTheKindsOfAFolderAndAProgram)
{
    show(L"Program", 120, 130, 400, 300);
    const std::wstring path = fixtures_.folder().make_folder(L"Folder");
    const RealFolderWindow folder(path);
    SetWindowPos(folder.window(), HWND_TOP, 333, 222, 500, 310, 0);
    FolderWindowsScript script;
    script.add(folder.window(), path);
    const std::wstring title = title_of(folder.window());
    EXPECT_TRUE(title.starts_with(L"Folder"));
    entries_[title] = {kFolderFlag, 333, 222, 500, 310, units_of(path)};
    scan_and_tick({L"Program", title});
    EXPECT_EQ(hex(save(L"both kinds")), hex(expected({L"Program", title}, u"both kinds")));
}

TEST_F(Saving, SavesAMinimisedWindowWithZeros)
{
    show(L"Minimised", 120, 130, 400, 300);
    ShowWindow(fixtures_.wait_for_window(L"Minimised"), SW_MINIMIZE);
    wait_until([&] { return IsIconic(fixtures_.wait_for_window(L"Minimised")) != FALSE; }, kShortWait,
               "the minimised window");
    ProfileEntry& entry = entries_[L"Minimised"];
    entry.x = entry.y = entry.width = entry.height = 0;
    scan_and_tick({L"Minimised"});
    EXPECT_EQ(hex(save(L"m")), hex(expected({L"Minimised"}, u"m")));
}

TEST_F(Saving, StoresANameOf256UnitsWhole)
{
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    EXPECT_EQ(hex(save(std::wstring(256, L'\x416'))), hex(expected({L"One"}, std::u16string(256, u'\x416'))));
}

TEST_F(Saving, CutsALongerNameAt256Units)
{
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    EXPECT_EQ(hex(save(std::wstring(300, L'n'))), hex(expected({L"One"}, std::u16string(256, u'n'))));
}

TEST_F(Saving, KeepsAnExistingFileAsItIs)
{
    const Bytes before{1, 2, 3, 4};
    write_file(file(), before);
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    wendlow_.press_create_profile();
    wendlow_.enter_name(L"A");
    wendlow_.press_name_ok();
    choose_existing_file(wendlow_.process_id(), file(), Overwrite::kYes);
    const BoxWatcher boxes = wendlow_.watch_boxes();
    boxes.expect_boxes({{L"information", L"File already exists"}});
    wendlow_.wait_until_idle();
    EXPECT_EQ(hex(read_file(file())), hex(before));
    EXPECT_EQ(folder_.names(), std::vector<std::wstring>{L"profile.txt"});
    EXPECT_EQ(boxes.count(), 1u);
}

TEST_F(Saving, ProposesANameAndAddsTheEndingOfTextFiles)
{
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    wendlow_.press_create_profile();
    wendlow_.enter_name(L"A");
    wendlow_.press_name_ok();
    const HWND dialog = wait_for_file_dialog(wendlow_.process_id());
    EXPECT_EQ(file_dialog_title(dialog), L"Save Profile");
    EXPECT_TRUE(becomes_true([&] { return file_dialog_name(dialog) == L"Profile_01"; }));
    choose_file(wendlow_.process_id(), folder_.file(L"bare"));
    EXPECT_TRUE(becomes_true([&] { return file_exists(folder_.file(L"bare.txt")); }));
}

TEST_F(Saving, WritesNothingWhenTheSaveDialogIsCancelled)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    wendlow_.press_create_profile();
    wendlow_.enter_name(L"A");
    wendlow_.press_name_ok();
    enter_file_name(wendlow_.process_id(), file());
    cancel_file_dialog(wendlow_.process_id());
    wendlow_.wait_until_idle();
    EXPECT_EQ(folder_.names(), std::vector<std::wstring>{});
    boxes.expect_no_boxes();
    // The next one is saved as if nothing had been.
    EXPECT_EQ(hex(save(L"B")), hex(expected({L"One"}, u"B")));
}

TEST_F(Saving, AsksForATickedRowFirst)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    show(L"One", 120, 130, 400, 300);
    const RemoteListView list = wendlow_.scan();
    bring_to_front(wendlow_.list_window());
    click(list.cell_centre(wendlow_.row_of(L"One"), 1));
    wendlow_.wait_until_idle();
    wendlow_.press_create_profile();
    boxes.expect_boxes({{L"info", L"There are no selected items.\nTo create profile - select items you want "
                                  L"to include\nand then press button Create Profile."}});
    EXPECT_EQ(boxes.boxes()[0].owner, wendlow_.list_window());
    wendlow_.wait_until_idle();
    EXPECT_EQ(wendlow_.name_window(), nullptr);
}

TEST_F(Saving, TakesPlacesFromModifyCell)
{
    show(L"Modified", 120, 130, 400, 300);
    scan_and_tick({L"Modified"});
    const HWND cell = wendlow_.open_modify_cell(wendlow_.row_of(L"Modified"), 4);
    double_click(centre_of(GetDlgItem(cell, cell_control::kX)));
    type_text(L"100");
    click(GetDlgItem(cell, cell_control::kOk));
    wait_until([&] { return !IsWindow(cell); }, kShortWait, "Modify Cell to close");
    entries_[L"Modified"].x = 100;
    EXPECT_EQ(hex(save(L"A")), hex(expected({L"Modified"}, u"A")));
}

TEST_F(Saving, RefusesAnEmptyName)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    wendlow_.press_create_profile();
    const HWND name = wendlow_.wait_for_name_window();
    wendlow_.press_name_ok();
    boxes.expect_boxes({{L"warning", L"Please enter Name of Profile, e.g. \"work docs 01\""}});
    EXPECT_EQ(boxes.boxes()[0].owner, name);
    wendlow_.wait_until_idle();
    EXPECT_EQ(wendlow_.name_window(), name);
    EXPECT_EQ(shown_name(), L"");
}

TEST_F(Saving, LeavesNoFileWhenTheNameIsCancelled)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    wendlow_.press_create_profile();
    wendlow_.enter_name(L"A");
    wendlow_.press_name_cancel();
    EXPECT_TRUE(becomes_true([&] { return !wendlow_.name_window(); }));
    wendlow_.wait_until_idle();
    EXPECT_EQ(file_dialog_of(wendlow_.process_id()), nullptr);
    EXPECT_EQ(folder_.names(), std::vector<std::wstring>{});
    boxes.expect_no_boxes();
}

TEST_F(Saving, EnterInTheNameNeitherConfirmsNorCloses)
{
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    wendlow_.press_create_profile();
    const HWND name = wendlow_.wait_for_name_window();
    bring_to_front(name);
    type_text(L"typed");
    press_key(VK_RETURN);
    type_text(L" on");
    EXPECT_TRUE(becomes_true([&] { return shown_name() == L"typed on"; }));
    EXPECT_EQ(wendlow_.name_window(), name);
    EXPECT_EQ(file_dialog_of(wendlow_.process_id()), nullptr);
}

TEST_F(Saving, TypingANameStopsAtTheVisibleWidth)
{
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    wendlow_.press_create_profile();
    bring_to_front(wendlow_.wait_for_name_window());
    type_text(std::wstring(120, L'w'));
    // Home and the last letter tell that all of the typing has been taken.
    press_key(VK_HOME);
    press_key(VK_DELETE);
    type_text(L"E");
    wait_until([&] { return shown_name().starts_with(L"E"); }, kShortWait, "the typing to be taken");
    const std::wstring name = shown_name();
    EXPECT_GT(name.size(), 3u);
    EXPECT_LT(name.size(), 100u);
    wendlow_.press_name_ok();
    choose_file(wendlow_.process_id(), file());
    wendlow_.wait_until_idle();
    EXPECT_EQ(hex(read_file(file())), hex(expected({L"One"}, units_of(name))));
}

TEST_F(Saving, SecondCreateProfileAsksAnew)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    show(L"One", 120, 130, 400, 300);
    show(L"Two", 220, 230, 400, 300);
    scan_and_tick({L"One"});
    wendlow_.press_create_profile();
    const HWND first = wendlow_.wait_for_name_window();
    wendlow_.tick(L"Two");
    wendlow_.press_create_profile();
    EXPECT_TRUE(becomes_true([&] { return !IsWindow(first) && wendlow_.name_window(); }));
    wendlow_.enter_name(L"A");
    wendlow_.press_name_ok();
    choose_file(wendlow_.process_id(), file());
    wendlow_.wait_until_idle();
    EXPECT_EQ(hex(read_file(file())), hex(expected({L"One", L"Two"}, u"A")));
    boxes.expect_no_boxes();
}

TEST_F(Saving, NameWindowGoesWithTheList)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    wendlow_.press_create_profile();
    const HWND name = wendlow_.wait_for_name_window();
    wendlow_.close_list_window();
    EXPECT_TRUE(becomes_true([&] { return !IsWindow(name); }));
    boxes.expect_no_boxes();
}

// A name is taken from whichever window it comes, but while it is being saved no other is.
TEST_F(Saving, TakesANameOfAnotherProgramAndOneAtATime)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    show(L"One", 120, 130, 400, 300);
    scan_and_tick({L"One"});
    wendlow_.press_create_profile();
    const HWND name_window = wendlow_.wait_for_name_window();
    const HWND stranger = fixtures_.wait_for_window(L"One");
    const auto send = [&](ULONG_PTR kind, std::wstring name) {
        COPYDATASTRUCT data{
            .dwData = kind, .cbData = static_cast<DWORD>(name.size() * 2), .lpData = name.data()};
        DWORD_PTR answer = 99;
        SendMessageTimeoutW(wendlow_.list_window(), WM_COPYDATA, reinterpret_cast<WPARAM>(stranger),
                            reinterpret_cast<LPARAM>(&data), SMTO_NORMAL, kLongWait, &answer);
        return answer;
    };
    EXPECT_EQ(send(1, L"no name"), 1u);
    DWORD_PTR answer = 99;
    Background saving([&] { answer = send(0, L"stranger"); });
    wait_for_file_dialog(wendlow_.process_id());
    EXPECT_EQ(send(0, L"second"), 0u);
    EXPECT_EQ(send(1, L"no name"), 1u);
    choose_file(wendlow_.process_id(), file());
    saving.join();
    EXPECT_EQ(answer, 1u);
    wendlow_.wait_until_idle();
    EXPECT_EQ(hex(read_file(file())), hex(expected({L"One"}, u"stranger")));
    EXPECT_EQ(wendlow_.name_window(), name_window);
    EXPECT_TRUE(IsWindow(stranger));
    EXPECT_EQ(file_dialog_of(wendlow_.process_id()), nullptr);
    boxes.expect_no_boxes();
}

TEST_F(Saving, LoadsBackWhatWasSaved)
{
    const BoxWatcher boxes = wendlow_.watch_boxes();
    show(L"Middle", 420, 130, 400, 300);
    show(L"Left above", -40, -15, 410, 310);
    show(L"Minimised", 300, 300, 400, 300);
    ShowWindow(fixtures_.wait_for_window(L"Minimised"), SW_MINIMIZE);
    wait_until([&] { return IsIconic(fixtures_.wait_for_window(L"Minimised")) != FALSE; }, kShortWait,
               "the minimised window");
    scan_and_tick({L"Middle", L"Left above", L"Minimised"});
    save(L"Office");
    for (const wchar_t* name : {L"Middle", L"Left above", L"Minimised"}) {
        fixtures_.stop(name);
        // Started anew, each would come up elsewhere.
        fixtures_.wait_for_end(name);
        WritePrivateProfileStringW(L"fixture", L"x", L"77",
                                   fixtures_.folder().file(name + std::wstring(L".ini")).c_str());
    }
    wendlow_.load_profile(file());
    for (const wchar_t* name : {L"Middle", L"Left above"}) {
        const ProfileEntry& entry = entries_[name];
        const RECT saved{entry.x, entry.y, entry.x + entry.width, entry.y + entry.height};
        EXPECT_TRUE(becomes_true([&] {
            const RECT found = rectangle_of(fixtures_.wait_for_window(name));
            return EqualRect(&found, &saved) != FALSE;
        })) << printable(name);
    }
    EXPECT_TRUE(becomes_true([&] { return IsIconic(fixtures_.wait_for_window(L"Minimised")) != FALSE; }));
    EXPECT_EQ(wendlow_.combo_texts(wendlow_.profile_combo()), std::vector<std::wstring>{L"Office"});
    boxes.expect_no_boxes();
}

} // namespace
