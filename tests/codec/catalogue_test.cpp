// Reading the code catalogues.
#include "codec/catalogue.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "codec/utf8.h"

namespace varno {
namespace {

class CatalogueFile : public testing::Test {
  protected:
    void Write(const std::string& bytes) { std::ofstream(path_, std::ios::binary) << bytes; }
    ~CatalogueFile() override { std::filesystem::remove(path_); }

    // The accepted lines, each as "code|comment;".
    std::string Rows() {
        std::vector<CatalogueRow> rows;
        EXPECT_EQ(LoadCatalogue(path_, rows), "");
        std::string text;
        for (const auto& row : rows) text += ToUtf8(row.Code() + u"|" + row.Comment() + u";");
        return text;
    }
    std::string Comment(std::string_view code3) { return ToUtf8(FindCodeComment(path_, code3)); }

    std::string path_ =
        std::filesystem::temp_directory_path() / ("catalogue" + std::to_string(getpid()));
};

TEST_F(CatalogueFile, TakesTheLinesThatFollowTheLayout) {
    struct Case {
        const char* line;
        const char* rows;
    };
    const Case cases[] = {
        {"005 abc def", "005|ABC DEF;"},
        {"005 ", "005|;"},
        {"005", ""},
        {"", ""},
        {"005\tabc", ""},
        {"5   abc", "5  |ABC;"},
        {" 5  abc", " 5 |ABC;"},
        {"1 2 abc", "1 2|ABC;"},
        {"5x  abc", "5x |ABC;"},
        {"000 abc", ""},
        {"x05 abc", ""},
        {"-05 abc", ""},
        {"0050 abc", ""},
        {"Code comment", ""},
        {"005  abc ", "005| ABC ;"},
        {"005 na\xEFve \x9C\x80", "005|NAÏVE Œ€;"},
    };
    for (const Case& c : cases) {
        Write(c.line);
        std::string expected = c.rows;
        for (char& letter : expected)
            if (letter == 'x') letter = 'X';
        EXPECT_EQ(Rows(), expected) << c.line;
    }
}

TEST_F(CatalogueFile, EndsLinesAtCrLfAndAtLf) {
    Write("Heading\r\n001 a\r\n\r\n002 b\n003 c\rd\r\n004 e");
    EXPECT_EQ(Rows(), "001|A;002|B;003|C\rD;004|E;");
    EXPECT_EQ(Comment("001"), " A");
    EXPECT_EQ(Comment("004"), " E");
}

TEST_F(CatalogueFile, LookUpComparesTheFirstThreeCharactersOnly) {
    Write("0 5 blank\r\n000 zero\r\n005 first\r\n005 second\r\n006\r\n007x\r\n5   five\r\n");
    EXPECT_EQ(Comment("000"), " ZERO");
    EXPECT_EQ(Comment("005"), " FIRST");
    EXPECT_EQ(Comment("006"), "");
    EXPECT_EQ(Comment("007"), "X");
    EXPECT_EQ(Comment("0005"), "");
    EXPECT_EQ(Comment("123"), "");
}

TEST_F(CatalogueFile, LookUpSeesAChangedFileAtOnce) {
    Write("005 old\r\n");
    EXPECT_EQ(Comment("005"), " OLD");
    Write("005 new\r\n");
    EXPECT_EQ(Comment("005"), " NEW");
}

TEST_F(CatalogueFile, SaysWhyItCannotBeRead) {
    std::vector<CatalogueRow> rows = {{u"001 LEFT OVER"}};
    EXPECT_EQ(LoadCatalogue(path_ + "missing", rows), "No such file or directory");
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(LoadCatalogue(std::filesystem::temp_directory_path(), rows), "Is a directory");
    EXPECT_EQ(FindCodeComment(path_ + "missing", "005"), u"");
}

}  // namespace
}  // namespace varno
