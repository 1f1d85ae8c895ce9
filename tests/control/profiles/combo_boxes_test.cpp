#include "sources/funcs_layout_windows/profiles/combo_boxes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/support/basics/text.h"

namespace
{

using namespace profile_tests;
using test_support::BoxWatcher;
using test_support::bytes_as_wide;
using test_support::ExpectedBox;
using test_support::ImportHook;
using Texts = std::vector<std::wstring>;

std::wstring input_text(const std::wstring& function, int site, int handler, const std::wstring& values)
{
    return handler_first_text({L"sources/funcs_layout_windows", function, site, handler},
                              L"error, incorrect input parameters:\n" + values);
}

constexpr wchar_t kDelete[] = L"error while deleting string from ComboBox Profile";
constexpr wchar_t kNoSelection[] =
    L"error while deleting string from ComboBox Profile\nind > uiN_strs or 0 == uiN_strs";

// Combo calls that a list answers with `answer`, and all that were made, in order.
class RefusingCombo
{
public:
    RefusingCombo(UINT message, LRESULT answer) : message_(message), answer_(answer) {}
    std::vector<UINT> sent;

private:
    UINT message_;
    LRESULT answer_;
    ImportHook<"SendMessageW", decltype(SendMessageW)> hook_{
        "user32.dll", [this](HWND window, UINT message, WPARAM wide, LPARAM narrow) {
            sent.push_back(message);
            return message == message_ ? answer_ : hook_.call_original(window, message, wide, narrow);
        }};
};

} // namespace

TEST(ActionCombo, OffersMinimizeRestoreAndCloseAndSelectsNone)
{
    ProfileFixture fixture;
    EXPECT_EQ(combo_texts(fixture.action_combo), (Texts{L"Minimize", L"Restore", L"Close"}));
    EXPECT_EQ(SendMessageW(fixture.action_combo, CB_GETCURSEL, 0, 0), CB_ERR);
    EXPECT_EQ(fixture.actions.hwnd_CB, fixture.action_combo);
    EXPECT_EQ(fixture.actions.uiCtlID, 5u);
    EXPECT_EQ(fixture.actions.uiN_items, 3u);
    EXPECT_EQ(fixture.actions.uiSelection, 0u);
}

TEST(ActionCombo, ReportsEachTextThatCannotBeInsertedAndGoesOn)
{
    ProfileFixture fixture;
    for (const LRESULT answer : {LRESULT{CB_ERR}, LRESULT{CB_ERRSPACE}}) {
        CB_Action_mng_STR record{};
        record.uiSelection = 9;
        const RefusingCombo refusing(CB_INSERTSTRING, answer);
        BoxWatcher boxes;
        EXPECT_EQ(CB_Action_init(fixture.action_combo, 5, &record), 1);
        const ExpectedBox box{L"error", L"error while inserting string to ComboBox Action"};
        boxes.expect_boxes({box, box, box});
        EXPECT_EQ(record.uiN_items, 3u);
        EXPECT_EQ(record.uiSelection, 0u);
    }
}

TEST(ActionCombo, RefusesMissingArguments)
{
    ProfileFixture fixture;
    CB_Action_mng_STR record{};
    const std::pair<HWND, CB_Action_mng_STR*> calls[] = {{nullptr, &record}, {fixture.action_combo, nullptr}};
    for (const auto& [combo, kept] : calls) {
        BoxWatcher boxes;
        EXPECT_EQ(CB_Action_init(combo, 5, kept), -1);
        boxes.expect_boxes({{L"error", input_text(L"CB_Action_init", 10044, 10121,
                                                  L"hwnd_CB_Action = " + pointer(combo) +
                                                      L", pCB_Action_mng_STR = " + pointer(kept))}});
    }
    EXPECT_EQ(combo_texts(fixture.action_combo).size(), 3u);
}

