#include "tests/control/profiles/profile_fixture.h"

#include <algorithm>

#include "sources/funcs_layout_windows/profiles/profile_loading.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/windows/windows_lookup.h"

namespace profile_tests
{

using test_support::becomes_true_pumping;

namespace
{

HWND create_combo(HWND parent, UINT_PTR id)
{
    return CreateWindowExW(0, L"ComboBox", L"", WS_CHILD | CBS_DROPDOWNLIST | CBS_HASSTRINGS, 0, 0, 150, 200,
                           parent, reinterpret_cast<HMENU>(id), GetModuleHandleW(nullptr), nullptr);
}

} // namespace

std::string place_of(HWND window)
{
    const RECT place = test_support::rectangle_of(window);
    return std::to_string(place.left) + "," + std::to_string(place.top) + " " +
           std::to_string(place.right - place.left) + "x" + std::to_string(place.bottom - place.top);
}

std::string place_once_it_is(HWND window, const std::string& expected)
{
    becomes_true_pumping([&] { return place_of(window) == expected; });
    return place_of(window);
}

bool becomes_iconic(HWND window)
{
    return becomes_true_pumping([&] { return IsIconic(window) != FALSE; });
}

std::vector<std::wstring> combo_texts(HWND combo)
{
    std::vector<std::wstring> texts;
    const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
    for (WPARAM i = 0; i < static_cast<WPARAM>(count); ++i) {
        std::wstring text(1024, L'\0');
        const LRESULT units = SendMessageW(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text.data()));
        text.resize(static_cast<std::size_t>(std::max<LRESULT>(units, 0)));
        texts.push_back(text);
    }
    return texts;
}

ProfileFixture::ProfileFixture()
    : window(L"", WS_OVERLAPPEDWINDOW), profile_combo(create_combo(window, 4)),
      action_combo(create_combo(window, 5)), store_memory(std::make_unique<LoadedProfiles_STR>()),
      store(*store_memory)
{
    CB_Profile_init(profile_combo, 4, &profiles);
    CB_Action_init(action_combo, 5, &actions);
    preInitOnce_onLoadProfile(&store);
}

ProfileFixture::~ProfileFixture()
{
    finishWork_onLoadProfile(&store);
}

std::int32_t ProfileFixture::load(const test_support::Bytes& file)
{
    // A refused file stays open, so every load has a file of its own.
    const std::wstring path = files.file(L"profile " + std::to_wstring(++files_made_) + L".txt");
    test_support::write_file(path, file);
    return load_path(path);
}

std::int32_t ProfileFixture::load_path(const std::wstring& path)
{
    return onButton_LoadProfile_clicked(window, 1, path.c_str(), &store, &profiles);
}

HWND ProfileFixture::stored_handle(std::uint32_t profile, std::uint32_t entry) const
{
    HWND handle = nullptr;
    const std::uint8_t* block = store.pc_hwnds_wnds_of_prfl + store.arr1D_ui_off_hwnds_beg[profile];
    std::copy_n(block + std::size_t{entry} * 8, sizeof(handle), reinterpret_cast<std::uint8_t*>(&handle));
    return handle;
}

test_support::Bytes ProfileFixture::stored_file(std::uint32_t profile) const
{
    const std::uint8_t* copy = store.pc_raw_FilesProfile + store.arr1D_ui_off_file_beg[profile];
    return {copy, copy + store.arr1D_ui_size_file[profile]};
}

BOOL RecordedFolderStarts::start(const SHELLEXECUTEINFOW& info)
{
    starts.push_back({.verb = info.lpVerb,
                      .path = info.lpFile,
                      .size = info.cbSize,
                      .mask = info.fMask,
                      .owner = info.hwnd,
                      .bare = !info.lpParameters && !info.lpDirectory,
                      .show = info.nShow});
    return std::find(failing.begin(), failing.end(), info.lpFile) == failing.end();
}

} // namespace profile_tests
