// No string is carried that nobody reads: each number of ResourceIds.h stands in a source, and each has a text.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "framework/ResourceModule.h"

namespace {

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(StringUse, EveryNumberHasATextAndAReader) {
    const std::filesystem::path sources(ProgramFolder() + QUORVANE_SOURCES); // there told from the program on
    const std::regex definition(R"(#define (IDS_\w+) (\d+))"), use(R"(\bIDS_\w+)");
    std::map<std::string, UINT> numbers;
    const std::string ids = ReadFile(sources / "resources" / "ResourceIds.h");
    for (std::sregex_iterator found(ids.begin(), ids.end(), definition), end; found != end; ++found)
        numbers[(*found)[1]] = static_cast<UINT>(std::stoul((*found)[2]));
    ASSERT_GE(numbers.size(), 40U) << "not where the sources are: " << sources;

    std::set<std::string> used;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(sources)) {
        if (entry.path().extension() != ".cpp") continue;
        const std::string text = ReadFile(entry.path());
        for (std::sregex_iterator found(text.begin(), text.end(), use), end; found != end; ++found)
            used.insert(found->str());
    }
    for (const auto& [name, number] : numbers) {
        EXPECT_TRUE(used.contains(name)) << name << " is used nowhere";
        EXPECT_NE(LoadText(number), "") << name;
    }
}

} // namespace
