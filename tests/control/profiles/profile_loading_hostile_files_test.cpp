#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <map>

#include "tests/control/fixtures/profile_fixture.h"
#include "tests/support/boxes/box_watcher.h"
#include "tests/support/profiles/hostile_files.h"

// What the routine that loads returns for each of the hostile files; the program as a whole meets them in the
// tests of the program.

using namespace profile_tests;
using namespace test_support;

TEST(ProfileLoading, RefusesTheHostileFilesWithTheirResultsAndLeavesTheStoreAsItIs)
{
    ProfileFixture fixture;
    const NothingStarts starts;
    const LoadedProfiles_STR before = fixture.store;
    std::map<std::int32_t, int> results;
    BoxWatcher boxes;
    for (const hostile::HostileFile& file : hostile::hostile_files(u"C:\\windows\\notepad.exe")) {
        SCOPED_TRACE(file.what);
        boxes.forget();
        const std::int32_t result = fixture.load(file.bytes);
        EXPECT_EQ(result, file.refusal.result);
        boxes.expect_boxes({file.refusal.box});
        ++results[result];
    }
    for (const std::int32_t result : {-3, -4, -6, -10, -11})
        EXPECT_GT(results[result], 0) << result;
    EXPECT_EQ(results.size(), 5u);
    EXPECT_EQ(starts.count(), 0);
    EXPECT_EQ(std::memcmp(&before, &fixture.store, sizeof before), 0);
    EXPECT_EQ(fixture.profiles.uiN_strs, 0u);
    EXPECT_TRUE(combo_texts(fixture.profile_combo).empty());
}
