// wendlow-profile: shows, checks, converts, mends and opens profiles.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "tools/wendlow_profile/command_line.h"
#include "tools/wendlow_profile/system/platform.h"

#ifdef _WIN32
#include "tools/wendlow_profile/system/console.h"
#include "tools/wendlow_profile/system/system_libraries.h"
#endif

namespace
{

#ifdef _WIN32
bool put(bool is_error, const std::string& text)
{
    return profile_tool::put_on_console(is_error, text);
}
#else
bool put(bool is_error, const std::string& text)
{
    std::FILE* stream = is_error ? stderr : stdout;
    return text.empty() ||
           (std::fwrite(text.data(), 1, text.size(), stream) == text.size() && std::fflush(stream) == 0);
}
#endif

int run(const std::vector<std::string>& arguments)
{
    profile_tool::Output output;
    int result = profile_tool::EXIT_UNREADABLE;
    try {
        result = profile_tool::run_command_line(arguments, profile_tool::platform::surroundings, &output);
    } catch (const std::exception& error) {
        output.err += std::string("wendlow-profile: ") + error.what() + "\n";
    }
    const bool is_error_put = put(true, output.err);
    if (put(false, output.out))
        return is_error_put ? result : profile_tool::EXIT_UNREADABLE;
    put(true, "wendlow-profile: the output cannot be written\n");
    return profile_tool::EXIT_UNREADABLE;
}

} // namespace

#ifdef _WIN32
int wmain(int, wchar_t** argv)
{
    profile_tool::take_libraries_from_windows_only();
    return run(profile_tool::utf8_arguments(argv));
}
#else
int main(int argc, char** argv)
{
    return run(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
#endif
