// Labels and folders that the names of files become.
#include "app/path_rules.h"

#include <gtest/gtest.h>

namespace varno {
namespace {

TEST(PathRules, BareNameAndFolder) {
    struct Row {
        const char* path;
        const char* bareName;
        const char* folder;
    };
    constexpr Row Rows[] = {
        {"C:\\Tickets\\Shop1.VRT", "Shop1.VRT", "C:\\Tickets\\"},
        {"C:Shop1.VRT", "Shop1.VRT", "C:"},
        {"Shop1.VRT", "Shop1.VRT", ""},
        {"/home/op/Shop1.VRT", "Shop1.VRT", "/home/op/"},
        {"/home/op/a:b\\c.VRT", "a:b\\c.VRT", "/home/op/"},  // "/" decides alone
        {"C:\\Shop1.VRT\\Shop1.VRT", "Shop1.VRT", "C:\\"},   // cut at the first occurrence
        {"/data/Shop1.VRT.old/Shop1.VRT", "Shop1.VRT", "/data/"},
        {"/home/op/", "", ""},
    };
    for (const Row& row : Rows) {
        EXPECT_EQ(BareName(row.path), row.bareName) << row.path;
        EXPECT_EQ(FolderOf(row.path, row.bareName), row.folder) << row.path;
    }
}

TEST(PathRules, LabelForm) {
    struct Row {
        const char* bareName;
        const char* label;  // null: none
    };
    constexpr Row Rows[] = {
        {"Shop1.VRT", "Shop1"}, {"shop1.vrt", "shop1"}, {"Shop1.vRt", "Shop1"},
        {"xvrt.VRT", ""},  // cut at the first occurrence, less one character
        {"a.VRTx.VRT", "a"},    {"Shop1.txt", nullptr}, {"VRT", nullptr},
        {"vrt.VRT", nullptr},   {"", nullptr},          {"Shop1VRT", "Shop"},
    };
    for (const Row& row : Rows) {
        const std::optional<std::string> label = LabelForm(row.bareName, "VRT");
        EXPECT_EQ(label.has_value(), row.label != nullptr) << row.bareName;
        EXPECT_EQ(label.value_or(""), row.label != nullptr ? row.label : "") << row.bareName;
    }
}

TEST(PathRules, ExtensionOfTheCommandLine) {
    EXPECT_TRUE(EndsIn("/a/Plant.vrb", "VRB"));
    EXPECT_TRUE(EndsIn("VRB", "VRB"));
    for (const char* other : {"", "RB", "/a/Plant.VRB ", "\"/a/Plant.VRB\"", "/a/Plant.VRT"}) {
        EXPECT_FALSE(EndsIn(other, "VRB")) << other;
    }
}

}  // namespace
}  // namespace varno
