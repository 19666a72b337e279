// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// The house has floors: what stands on one includes only what stands below.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// Each file of ours by its path from the root, with the paths it includes as written.
using Tree = std::map<std::string, std::vector<std::string>>;

/// A part of the tree whose files obey the same rule.
struct Floor {
    std::string name;
    std::vector<std::string> mayInclude;
    bool mayDraw;  ///< SDL, OpenGL and FreeType are allowed
};

const std::vector<Floor> kFloors = {
    {"quarn2_base", {}, false},
    {"quarn2_image", {"quarn2_base"}, false},
    {"quarn2", {"quarn2_base", "quarn2_image"}, true},
    {"glwidget", {"quarn2_base", "quarn2_image", "quarn2"}, true},
    {"country", {"quarn2_base"}, false},
    {"app_tags", {"country"}, false},
    {"app", {"quarn2_base", "quarn2_image", "quarn2", "glwidget", "country", "app_tags"}, true},
    {"tools", {"quarn2_base", "quarn2_image", "quarn2", "glwidget", "country", "app_tags"}, true},
};

/// The names of the game's widgets: all of the game that tools may know.
const std::string kTags = "app/tags.h";

/// Folders that stand outside the house and see all of it.
const std::set<std::string> kOutside = {"tests", "bench", "fuzz"};

/// The one file that reads the extension loader's header, which would change the meaning of
/// every OpenGL name after it.
const std::string kLoader = "quarn2/extensionloader.cpp";

/// Which library a file of the engine belongs to: its name without extension, then the target.
using EngineParts = std::map<std::string, std::string>;

std::string ReadText(const fs::path& path) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<std::string> IncludesOf(const std::string& text) {
    static const std::regex directive(R"re((?:^|\n)[ \t]*#[ \t]*include[ \t]*["<]([^">]+)[">])re");
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), directive), end; match != end;
         ++match)
        found.push_back((*match)[1]);
    return found;
}

Tree ReadTree(const fs::path& root) {
    Tree tree;
    const auto readFolder = [&](const std::string& folder) {
        for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
            const fs::path& path = entry.path();
            if (path.extension() == ".h" || path.extension() == ".cpp")
                tree[fs::relative(path, root).generic_string()] = IncludesOf(ReadText(path));
        }
    };
    for (const char* folder :
         {"quarn2", "glwidget", "country", "app", "tools", "tests", "bench", "fuzz"})
        readFolder(folder);
    return tree;
}

/// The engine's three libraries, as its build file lists them.
EngineParts ReadEngineParts(const std::string& buildFile) {
    static const std::regex library(R"(merovinska_library\(\s*(quarn2\w*)([^)]*)\))");
    static const std::regex source(R"((\w+)\.cpp)");
    EngineParts parts;
    for (std::sregex_iterator match(buildFile.begin(), buildFile.end(), library), end; match != end;
         ++match) {
        const std::string files = (*match)[2];
        for (std::sregex_iterator file(files.begin(), files.end(), source); file != end; ++file)
            parts[(*file)[1]] = (*match)[1];
    }
    return parts;
}

bool Draws(const std::string& header) {
    static const std::regex window(R"(SDL.*|GL/.*|ft2build\.h|freetype.*)");
    return std::regex_match(header, window);
}

/// A header of the engine that has no source stands as low as what it includes lets it.
std::string FloorOf(const std::string& path, const Tree& tree, const EngineParts& parts) {
    if (path == kTags)
        return "app_tags";
    const std::string folder = path.substr(0, path.find('/'));
    if (folder != "quarn2")
        return folder;
    if (const auto part = parts.find(fs::path(path).stem().string()); part != parts.end())
        return part->second;
    std::string floor = "quarn2_base";
    for (const std::string& include : tree.at(path)) {
        const bool ours = tree.contains(include);
        const std::string below = ours ? FloorOf(include, tree, parts) : "quarn2_base";
        if (Draws(include) || below == "quarn2")
            return "quarn2";
        if (below == "quarn2_image")
            floor = below;
    }
    return floor;
}

