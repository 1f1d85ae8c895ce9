// Owner of a pen, brush or font.
#pragma once

#include <windows.h>

#include "sources/win32/owners/last_error.h"

// Deletes the object at the end of the scope; it must not be selected into a device context any more then.
template <typename T> class GdiObject
{
public:
    explicit GdiObject(T object) : object_(object) {}
    GdiObject(GdiObject&& other) noexcept : object_(other.object_) { other.object_ = nullptr; }
    GdiObject& operator=(GdiObject&&) = delete;
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;
    ~GdiObject()
    {
        const LastErrorKeeper keeper;
        if (object_ != nullptr)
            DeleteObject(object_);
    }
    [[nodiscard]] T get() const { return object_; }

private:
    T object_;
};

using Pen = GdiObject<HPEN>;
using Brush = GdiObject<HBRUSH>;
using Font = GdiObject<HFONT>;