TEST(ComboSelection, IsStoredForTheRecordsOwnListOnly)
{
    ProfileFixture fixture;
    const std::uint8_t name[] = {'a', 0, 0, 0};
    CB_Profile_add_string(&fixture.profiles, name, 0);
    fixture.select_profile(0);
    fixture.select_action(2);
    const HWND other = fixture.window;
    struct {
        unsigned code;
        unsigned id;
        bool own_control;
    } const ignored[] = {{CBN_DROPDOWN, 4, true}, {CBN_SELCHANGE, 9, true}, {CBN_SELCHANGE, 4, false}};
    fixture.profiles.uiSelection = 77;
    fixture.actions.uiSelection = 77;
    for (const auto& message : ignored) {
        const unsigned action_id = message.id == 4 ? 5 : message.id;
        EXPECT_EQ(onWM_COMMAND_CB_Profile(message.code, message.id,
                                          message.own_control ? fixture.profile_combo : other,
                                          &fixture.profiles),
                  1);
        EXPECT_EQ(onWM_COMMAND_CB_Action(message.code, action_id,
                                         message.own_control ? fixture.action_combo : other,
                                         &fixture.actions),
                  1);
        EXPECT_EQ(fixture.profiles.uiSelection, 77u);
        EXPECT_EQ(fixture.actions.uiSelection, 77u);
    }
    EXPECT_EQ(onWM_COMMAND_CB_Profile(CBN_SELCHANGE, 4, fixture.profile_combo, &fixture.profiles), 1);
    EXPECT_EQ(onWM_COMMAND_CB_Action(CBN_SELCHANGE, 5, fixture.action_combo, &fixture.actions), 1);
    EXPECT_EQ(fixture.profiles.uiSelection, 0u);
    EXPECT_EQ(fixture.actions.uiSelection, 2u);
}

TEST(ComboSelection, RefusesMissingArgumentsUnreadablyForTheProfileList)
{
    ProfileFixture fixture;
    fixture.profiles.uiSelection = 77;
    fixture.actions.uiSelection = 77;
    for (const HWND control : {HWND{nullptr}, fixture.profile_combo}) {
        CB_mng_STR* const profiles = control ? nullptr : &fixture.profiles;
        CB_Action_mng_STR* const actions = control ? nullptr : &fixture.actions;
        {
            BoxWatcher boxes;
            EXPECT_EQ(onWM_COMMAND_CB_Profile(CBN_SELCHANGE, 4, control, profiles), -1);
            const std::wstring text =
                input_text(L"onWM_COMMAND_CB_Profile", 9672, 9711,
                           L"hwndCtl = " + pointer(control) + L", pCB_mng_STR = " + pointer(profiles));
            boxes.expect_boxes({{L"error", bytes_as_wide(std::string(text.begin(), text.end()))}});
        }
        BoxWatcher boxes;
        EXPECT_EQ(onWM_COMMAND_CB_Action(CBN_SELCHANGE, 5, control, actions), -1);
        boxes.expect_boxes({{L"error", input_text(L"onWM_COMMAND_CB_Action", 10182, 10219,
                                                  L"hwndCtl = " + pointer(control) +
                                                      L", pCB_Action_mng_STR = " + pointer(actions))}});
    }
    EXPECT_EQ(fixture.profiles.uiSelection, 77u);
    EXPECT_EQ(fixture.actions.uiSelection, 77u);
}

TEST(ProfileCombo, StartsEmptyWithRoomForThirtyTwoNames)
{
    ProfileFixture fixture;
    EXPECT_EQ(fixture.profiles.hwnd_CB, fixture.profile_combo);
    EXPECT_EQ(fixture.profiles.uiCtlID, 4u);
    EXPECT_EQ(fixture.profiles.uiN_strs, 0u);
    EXPECT_EQ(fixture.profiles.uiMax_N_strs, 32u);
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
}