/// One line per include that a file may not have.
std::vector<std::string> UpwardIncludes(const Tree& tree, const EngineParts& parts) {
    std::vector<std::string> problems;
    for (const auto& [path, includes] : tree) {
        const std::string floorName = FloorOf(path, tree, parts);
        if (kOutside.contains(floorName))
            continue;
        const auto floor = std::find_if(kFloors.begin(), kFloors.end(),
                                        [&](const Floor& each) { return each.name == floorName; });
        if (floor == kFloors.end()) {
            problems.push_back(path + " stands on no floor");
            continue;
        }
        for (const std::string& include : includes) {
            const std::string problem = path + " includes " + include;
            if (tree.contains(include)) {
                const std::string below = FloorOf(include, tree, parts);
                const auto& allowed = floor->mayInclude;
                if (below != floorName
                    && std::find(allowed.begin(), allowed.end(), below) == allowed.end())
                    problems.push_back(problem);
            } else if ((Draws(include) && !floor->mayDraw)
                       || (include == "GL/glew.h" && path != kLoader)) {
                problems.push_back(problem);
            }
        }
    }
    return problems;
}

/// Our own files are included by their path from the root, so that a name means one file.
std::vector<std::string> RelativeIncludes(const Tree& tree) {
    std::set<std::string> names;
    for (const auto& [path, includes] : tree)
        names.insert(fs::path(path).filename().string());
    std::vector<std::string> problems;
    for (const auto& [path, includes] : tree)
        for (const std::string& include : includes)
            if (!tree.contains(include) && fs::path(include).extension() == ".h"
                && (include.starts_with(".") || names.contains(include)))
                problems.push_back(path + " includes " + include);
    return problems;
}

/// Looks for ways from a file back to itself, depth first.
class CycleSearch {
public:
    explicit CycleSearch(const Tree& files) : tree(files) {}

    std::vector<std::string> Run() {
        for (const auto& [path, includes] : tree)
            Visit(path);
        return cycles;
    }

private:
    void Visit(const std::string& path) {
        const auto onTrail = std::find(trail.begin(), trail.end(), path);
        if (onTrail != trail.end()) {
            std::string cycle;
            std::for_each(onTrail, trail.end(),
                          [&](const std::string& step) { cycle += step + " -> "; });
            cycles.push_back(cycle + path);
            return;
        }
        if (!visited.insert(path).second)
            return;
        trail.push_back(path);
        for (const std::string& include : tree.at(path))
            if (tree.contains(include))
                Visit(include);
        trail.pop_back();
    }

    const Tree& tree;
    std::set<std::string> visited;
    std::vector<std::string> trail;
    std::vector<std::string> cycles;
};

/// The units of a folder, each a header with its source, and the units that they include.
Tree UnitsOf(const std::string& folder, const Tree& tree) {
    const auto unitOf = [](const std::string& path) { return path.substr(0, path.rfind('.')); };
    Tree units;
    for (const auto& [path, includes] : tree) {
        if (!path.starts_with(folder + "/"))
            continue;
        std::vector<std::string>& needed = units[unitOf(path)];
        for (const std::string& include : includes)
            if (include.starts_with(folder + "/") && unitOf(include) != unitOf(path))
                needed.push_back(unitOf(include));
    }
    return units;
}

using testing::ElementsAre;
using testing::IsEmpty;

const EngineParts kParts = {
    {"trace", "quarn2_base"}, {"vector", "quarn2_image"}, {"kernel", "quarn2"}};

TEST(IncludeRules, TheTreeHasNoIncludeThatRunsUpwards) {
    const Tree tree = ReadTree(".");
    ASSERT_TRUE(tree.contains("quarn2/trace.h")) << "to be run in the root of the tree";
    const EngineParts parts = ReadEngineParts(ReadText("quarn2/CMakeLists.txt"));
    ASSERT_EQ(parts.at("trace"), "quarn2_base");
    EXPECT_THAT(UpwardIncludes(tree, parts), IsEmpty());
}

