// Reading the code catalogues.
#include "codec/catalogue.h"

#include <gtest/gtest.h>

#include <fstream>

#include "codec/utf8.h"
#include "tests/link/scratch_folder.h"

namespace varno {
namespace {

class CatalogueFile : public testing::Test {
  protected:
    void Write(const std::string& bytes) { std::ofstream(path_, std::ios::binary) << bytes; }
    // The accepted lines, each as "code|comment;".
    std::string Rows() {
        std::vector<CatalogueRow> rows;
        EXPECT_EQ(LoadCatalogue(path_, rows), "");
        std::string text;
        for (const auto& row : rows) {
            text += ToUtf8(row.Code() + u"|" + row.Comment() + u";");
        }
        return text;
    }
    std::string Comment(int code) {
        return ToUtf8(FindCodeComment({path_, ""}, static_cast<Word>(ControlCode + code)));
    }

    ScratchFolder folder_;
    std::string path_ = folder_.Path() + "/catalogue";
};

TEST_F(CatalogueFile, TakesTheLinesThatFollowTheLayout) {
    const std::pair<const char*, const char*> cases[] = {
        {"005 abc def", "005|ABC DEF;"},
        {"005 ", "005|;"},
        {"005", ""},
        {"005\tabc", ""},
        {"5   abc", "5  |ABC;"},
        {"1 2 abc", "1 2|ABC;"},
        {"5x  abc", "5X |ABC;"},
        {"000 abc", ""},
        {"x05 abc", ""},
        {"-05 abc", ""},
        {"0050 abc", ""},
        {"Code comment", ""},
        {"005  abc ", "005| ABC ;"},
        {"005 na\xEFve \x9C\x80", "005|NAÏVE Œ€;"},
        {"Heading\r\n1   a\r\n\r\n2   b\n3   c\rd\r\n4   e", "1  |A;2  |B;3  |C\rD;4  |E;"},
    };
    for (const auto& [lines, rows] : cases) {
        Write(lines);
        EXPECT_EQ(Rows(), rows) << lines;
    }
}

TEST_F(CatalogueFile, LookUpComparesTheFirstThreeCharactersOnly) {
    const std::string text = "0 5 blank\r\n000 zero\r\n005 old\r\n005 second\r\n006\r\n007x\n8   z";
    const std::pair<int, const char*> cases[] = {
        {0, " ZERO"}, {5, " OLD"}, {6, ""}, {7, "X"}, {8, ""}, {123, ""}, {1005, ""},
    };
    Write(text);
    for (const auto& [code, comment] : cases) {
        EXPECT_EQ(Comment(code), comment) << code;
    }
    Write("005 new\r\n");  // seen at once
    EXPECT_EQ(Comment(5), " NEW");
}

TEST_F(CatalogueFile, SaysWhyItCannotBeRead) {
    std::vector<CatalogueRow> rows = {{u"001 LEFT OVER"}};
    EXPECT_EQ(LoadCatalogue(path_, rows), "No such file or directory");
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(LoadCatalogue(folder_.Path(), rows), "Is a directory");
    EXPECT_EQ(Comment(5), "");
}

}  // namespace
}  // namespace varno
