#include "tests/support/basics/com_apartment.h"

#include <windows.h>

#include <objbase.h>

#include "tests/support/basics/waiting.h"

namespace test_support
{

ComApartment::ComApartment()
{
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        throw Failure("no COM apartment");
}

ComApartment::~ComApartment()
{
    CoUninitialize();
}

bool has_com_apartment()
{
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    return SUCCEEDED(CoGetApartmentType(&type, &qualifier)) && qualifier != APTTYPEQUALIFIER_IMPLICIT_MTA;
}

bool com_outlives_its_owner()
{
    CoUninitialize();
    const bool outlives = has_com_apartment();
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        throw Failure("no COM apartment");
    return outlives;
}

} // namespace test_support
