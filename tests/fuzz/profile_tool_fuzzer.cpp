// Feeds any bytes to what wendlow-profile does with a file. A file that is refused is refused for a reason
// that lies in it; one that is taken comes back from its JSON form byte for byte, also when its paths were
// changed. The same bytes are then read as such a form.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "sources/profile_file/profile_file.h"
#include "tools/wendlow_profile/contents/checking.h"
#include "tools/wendlow_profile/contents/json_form.h"
#include "tools/wendlow_profile/contents/parts.h"
#include "tools/wendlow_profile/relinking.h"
#include "tools/wendlow_profile/showing.h"
#include "tools/wendlow_profile/warnings.h"

namespace
{

using namespace profile_tool;

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

// What the program's loader does, in its order.
bool is_loaded(ByteView file)
{
    return file.size() >= profile_file::kSignature.size() && profile_file::ends_with_signature(file) &&
           profile_file::window_count(file) != 0 &&
           profile_file::check_extent(file).field == profile_file::Field::NONE;
}

Surroundings one_place()
{
    Surroundings here;
    here.is_there = [](const std::u16string& path) { return path.size() % 2 == 0; };
    here.monitors = {{0, 0, 1366, 768}};
    return here;
}

void relink_and_look(ByteView file, const Surroundings& surroundings)
{
    ProfileParts parts = take_apart(file);
    const ProfileParts before = parts;
    const auto results = relink({.replacements = {{u"C:", u"D:\\New"}, {u"D:\\", u"E:"}}, .finds = true},
                                {{u"A.EXE", {u"F:\\a.exe"}}, {u"B.EXE", {u"1", u"2"}}}, surroundings, &parts);
    require(results.size() == parts.entries.size(), "every entry has a result");
    const Bytes relinked = put_together(parts);
    require(size_of(parts) == relinked.size(), "the size is known before");
    if (!parts.after_paths) {
        require(is_loaded(relinked), "a relinked profile is loaded");
        require(take_apart(relinked).name == before.name, "relinking keeps the name");
    }
}

void take(ByteView file)
{
    const Surroundings surroundings = one_place();
    for (const Warning& warning : warnings_of(file, surroundings))
        require(warning.offset <= file.size(), "a warning is about the file");
    require(!table_of_profile("file", file).empty(), "a file is shown");
    require(!json_summary_of_profile("file", file).empty(), "a file is shown as JSON");

    const ProfileParts parts = take_apart(file);
    const Bytes together = put_together(parts);
    require(Bytes(file.begin(), file.end()) == together, "the parts are the file");
    Bytes back;
    std::string why;
    require(profile_of_json(json_of_profile(file), &back, &why), "its own JSON form is read");
    require(back == together, "the JSON form gives the file back");
    relink_and_look(file, surroundings);
}

void refuse(ByteView file, const std::vector<Refusal>& refusals)
{
    for (const Refusal& refusal : refusals) {
        require(refusal.offset <= file.size(), "a fault lies in the file or at its end");
        require(!refusal.box.empty() && !refusal.advice.empty(), "a fault is explained");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ByteView file(data, size);
    const std::vector<Refusal> refusals = refusals_of(file);
    require(refusals.empty() == is_loaded(file), "what the program refuses is refused");
    if (refusals.empty())
        take(file);
    else
        refuse(file, refusals);

    Bytes made;
    std::string why;
    if (profile_of_json({reinterpret_cast<const char*>(data), size}, &made, &why))
        require(is_loaded(made), "what is made of JSON is loaded");
    else
        require(made.empty() && !why.empty(), "nothing is made of what is no JSON form");
    return 0;
}
