#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <future>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "architecture/Commands.h"
#include "architecture/Layering.h"
#include "architecture/ScratchTree.h"
#include "architecture/Tree.h"

// Every header must compile when it is the first thing a file includes. Where a source file of the
// same name begins with it, the builds that compile each file alone have proved that (release,
// debug); the others are compiled here.

namespace architecture {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

const fs::path sourceTree = TORMELK_SOURCE_DIR;

bool standsAlone(const fs::path& folder, const fs::path& header) {
    const std::string command = std::string(TORMELK_COMPILER) + " -fsyntax-only -I " +
                                quoted(folder.string()) + " -I " + quoted(sourceTree / "src") +
                                " -x c++ -include " + quoted((folder / header).string()) +
                                " /dev/null 2>&1";
    return run(command).succeeded;
}

/// The headers that do not compile by themselves. Compiles as many at a time as there are
/// processors.
std::vector<fs::path> needyHeaders(const fs::path& folder, const std::vector<fs::path>& headers) {
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        std::vector<fs::path> needy;
        for (std::size_t index = next++; index < headers.size(); index = next++) {
            if (!standsAlone(folder, headers[index])) {
                needy.push_back(headers[index]);
            }
        }
        return needy;
    };
    std::vector<std::future<std::vector<fs::path>>> workers;
    for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) {
        workers.push_back(std::async(std::launch::async, work));
    }
    std::vector<fs::path> needy;
    for (auto& worker : workers) {
        std::ranges::copy(worker.get(), std::back_inserter(needy));
    }
    return needy;
}

/// The headers under `folder` that no source file of the same name begins with.
std::vector<fs::path> unprovedHeaders(const fs::path& folder) {
    std::set<fs::path> seen;
    std::set<fs::path> proved;
    for (const Include& include : includesUnder(folder)) {
        const fs::path header = fs::path(include.file).replace_extension(".h");
        const bool isFirst = seen.insert(include.file).second;
        if (isFirst && include.file.extension() == ".cpp" && include.target == header) {
            proved.insert(header);
        }
    }
    std::vector<fs::path> headers = filesUnder(folder, {".h"});
    std::erase_if(headers, [&proved](const fs::path& header) { return proved.contains(header); });
    return headers;
}

TEST(Headers, EveryHeaderStandsAlone) {
    std::vector<fs::path> headers = unprovedHeaders(sourceTree / "src");
#ifndef TORMELK_WITH_WINDOWS
    std::erase_if(headers, [](const fs::path& header) {
        const Room* room = roomOf(header);
        return room != nullptr && !room->core;
    });
#endif
    ASSERT_THAT(headers, Not(IsEmpty()));
    EXPECT_THAT(needyHeaders(sourceTree / "src", headers), IsEmpty());
}

TEST(Headers, EveryHeaderIsReadOnlyOnce) {
    for (const fs::path& header : filesUnder(sourceTree / "src", {".h"})) {
        EXPECT_THAT(linesOf(sourceTree / "src" / header), Contains("#pragma once")) << header;
    }
}

TEST(HeadersCheck, SeesAHeaderThatNeedsAnotherBeforeIt) {
    const ScratchTree tree;
    tree.write("room/Whole.h", "#pragma once\n#include <string>\nstd::string name();\n");
    tree.write("room/Needy.h", "#pragma once\nstd::string name();\n");
    EXPECT_THAT(needyHeaders(tree.root(), unprovedHeaders(tree.root())),
                ElementsAre("room/Needy.h"));
}

TEST(HeadersCheck, LeavesToTheBuildOnlyHeadersThatTheirSourceFileBeginsWith) {
    const ScratchTree tree;
    tree.write("room/First.h", "");
    tree.write("room/First.cpp", "// What it does.\n#include \"room/First.h\"\n#include <map>\n");
    tree.write("room/Second.h", "");
    tree.write("room/Second.cpp", "#include <map>\n#include \"room/Second.h\"\n");
    tree.write("room/Third.h", "");
    EXPECT_THAT(unprovedHeaders(tree.root()), ElementsAre("room/Second.h", "room/Third.h"));
}

}  // namespace
}  // namespace architecture
