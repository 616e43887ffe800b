// Encoding and decoding, each case a picture and its words.
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "codec/decoder.h"
#include "codec/encoder.h"
#include "codec/memory_editor.h"
#include "tests/codec/picture.h"
#include "tests/link/scratch_folder.h"

namespace varno {
namespace {

std::vector<Word> WordsOf(std::string_view hex) {
    std::vector<Word> words;
    for (std::size_t i = 0; i < hex.size(); i += WordDigits) {
        words.push_back(static_cast<Word>(HexAt(hex, i, WordDigits)));
    }
    return words;
}

class Codec : public testing::Test {
  protected:
    Codec() {
        std::ofstream(catalogues_.controlCodes) << "000 zero\r\n005 Line feed\r\n999 last\r\n";
        std::ofstream(catalogues_.printCodes) << "005 Gross\r\n012 net\r\n100 Hundred\r\n";
    }
    MarkedText Decode(std::string_view hex, int number = 212) {
        MemoryEditor editor;
        decoder_.DecodeTicket(WordsOf(hex), number, catalogues_, editor);
        return editor.Content();
    }
    std::string DecodedPicture(std::string_view hex, int number = 212) {
        return ToPicture(Decode(hex, number));
    }

    ScratchFolder folder_;
    Catalogues catalogues_{folder_.Path() + "/control", folder_.Path() + "/print"};
    TicketDecoder decoder_;
};

TEST_F(Codec, EncodesWhatATicketCanCarry) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"Hi÷¬\n{r}C005{g} LINE FEED\n{b}P012\n{m}A27{g} ", "004800690020000D000A2005400C001B"},
        {"¬", "000D000A"},
        {"a\tb\n\x01", "00610062"},
        {"é€Ÿ\x7F", "00E90080009F007F"},
        {"\u0416\u0081\u0080", "003F0081003F"},
        {"\U0001F600b\U0001F600", "003F0062003F"},
        {"{kBIUS}x", "0078"},
        {"{m}A1234", "007B"},
        {"{m}A12{k}3", "000C0033"},
        {"{m}A1A2AA999", "00010002000003E7"},
        {"{m}A65A32", "00410020"},
        {"{r}C0057", "2039"},
        {"{r}C00{b}5P1{r}2", "20004001"},
        {"{r}C2047{b}P2047", "27FF47FF"},
        {"{r}C2048{k}a{b}P2048{k}b{r}C18446744073709551621C1", "006100622001"},
        {"{r}C00000000000000000000000000000000000000005", "2005"},
        {"{r}AP5c{m}C1{b}C2A{g}A1C2P3x{x}A1C2P3x", ""},
        {"{m}A{r}5", "0000"},
        {"{r}C\u0665", "2000"},
    };
    for (const auto& [picture, body] : cases) {
        EXPECT_EQ(EncodeTicket(FromPicture(picture), 999), std::string("0BE7") + body + "1000")
            << picture;
    }
}

TEST(Encoder, KnowsWhereEachWordStands) {
    const MarkedText ticket = FromPicture("{g}x{k}a¬\n{r}C0{r}05{g} c{m}A1234{k}{r}C9999{b}P7");
    std::string body;
    for (const PlacedWord& placed : EncodeBody(ticket)) {
        body += WordHex(placed.word) + "@" + std::to_string(placed.position) + " ";
    }
    EXPECT_EQ(body, "0061@1 000D@2 000A@2 2005@5 007B@11 4007@21 ");
}

TEST_F(Codec, DecodesEveryKindOfWord) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"004800690020000D000A2005400C001B",
         "Hi÷¬\n{r}C005{g} LINE FEED{k}\n{b}P012{g} NET{k}\n{m}A27{g} "},
        {"0021007E007F", "!~{m}A127{g} "},
        {"0000000900E903E707FF", "{m}A0{g} {m}A9{g} {m}A233{g} {m}A999{g} {m}A2047{g} "},
        {"000D0041", "{m}A13{k}A"},
        {"000A", "{m}A10"},
        {"000D000D000A", "{m}A13{k}¬\n"},
        {"000D2005", "{m}A13{k}\n{r}C005{g} LINE FEED{k}\n"},
        {"000D", "{m}A13"},
        {"0041000D000A2005", "A¬\n{r}C005{g} LINE FEED{k}\n"},
        {"00414005", "A\n{b}P005{g} GROSS{k}\n"},
        {"2005400520000041", "{r}C005{g} LINE FEED{k}\n{b}P005{g} GROSS{k}\n{r}C000{g} ZERO{k}\nA"},
        {"23E823E7", "{r}C1000{k}\n{r}C999{g} LAST{k}\n"},
        {"00411800FFFF08D5600030000042", "AB"},
    };
    for (const auto& [body, picture] : cases) {
        EXPECT_EQ(DecodedPicture("08D4" + std::string(body) + "1000004180000041"), picture) << body;
    }
}

TEST_F(Codec, FindsTheTicketAmongOthers) {
    const std::string memory = "08C80041100008D40042100008D40043100080000000";
    EXPECT_EQ(DecodedPicture(memory, 200), "A");
    EXPECT_EQ(DecodedPicture(memory, 212), "B");
    EXPECT_EQ(DecodedPicture(memory, 213), "");
    EXPECT_EQ(DecodedPicture("08D40042", 212), "B");
    EXPECT_EQ(DecodedPicture("", 212), "");
}

TEST_F(Codec, CarriesACarriageReturnOverTheEndOfTheWords) {
    EXPECT_EQ(DecodedPicture("08D4000D"), "");
    EXPECT_TRUE(decoder_.PendingCR());
    EXPECT_EQ(DecodedPicture("08D400411000"), "{m}A13{k}A");
    EXPECT_FALSE(decoder_.PendingCR());
}

TEST_F(Codec, ShowsCodesWithoutCommentsWhenThereIsNoCatalogue) {
    catalogues_ = {"/nowhere/at all", folder_.Path()};
    EXPECT_EQ(DecodedPicture("08D42005400510000"), "{r}C005{k}\n{b}P005{k}\n");
}

TEST_F(Codec, EncodesADecodedRecordToTheSameRecord) {
    std::mt19937 random(20);
    const auto below = [&](unsigned n) { return static_cast<Word>(random() % n); };
    for (int round = 0; round < 300; ++round) {
        std::string record = WordHex(0x08D4);
        for (unsigned length = below(200); length > 0; --length) {
            const Word kinds[] = {below(1000), below(128), static_cast<Word>("\r\n A19"[below(6)]),
                                  static_cast<Word>(ControlCode + below(MaxWordValue + 1)),
                                  static_cast<Word>(PrintCode + below(1000))};
            record += WordHex(kinds[below(5)]);
        }
        record += WordHex(TicketEnd);
        const MarkedText text = Decode(record);
        ASSERT_EQ(EncodeTicket(text, 212), record) << ToPicture(text);
    }
}

}  // namespace
}  // namespace varno
