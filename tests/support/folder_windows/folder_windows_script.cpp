#include "tests/support/folder_windows/folder_windows_script.h"

#include "tests/support/basics/files.h"
#include "tests/support/basics/text.h"
#include "tests/support/basics/waiting.h"
#include "tests/support/folder_windows/shell_windows_stand_in/class_object.h"
#include "tests/support/folder_windows/shell_windows_stand_in/script.h"

namespace test_support
{

using stand_in::Script;
using stand_in::ScriptedWindow;

struct FolderWindowsScript::Mapping {
    Mapping()
    {
        handle = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(Script),
                                    stand_in::kScriptName);
        script = handle
                     ? static_cast<Script*>(MapViewOfFile(handle, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Script)))
                     : nullptr;
        if (!script)
            throw Failure("no memory for the script of the folder windows");
    }
    ~Mapping()
    {
        script->active = 0;
        UnmapViewOfFile(script);
        CloseHandle(handle);
    }
    Mapping(const Mapping&) = delete;
    Mapping& operator=(const Mapping&) = delete;

    HANDLE handle = nullptr;
    Script* script = nullptr;
};

namespace
{

void copy_path(wchar_t (&to)[stand_in::kMaxPath], const std::wstring& path)
{
    if (path.size() >= stand_in::kMaxPath)
        throw Failure("the path is too long for the script: " + printable(path));
    path.copy(to, path.size());
}

// The stand-in's hook on the messages of a window's thread, for as long as it is needed. The stand-in itself
// stays in the program.
class LendingHook
{
public:
    explicit LendingHook(HWND window)
    {
        const HMODULE library = LoadLibraryW(windows_path(SHELL_WINDOWS_STAND_IN_DLL).c_str());
        const auto procedure = reinterpret_cast<HOOKPROC>(
            reinterpret_cast<void*>(library ? GetProcAddress(library, "lend_when_told") : nullptr));
        const DWORD thread = GetWindowThreadProcessId(window, nullptr); // 0 would be every thread
        if (procedure && thread != 0)
            hook_ = SetWindowsHookExW(WH_GETMESSAGE, procedure, library, thread);
        if (!hook_)
            throw Failure("the stand-in for the folder windows cannot be lent, error " +
                          std::to_string(GetLastError()));
    }
    ~LendingHook() { UnhookWindowsHookEx(hook_); }
    LendingHook(const LendingHook&) = delete;
    LendingHook& operator=(const LendingHook&) = delete;

private:
    HHOOK hook_ = nullptr;
};

} // namespace

FolderWindowsScript::FolderWindowsScript() : mapping_(std::make_unique<Mapping>())
{
    clear();
}

FolderWindowsScript::~FolderWindowsScript() = default;

FolderWindowsScript& FolderWindowsScript::add(const FolderWindow& window)
{
    Script& script = *mapping_->script;
    if (script.window_count == stand_in::kMaxWindows)
        throw Failure("the script takes no more folder windows");
    ScriptedWindow& entry = script.windows[script.window_count];
    entry = {};
    entry.window = reinterpret_cast<std::int64_t>(window.window);
    entry.missing = static_cast<std::int32_t>(window.missing);
    entry.tab = reinterpret_cast<std::int64_t>(window.tab);
    entry.later_from_pass = window.later_from_pass;
    entry.first_pass = window.first_pass;
    entry.last_pass = window.last_pass;
    copy_path(entry.path, window.path);
    copy_path(entry.later_path, window.later_path);
    ++script.window_count;
    return *this;
}

FolderWindowsScript& FolderWindowsScript::add(HWND window, const std::wstring& path)
{
    FolderWindow entry;
    entry.window = window;
    entry.path = path;
    return add(entry);
}

void FolderWindowsScript::clear()
{
    *mapping_->script = Script{};
    mapping_->script->active = 1;
}

void FolderWindowsScript::show_real_windows()
{
    mapping_->script->real_windows = 1;
}

void FolderWindowsScript::fail_creation(HRESULT result)
{
    mapping_->script->creation_result = result;
}

void FolderWindowsScript::fail_count(HRESULT result)
{
    mapping_->script->count_result = result;
}

void FolderWindowsScript::claim_more(int windows)
{
    mapping_->script->claimed_more = windows;
}

StandInCounts FolderWindowsScript::counts() const
{
    const stand_in::Counters& counters = mapping_->script->counters;
    StandInCounts counts;
    counts.passes = counters.passes;
    counts.interfaces_given = counters.interfaces_given;
    counts.interfaces_live = counters.interfaces_live;
    counts.released_too_often = counters.released_too_often;
    counts.id_lists_given = counters.id_lists_given;
    counts.id_lists_live = counters.id_lists_live;
    return counts;
}

StandInRegistration::StandInRegistration()
{
    const HRESULT result = CoRegisterClassObject(stand_in::kShellWindowsClass, &stand_in::class_object(),
                                                 CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_);
    if (FAILED(result))
        throw Failure("the stand-in for the folder windows cannot be registered, result " +
                      std::to_string(result));
}

StandInRegistration::~StandInRegistration()
{
    CoRevokeClassObject(cookie_);
}

void lend_stand_in(HWND window)
{
    const LendingHook hook(window);
    PostMessageW(window, RegisterWindowMessageW(stand_in::kLendMessage), 0, 0);
    const auto lent = wait_for([&] { return GetPropW(window, stand_in::kLentProperty); }, kLongWait,
                               "the program to take the stand-in for the folder windows");
    const auto result = reinterpret_cast<INT_PTR>(lent);
    if (result != stand_in::kLent)
        throw Failure("the program did not take the stand-in for the folder windows, result " +
                      std::to_string(result));
}

} // namespace test_support