TEST(IncludeRules, TheTreeHasNoFilesThatIncludeEachOther) {
    const Tree tree = ReadTree(".");
    EXPECT_THAT(CycleSearch(tree).Run(), IsEmpty());
}

TEST(IncludeRules, NoTwoUnitsOfAFolderIncludeEachOther) {
    const Tree tree = ReadTree(".");
    for (const char* folder : {"glwidget", "country", "app", "tools"}) {
        const Tree units = UnitsOf(folder, tree);
        EXPECT_GT(units.size(), 2U) << folder;
        EXPECT_THAT(CycleSearch(units).Run(), IsEmpty());
    }
}

TEST(IncludeRules, TheTreeIncludesItsFilesByTheirPathFromTheRoot) {
    EXPECT_THAT(RelativeIncludes(ReadTree(".")), IsEmpty());
}

TEST(IncludeRules, DirectivesAreFoundWhateverTheirSpacing) {
    EXPECT_THAT(IncludesOf("#include \"a.h\"\n  #  include <b.h>\n// #include \"c.h\"\n"),
                ElementsAre("a.h", "b.h"));
}

TEST(IncludeRules, EngineLibrariesAreReadFromTheBuildFile) {
    const EngineParts parts = ReadEngineParts(
        "merovinska_library(quarn2_base\n  memory.cpp\n  trace.cpp)\n"
        "merovinska_library(quarn2 font.cpp)\n");
    EXPECT_EQ(parts, (EngineParts{
                         {"memory", "quarn2_base"}, {"trace", "quarn2_base"}, {"font", "quarn2"}}));
}

TEST(IncludeRules, AnEngineFileMayNotIncludeAWidget) {
    const Tree tree = {{"quarn2/kernel.h", {"glwidget/label.h"}}, {"glwidget/label.h", {}}};
    EXPECT_THAT(UpwardIncludes(tree, kParts),
                ElementsAre("quarn2/kernel.h includes glwidget/label.h"));
}

TEST(IncludeRules, TheBaseMayNotIncludeTheRestOfTheEngine) {
    const Tree tree = {{"quarn2/trace.cpp", {"quarn2/vector.h"}},
                       {"quarn2/vector.h", {"quarn2/kernel.h", "quarn2/trace.h"}},
                       {"quarn2/kernel.h", {}},
                       {"quarn2/trace.h", {}}};
    EXPECT_THAT(UpwardIncludes(tree, kParts),
                ElementsAre("quarn2/trace.cpp includes quarn2/vector.h",
                            "quarn2/vector.h includes quarn2/kernel.h"));
}

TEST(IncludeRules, AnEngineHeaderWithoutASourceStandsOnWhatItIncludes) {
    const Tree tree = {
        {"quarn2/vector.cpp", {"quarn2/bytes.h", "quarn2/pixels.h", "quarn2/list.h"}},
        {"quarn2/bytes.h", {"cstdint"}},
        {"quarn2/pixels.h", {"quarn2/vector.h"}},
        {"quarn2/vector.h", {}},
        {"quarn2/list.h", {"GL/gl.h"}}};
    EXPECT_THAT(UpwardIncludes(tree, kParts),
                ElementsAre("quarn2/vector.cpp includes quarn2/list.h"));
}

TEST(IncludeRules, TheCountryKnowsNoWidgetAndNoWindow) {
    const Tree tree = {
        {"country/date.cpp", {"quarn2/trace.h", "SDL.h", "GL/gl.h", "glwidget/label.h"}},
        {"quarn2/trace.h", {}},
        {"glwidget/label.h", {}}};
    EXPECT_THAT(UpwardIncludes(tree, kParts),
                ElementsAre("country/date.cpp includes SDL.h", "country/date.cpp includes GL/gl.h",
                            "country/date.cpp includes glwidget/label.h"));
}

