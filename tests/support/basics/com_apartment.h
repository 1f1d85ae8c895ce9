#pragma once

namespace test_support
{

// COM as a single-threaded apartment for the calling thread.
class ComApartment
{
public:
    ComApartment();
    ~ComApartment();
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
};

// Whether COM was initialised for the calling thread.
bool has_com_apartment();

// Uninitialises COM for the calling thread, as the main window does when it is closed, and tells whether it
// is still there for whoever holds it. Initialises it again.
bool com_outlives_its_owner();

} // namespace test_support
