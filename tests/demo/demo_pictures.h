#pragma once

namespace demo
{

// Plays the user of the guide and asks for each of its pictures, on a screen with nothing else on it. Throws
// a Failure when something does not come about.
void take_pictures_of_guide();

} // namespace demo
