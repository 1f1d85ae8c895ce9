#include "tests/support/folder_windows/shell_windows_stand_in/item_id_lists.h"

#include <set>

#include "tests/support/basics/exclusive_lock.h"
#include "tests/support/folder_windows/shell_windows_stand_in/script.h"

namespace test_support::stand_in
{

namespace
{

// Sees every release of COM memory in the process and counts those of lists handed out here.
class ReleaseWatch : public IMallocSpy
{
public:
    static ReleaseWatch& instance()
    {
        static ReleaseWatch watch;
        return watch;
    }

    void follow(void* list)
    {
        const ExclusiveLock guard(lock_);
        if (!registered_)
            registered_ = SUCCEEDED(CoRegisterMallocSpy(this));
        lists_.insert(list);
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override
    {
        const bool known = id == __uuidof(IUnknown) || id == __uuidof(IMallocSpy);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    void* STDMETHODCALLTYPE PreFree(void* memory, BOOL) override
    {
        const ExclusiveLock guard(lock_);
        if (memory && lists_.erase(memory) != 0)
            InterlockedDecrement(&counters().id_lists_live);
        return memory;
    }

    // The rest passes everything on as it is.
    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* memory) override { return memory; }
    void STDMETHODCALLTYPE PostFree(BOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* memory, SIZE_T size, void** passed, BOOL) override
    {
        *passed = memory;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* memory, BOOL) override { return memory; }
    void* STDMETHODCALLTYPE PreGetSize(void* memory, BOOL) override { return memory; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* memory, BOOL) override { return memory; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int result) override { return result; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}

private:
    ReleaseWatch() = default;
    ~ReleaseWatch() = default;

    SRWLOCK lock_ = SRWLOCK_INIT;
    bool registered_ = false;
    std::set<void*> lists_;
};

using Follow = void (*)(void* list);

void follow_here(void* list)
{
    ReleaseWatch::instance().follow(list);
}

// The system takes one watch in a process, where several copies of the stand-in may be at work: in the test's
// executable, lent, and registered. All share that of the copy that was the first in need of one.
Follow find_watch_of_the_process()
{
    const std::wstring name = L"Local\\WendlowTestsReleaseWatch" + std::to_wstring(GetCurrentProcessId());
    // Stays open: the name lasts as long as the handle.
    const HANDLE mapping =
        CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(Follow), name.c_str());
    const auto place = static_cast<void**>(
        mapping ? MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Follow)) : nullptr);
    if (!place)
        return follow_here;
    void* const first =
        InterlockedCompareExchangePointer(place, reinterpret_cast<void*>(&follow_here), nullptr);
    return first ? reinterpret_cast<Follow>(first) : follow_here;
}

PIDLIST_ABSOLUTE followed(PIDLIST_ABSOLUTE list)
{
    if (!list)
        return nullptr;
    InterlockedIncrement(&counters().id_lists_given);
    InterlockedIncrement(&counters().id_lists_live);
    static const Follow follow = find_watch_of_the_process();
    follow(list);
    return list;
}

} // namespace

PIDLIST_ABSOLUTE item_id_list_of(const std::wstring& path)
{
    // Without a look at the disk, where the folder may be spelled otherwise or be missing.
    return followed(SHSimpleIDListFromPath(path.c_str()));
}

PIDLIST_ABSOLUTE item_id_list_of_no_path()
{
    PIDLIST_ABSOLUTE list = nullptr;
    SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, &list);
    return followed(list);
}

} // namespace test_support::stand_in
