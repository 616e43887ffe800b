// What is found wrong with a block file.
#include "block/block_file.h"

#include <gtest/gtest.h>

#include "block/image.h"
#include "platform/files.h"
#include "tests/link/scratch_folder.h"

namespace varno {
namespace {

std::string FileOf(const std::string& memory) {
    return SealTicketBuffer(memory) + "\r\n";
}

std::string Joined(const std::vector<std::string>& faults) {
    std::string text;
    for (const std::string& fault : faults) {
        text += fault + '\n';
    }
    return text;
}

TEST(Check, AcceptsSoundBlocks) {
    EXPECT_EQ(Joined(FaultsInBlockFile(NewTicketBuffer() + "\r\n")), "");
    EXPECT_EQ(Joined(FaultsInBlockFile(FileOf("08D4004100421000800000D4000000D40000"))), "");
    std::string lowerCase = FileOf("0BE71000800000000000000003E7");
    for (char& c : lowerCase) {
        c = static_cast<char>(std::tolower(c));
    }
    EXPECT_EQ(Joined(FaultsInBlockFile(lowerCase)), "");
}

TEST(Check, FindsFaultsInTheTickets) {
    struct Case {
        const char* memory;
        const char* faults;
    };
    const Case cases[] = {
        {"08D4004110000BB8100008D410008000", "Ticket 212 is there 2 times.\n"},
        {"08D4004108D510008000", "Ticket 212 has no end.\n"},
        {"08D400418000", "Ticket 212 has no end.\n"},
        {"08C710008000", "Ticket 199 has a number outside of 200 to 999 (column 2).\n"},
        {"08D410000BE810008000", "Ticket 1000 has a number outside of 200 to 999 (column 10).\n"},
        {"08D41000004108D510008000", "There is something between the tickets (column 10).\n"},
        {"08D410008000000000D4000000D5", "The key Out prints ticket 213, which is not there.\n"},
        {"08D41000", "It has no end marker behind its tickets.\n"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Joined(FaultsInBlockFile(FileOf(c.memory))), c.faults) << c.memory;
    }
}

TEST(Check, FindsFaultsInTheFile) {
    const std::string sound = NewTicketBuffer() + "\r\n";
    const auto with = [&](std::size_t at, std::size_t length, const std::string& text) {
        return std::string(sound).replace(at, length, text);
    };
    const struct {
        std::string file;
        const char* faults;
    } cases[] = {
        {with(8007, 2, ""), "It must be one line ended by CR LF, with nothing behind it.\n"},
        {with(8009, 0, "x"), "It must be one line ended by CR LF, with nothing behind it.\n"},
        {with(8003, 4, "d492"), ""},
        {with(8003, 4, "D4!3"),
         "It holds a character that is no hexadecimal digit (column 8006).\nThe checksum is D4?3, "
         "but the memory gives D492.\n"},
        {with(5, 1, "1"), "The checksum is D492, but the memory gives 33C9.\n"},
        {with(8001, 2, "01"), "\"00\" is missing between the memory and its checksum.\n"},
        {with(99, 1, "G"), "It holds a character that is no hexadecimal digit (column 100).\n"},
        {with(0, 1, ";"), "It does not begin with \":\".\n"},
        {with(7000, 1, ""), "It has 8006 characters; a block has 8007.\n"},
        {"",
         "It has 0 characters; a block has 8007.\n"
         "It does not begin with \":\".\n"
         "It has no end marker behind its tickets.\n"
         "It must be one line ended by CR LF, with nothing behind it.\n"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Joined(FaultsInBlockFile(c.file)), c.faults) << c.faults;
    }
}

TEST(Check, FindsDigitsOfBothSizes) {
    for (const char letter : std::string("ABCDEF")) {
        std::string file = ":" + std::string(ImageLength - 1, '1') + "\r\n";
        file[5] = letter;
        const std::string alone = Joined(FaultsInBlockFile(file));
        file[6] = static_cast<char>('a' + ('F' - letter));
        const std::string mixed = Joined(FaultsInBlockFile(file));
        const std::string fault = "It mixes capital and small hexadecimal digits.\n";
        EXPECT_EQ(alone.find(fault), std::string::npos) << letter;
        EXPECT_NE(mixed.find(fault), std::string::npos) << letter;
    }
}

TEST(Check, LeavesRoomForTheKeys) {
    std::string memory = "08D4";
    while (memory.size() < 7980) {
        memory += "0041";
    }
    EXPECT_EQ(Joined(FaultsInBlockFile(FileOf(memory.substr(0, 7976) + "10008000"))), "");
    EXPECT_EQ(Joined(FaultsInBlockFile(FileOf(memory + "10008000"))),
              "The tickets leave no room for the keys.\n");
}

// Only the first field counts, and a file that has no end is not read to its end.
TEST(BlockFile, IsReadAsFarAsItCanMatter) {
    const ScratchFolder folder;
    const std::string path = folder.Path() + "/any.VRB";
    const std::string longest(MostBlockFileBytes - 1, '8');
    std::string image;
    ASSERT_FALSE(WriteFile(path, longest + ",next\r\n"));
    EXPECT_FALSE(ReadBlockFile(path, image));
    EXPECT_EQ(image, longest);
    ASSERT_FALSE(WriteFile(path, longest + "8,"));
    EXPECT_EQ(ReadBlockFile(path, image),
              path + ": this is no ticket block; it goes on and on without a line end");
    EXPECT_EQ(image, longest);
    EXPECT_EQ(FaultsInBlockFile(longest).at(0), "It has 262143 characters; a block has 8007.");
    EXPECT_EQ(FaultsInBlockFile(longest + "8").at(0),
              "It has 262144 or more characters; a block has 8007.");
}

}  // namespace
}  // namespace varno
