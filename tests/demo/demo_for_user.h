#pragma once

namespace demo
{

// Lays a few programs and a folder out side by side, opens Wendlow in front of them, and waits until the user
// closes it; the programs go with it. Throws a Failure when something does not open.
void open_for_user();

} // namespace demo