TEST(IncludeRules, WidgetsAndCountryDoNotKnowEachOther) {
    const Tree tree = {{"glwidget/label.h", {"country/date.h"}}, {"country/date.h", {}}};
    EXPECT_THAT(UpwardIncludes(tree, kParts),
                ElementsAre("glwidget/label.h includes country/date.h"));
}

TEST(IncludeRules, ToolsDoNotIncludeTheGame) {
    const Tree tree = {{"tools/guiview.cpp", {"app/app.h", "country/date.h"}},
                       {"app/app.h", {}},
                       {"country/date.h", {}}};
    EXPECT_THAT(UpwardIncludes(tree, kParts), ElementsAre("tools/guiview.cpp includes app/app.h"));
}

TEST(IncludeRules, ToolsMayKnowTheTagsOfTheGame) {
    const Tree tree = {{"tools/guiview.cpp", {"app/tags.h"}}, {"app/tags.h", {}}};
    EXPECT_THAT(UpwardIncludes(tree, kParts), IsEmpty());
}

TEST(IncludeRules, TheTagsKnowNothingElseOfTheGame) {
    const Tree tree = {{"app/tags.h", {"app/app.h", "glwidget/label.h", "country/population.h"}},
                       {"app/app.h", {}},
                       {"glwidget/label.h", {}},
                       {"country/population.h", {}}};
    EXPECT_THAT(UpwardIncludes(tree, kParts), ElementsAre("app/tags.h includes app/app.h",
                                                          "app/tags.h includes glwidget/label.h"));
}

TEST(IncludeRules, TestsMayIncludeEverything) {
    const Tree tree = {{"tests/app/app_test.cpp", {"app/app.h", "SDL.h"}}, {"app/app.h", {}}};
    EXPECT_THAT(UpwardIncludes(tree, kParts), IsEmpty());
}

TEST(IncludeRules, OnlyTheLoaderReadsTheExtensionHeader) {
    const Tree tree = {{kLoader, {"GL/glew.h"}}, {"quarn2/font.cpp", {"GL/glew.h"}}};
    EXPECT_THAT(UpwardIncludes(tree, kParts), ElementsAre("quarn2/font.cpp includes GL/glew.h"));
}

TEST(IncludeRules, AFileInAnUnknownFolderIsReported) {
    EXPECT_THAT(UpwardIncludes({{"cellar/wine.h", {}}}, kParts),
                ElementsAre("cellar/wine.h stands on no floor"));
}

TEST(IncludeRules, FilesThatIncludeEachOtherAreReportedWithTheWay) {
    const Tree tree = {{"app/a.h", {"app/b.h"}},
                       {"app/b.h", {"app/c.h", "vector"}},
                       {"app/c.h", {"app/b.h"}},
                       {"app/d.h", {"app/c.h"}}};
    EXPECT_THAT(CycleSearch(tree).Run(), ElementsAre("app/b.h -> app/c.h -> app/b.h"));
}

TEST(IncludeRules, AHeaderAndItsSourceAreOneUnitOfTheirFolder) {
    const Tree tree = {{"app/a.h", {"app/b.h", "quarn2/trace.h"}},
                       {"app/b.cpp", {"app/b.h", "app/a.h", "vector"}},
                       {"app/b.h", {}},
                       {"quarn2/trace.h", {}}};
    EXPECT_THAT(CycleSearch(tree).Run(), IsEmpty());
    EXPECT_THAT(CycleSearch(UnitsOf("app", tree)).Run(), ElementsAre("app/a -> app/b -> app/a"));
}

TEST(IncludeRules, APathRelativeToTheFileIsReported) {
    const Tree tree = {{"app/a.h", {"b.h", "../quarn2/trace.h", "app/b.h", "SDL.h"}},
                       {"app/b.h", {}}};
    EXPECT_THAT(RelativeIncludes(tree),
                ElementsAre("app/a.h includes b.h", "app/a.h includes ../quarn2/trace.h"));
}

}  // namespace