TEST(ProfileCombo, AddsANameUpToTheSignatureAndSelectsIt)
{
    ProfileFixture fixture;
    fixture.profiles.uiSelection = 5;
    const std::uint8_t name[] = {'W', 0, 'o', 0, 'r', 0, 'k', 0, 0x00, 0x07, 0x0C, 'x', 0, 'y', 0};
    BoxWatcher boxes;
    EXPECT_EQ(CB_Profile_add_string(&fixture.profiles, name, 8), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(combo_texts(fixture.profile_combo), Texts{L"Work"});
    EXPECT_EQ(SendMessageW(fixture.profile_combo, CB_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(fixture.profiles.uiN_strs, 1u);
    EXPECT_EQ(fixture.profiles.arr1D_ui_index_profile[0], 8u);
    EXPECT_EQ(fixture.profiles.arr1D_p_names[0], static_cast<const void*>(name));
    EXPECT_EQ(fixture.profiles.uiSelection, 5u);
}

TEST(ProfileCombo, ShowsTheLowByteOfEachUnitAndAtMost201)
{
    ProfileFixture fixture;
    const std::uint8_t cyrillic[] = {0x34, 0x04, 0x3E, 0x04, 0xE4, 0x00, 0, 0};
    EXPECT_EQ(CB_Profile_add_string(&fixture.profiles, cyrillic, 0), 1);
    std::vector<std::uint8_t> longest;
    for (int i = 0; i < 256; ++i)
        longest.insert(longest.end(), {'n', 0});
    longest.insert(longest.end(), {0x00, 0x07, 0x0C});
    EXPECT_EQ(CB_Profile_add_string(&fixture.profiles, longest.data(), 1), 1);
    EXPECT_EQ(combo_texts(fixture.profile_combo), (Texts{L"\x34\x3E\xE4", std::wstring(201, L'n')}));
}

TEST(ProfileCombo, SelectsTheFirstNameThatBeginsTheSameWay)
{
    ProfileFixture fixture;
    const wchar_t* names[] = {L"other", L"WORK at home", L"work"};
    for (std::uint32_t i = 0; i < 3; ++i)
        EXPECT_EQ(CB_Profile_add_string(&fixture.profiles, names[i], i), 1);
    EXPECT_EQ(combo_texts(fixture.profile_combo), (Texts{L"other", L"WORK at home", L"work"}));
    EXPECT_EQ(SendMessageW(fixture.profile_combo, CB_GETCURSEL, 0, 0), 1);
}

TEST(ProfileCombo, RefusesTheThirtyThirdName)
{
    ProfileFixture fixture;
    for (std::uint32_t i = 0; i < 32; ++i)
        ASSERT_EQ(CB_Profile_add_string(&fixture.profiles, L"name", i), 1);
    const CB_mng_STR before = fixture.profiles;
    BoxWatcher boxes;
    EXPECT_EQ(CB_Profile_add_string(&fixture.profiles, L"one more", 32), 2);
    boxes.expect_boxes({{L"warning", L"impossible to add string to ComboBox, max number exceeded"}});
    EXPECT_EQ(std::memcmp(&before, &fixture.profiles, sizeof(before)), 0);
    EXPECT_EQ(combo_texts(fixture.profile_combo).size(), 32u);
}

TEST(ProfileCombo, KeepsTheEntryOfANameThatTheListRefuses)
{
    for (const LRESULT answer : {LRESULT{CB_ERR}, LRESULT{CB_ERRSPACE}}) {
        ProfileFixture fixture;
        const RefusingCombo refusing(CB_INSERTSTRING, answer);
        BoxWatcher boxes;
        const wchar_t name[] = L"name";
        EXPECT_EQ(CB_Profile_add_string(&fixture.profiles, name, 6), 1);
        boxes.expect_boxes({{L"error", L"error while inserting string to ComboBox Profile"}});
        // The name that is not there is selected all the same.
        EXPECT_EQ(refusing.sent, (std::vector<UINT>{CB_INSERTSTRING, CB_SELECTSTRING}));
        EXPECT_EQ(fixture.profiles.uiN_strs, 1u);
        EXPECT_EQ(fixture.profiles.arr1D_ui_index_profile[0], 6u);
        EXPECT_EQ(fixture.profiles.arr1D_p_names[0], static_cast<const void*>(name));
        EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
    }
}

TEST(ProfileCombo, RefusesMissingArguments)
{
    ProfileFixture fixture;
    const std::pair<CB_mng_STR*, const wchar_t*> calls[] = {{nullptr, L"x"}, {&fixture.profiles, nullptr}};
    for (const auto& [record, name] : calls) {
        BoxWatcher boxes;
        EXPECT_EQ(CB_Profile_add_string(record, name, 0), -1);
        boxes.expect_boxes({{L"error", input_text(L"CB_Profile_add_string", 9777, 9874,
                                                  L"p_CB_mng_STR = " + pointer(record) +
                                                      L", p_tc_sz_name = " + pointer(name))}});
    }
    BoxWatcher boxes;
    EXPECT_EQ(CB_Profile_del_string(nullptr), -1);
    boxes.expect_boxes(
        {{L"error", input_text(L"CB_Profile_del_string", 9907, 10002, L"p_CB_mng_STR = 0000000000000000")}});
}

TEST(ProfileCombo, RaisesTheStoreIndexesBehindADeletedName)
{
    struct {
        int position;
        Texts left;
        std::vector<std::uint32_t> indexes;
    } const rows[] = {
        {0, {L"b", L"c"}, {11, 12, 0}}, {1, {L"a", L"c"}, {10, 12, 0}}, {2, {L"a", L"b"}, {10, 11, 0}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.position);
        ProfileFixture fixture;
        const wchar_t* names[] = {L"a", L"b", L"c"};
        for (std::uint32_t i = 0; i < 3; ++i)
            CB_Profile_add_string(&fixture.profiles, names[i], 10 + i);
        for (std::size_t i = 3; i < 32; ++i)
            fixture.profiles.arr1D_ui_index_profile[i] = 99;
        fixture.select_profile(row.position);
        BoxWatcher boxes;
        EXPECT_EQ(CB_Profile_del_string(&fixture.profiles), 1);
        boxes.expect_no_boxes();
        EXPECT_EQ(combo_texts(fixture.profile_combo), row.left);
        EXPECT_EQ(fixture.profiles.uiN_strs, 2u);
        const auto& indexes = fixture.profiles.arr1D_ui_index_profile;
        EXPECT_EQ(std::vector<std::uint32_t>(indexes.begin(), indexes.begin() + 3), row.indexes);
        EXPECT_EQ(std::count(indexes.begin() + 2, indexes.end(), 0u), 30);
        // The pointers are not moved: only the deleted position's is cleared.
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(fixture.profiles.arr1D_p_names[static_cast<std::size_t>(i)] == nullptr,
                      i == row.position);
    }
}

TEST(ProfileCombo, IsEmptyAfterItsOnlyNameIsDeleted)
{
    ProfileFixture fixture;
    CB_Profile_add_string(&fixture.profiles, L"only", 3);
    EXPECT_EQ(CB_Profile_del_string(&fixture.profiles), 1);
    EXPECT_EQ(fixture.profiles.uiN_strs, 0u);
    EXPECT_EQ(fixture.profiles.arr1D_ui_index_profile[0], 0u);
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
}

TEST(ProfileCombo, DeletesNothingWithoutASelectionOrWithoutNames)
{
    ProfileFixture fixture;
    {
        BoxWatcher boxes;
        EXPECT_EQ(CB_Profile_del_string(&fixture.profiles), 2);
        boxes.expect_boxes({{L"error", kNoSelection}});
    }
    CB_Profile_add_string(&fixture.profiles, L"a", 0);
    fixture.select_profile(-1);
    BoxWatcher boxes;
    EXPECT_EQ(CB_Profile_del_string(&fixture.profiles), 2);
    boxes.expect_boxes({{L"error", kNoSelection}});
    EXPECT_EQ(fixture.profiles.uiN_strs, 1u);
    EXPECT_EQ(combo_texts(fixture.profile_combo), Texts{L"a"});
}

TEST(ProfileCombo, DeletesNothingBeyondThePositionAfterItsNames)
{
    ProfileFixture fixture;
    CB_Profile_add_string(&fixture.profiles, L"a", 4);
    for (const wchar_t* name : {L"not the program's", L"nor this"})
        SendMessageW(fixture.profile_combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
    fixture.select_profile(2);
    {
        const CB_mng_STR before = fixture.profiles;
        BoxWatcher boxes;
        EXPECT_EQ(CB_Profile_del_string(&fixture.profiles), 2);
        boxes.expect_boxes({{L"error", kNoSelection}});
        EXPECT_EQ(std::memcmp(&before, &fixture.profiles, sizeof(before)), 0);
    }
    // That position itself is taken for one of the names.
    fixture.select_profile(1);
    BoxWatcher boxes;
    EXPECT_EQ(CB_Profile_del_string(&fixture.profiles), 1);
    boxes.expect_no_boxes();
    EXPECT_EQ(combo_texts(fixture.profile_combo), (Texts{L"a", L"nor this"}));
    EXPECT_EQ(fixture.profiles.uiN_strs, 0u);
}

TEST(ProfileCombo, ReportsANameThatTheListDoesNotDelete)
{
    ProfileFixture fixture;
    CB_Profile_add_string(&fixture.profiles, L"a", 4);
    const CB_mng_STR before = fixture.profiles;
    const RefusingCombo refusing(CB_DELETESTRING, CB_ERR);
    BoxWatcher boxes;
    EXPECT_EQ(CB_Profile_del_string(&fixture.profiles), 2);
    boxes.expect_boxes({{L"error", kDelete}});
    EXPECT_EQ(std::memcmp(&before, &fixture.profiles, sizeof(before)), 0);
    EXPECT_EQ(combo_texts(fixture.profile_combo), Texts{L"a"});
}

TEST(ProfileCombo, DeletesNoNameThatCameFromElsewhereBehindItsOwn)
{
    ProfileFixture fixture;
    for (std::uint32_t i = 0; i < 32; ++i)
        ASSERT_EQ(CB_Profile_add_string(&fixture.profiles, L"name", i), 1);
    SendMessageW(fixture.profile_combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"not the program's"));
    fixture.select_profile(32);
    const CB_mng_STR before = fixture.profiles;
    BoxWatcher boxes;
    EXPECT_EQ(CB_Profile_del_string(&fixture.profiles), 2);
    boxes.expect_boxes({{L"error", kDelete}});
    EXPECT_EQ(std::memcmp(&before, &fixture.profiles, sizeof(before)), 0);
    EXPECT_EQ(combo_texts(fixture.profile_combo).size(), 33u);
}
