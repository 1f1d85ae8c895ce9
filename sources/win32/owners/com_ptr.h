// Owners for the shell's interfaces.
#pragma once

#include <windows.h>

#include <objbase.h>
#include <shlobj.h>

// One reference to an interface, released at the end of the scope.
template <typename T> class ComPtr
{
public:
    ComPtr() = default;
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    ~ComPtr()
    {
        if (interface_ != nullptr)
            interface_->Release();
    }
    [[nodiscard]] T* get() const { return interface_; }
    T* operator->() const { return interface_; }
    explicit operator bool() const { return interface_ != nullptr; }

    // Where a call stores the reference that it hands out. Only for an empty pointer.
    T** out() { return &interface_; }
    void** out_void() { return reinterpret_cast<void**>(&interface_); }

private:
    T* interface_ = nullptr;
};

// Keeps COM initialised on this thread, where it is, until the end of the scope: another routine may
// uninitialise it meanwhile.
class ComHold
{
public:
    ComHold()
    {
        APTTYPE type{};
        APTTYPEQUALIFIER qualifier{};
        held_ = SUCCEEDED(CoGetApartmentType(&type, &qualifier)) &&
                SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    }
    ComHold(const ComHold&) = delete;
    ComHold& operator=(const ComHold&) = delete;
    ~ComHold()
    {
        if (held_)
            CoUninitialize();
    }

private:
    bool held_ = false;
};

// A variant, empty at first and cleared at the end.
class Variant
{
public:
    Variant() { VariantInit(&value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&value_); }
    VARIANT* get() { return &value_; }

private:
    VARIANT value_{};
};

// An item identifier list from the shell, freed with CoTaskMemFree.
class ItemIdList
{
public:
    ItemIdList() = default;
    ItemIdList(const ItemIdList&) = delete;
    ItemIdList& operator=(const ItemIdList&) = delete;
    ~ItemIdList() { CoTaskMemFree(list_); }
    [[nodiscard]] LPITEMIDLIST get() const { return list_; }
    LPITEMIDLIST* out() { return &list_; }

private:
    LPITEMIDLIST list_ = nullptr;
};
